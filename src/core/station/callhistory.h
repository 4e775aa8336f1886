#pragma once
// Call history: what is known of a station before it is worked (its name, zone, oblast, the
// exchange it sent last time), in the common text format the contest loggers share. A header
// line "!!Order!!,Call,Name,Exch1,…" names the columns of the lines after it; '#' lines are
// comments; each other line is one call's values, comma-separated.
#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>
#include <vector>

namespace hfc {

class CallHistory {
  public:
    CallHistory();
    // Replaces what was loaded before. UTF-8, else Windows-1251 (a file from a Windows logger).
    void load(const QByteArray& text);
    bool loadFile(const QString& path); // false when it cannot be read; nothing changes then
    void clear();                       // no calls; the one column "Call"

    size_t size() const { return rows_.size(); }
    bool has(const QString& call) const { return byCall_.contains(call.toUpper()); }
    // The call's value in a column (its name in any case); "" when either is unknown.
    QString value(const QString& call, const QString& column) const;
    // Sets one value, adding the call or the column when new. Commas become blanks: the format
    // has no quoting.
    void set(const QString& call, const QString& column, const QString& value);

    // Every column in the order first seen, "Call" first.
    const QStringList& columns() const { return columns_; }
    // The file text: one header line over every column, then one line per call in call order.
    QByteArray text() const;

  private:
    int columnIndex(const QString& name) const;
    int addColumn(const QString& name);

    QStringList columns_;
    QHash<QString, int> columnAt_;  // lower-case name -> index
    std::vector<QStringList> rows_; // values by column index; shorter rows end in blanks
    QHash<QString, size_t> byCall_;
};

// The history file of a data folder.
QString callHistoryPath(const QString& dataDir);

} // namespace hfc

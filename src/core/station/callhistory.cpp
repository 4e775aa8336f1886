#include "station/callhistory.h"

#include "text/codepage.h"

#include <QFile>
#include <QStringDecoder>
#include <algorithm>

namespace hfc {

namespace {
const QString kOrder = QStringLiteral("!!Order!!");
} // namespace

CallHistory::CallHistory() {
    clear();
}

void CallHistory::clear() {
    columns_.clear();
    columnAt_.clear();
    rows_.clear();
    byCall_.clear();
    addColumn(QStringLiteral("Call"));
}

int CallHistory::columnIndex(const QString& name) const {
    return columnAt_.value(name.trimmed().toLower(), -1);
}

int CallHistory::addColumn(const QString& name) {
    const QString n = name.trimmed();
    const int at = columnIndex(n);
    if (at >= 0) return at;
    columns_ << n;
    columnAt_.insert(n.toLower(), int(columns_.size() - 1));
    return int(columns_.size() - 1);
}

void CallHistory::load(const QByteArray& bytes) {
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString text = utf8.decode(bytes);
    if (utf8.hasError()) text = fromWin1251(bytes);
    clear();
    std::vector<int> layout; // column index of each field; -1: a field nobody named
    for (QStringView line : QStringView(text).split(QLatin1Char('\n'))) {
        line = line.trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1Char('#'))) continue;
        const QList<QStringView> fields = line.split(QLatin1Char(','));
        if (fields[0].trimmed().compare(kOrder, Qt::CaseInsensitive) == 0) {
            layout.clear();
            for (qsizetype i = 1; i < fields.size(); ++i)
                layout.push_back(fields[i].trimmed().isEmpty() ? -1
                                                               : addColumn(fields[i].toString()));
            continue;
        }
        // Without a header the lines are "call,exchange", as in the DOK lists shipped for the
        // DARC contests.
        if (layout.empty()) layout = {0, addColumn(QStringLiteral("Exch1"))};
        const auto callAt = std::find(layout.begin(), layout.end(), 0);
        if (callAt == layout.end()) continue; // a layout without calls says nothing of anyone
        const QString call = fields.value(callAt - layout.begin()).trimmed().toString().toUpper();
        if (call.isEmpty()) continue;
        for (size_t i = 0; i < layout.size() && qsizetype(i) < fields.size(); ++i)
            if (layout[i] > 0) set(call, columns_[layout[i]], fields[qsizetype(i)].toString());
        if (!byCall_.contains(call)) set(call, columns_[0], call);
    }
}

bool CallHistory::loadFile(const QString& path) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) return false;
    load(f.readAll());
    return true;
}

QString CallHistory::value(const QString& call, const QString& column) const {
    const auto it = byCall_.constFind(call.toUpper());
    const int col = columnIndex(column);
    if (it == byCall_.constEnd() || col < 0) return {};
    return rows_[*it].value(col);
}

void CallHistory::set(const QString& call, const QString& column, const QString& value) {
    const QString key = call.trimmed().toUpper();
    if (key.isEmpty()) return;
    auto it = byCall_.find(key);
    if (it == byCall_.end()) {
        rows_.push_back({key});
        it = byCall_.insert(key, rows_.size() - 1);
    }
    const int col = addColumn(column);
    if (col == 0) return; // the call is the key; it does not change
    QStringList& row = rows_[*it];
    while (row.size() <= col) row << QString();
    QString v = value.trimmed();
    v.replace(QLatin1Char(','), QLatin1Char(' '));
    row[col] = v;
}

QByteArray CallHistory::text() const {
    QByteArray out = (QStringList{kOrder} + columns_).join(QLatin1Char(',')).toUtf8() + "\n";
    QStringList calls = byCall_.keys();
    std::sort(calls.begin(), calls.end());
    for (const QString& call : calls) {
        QStringList row = rows_[byCall_.value(call)];
        while (row.size() < columns_.size()) row << QString();
        out += row.join(QLatin1Char(',')).toUtf8() + "\n";
    }
    return out;
}

QString callHistoryPath(const QString& dataDir) {
    return dataDir + QStringLiteral("/callhistory.txt");
}

} // namespace hfc

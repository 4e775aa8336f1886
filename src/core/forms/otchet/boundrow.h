#pragma once
// Text boxes bound to the columns of a one-row table (tbltit, rezult): load() shows the row, and
// an edit of a box is stored at once, so what the operator types survives whatever happens to
// the window next. While held, changes are not stored one by one; store() writes every bound
// box in one statement.
#include "log/logstore.h"

#include <QHash>
#include <QObject>
#include <QString>
#include <vector>

namespace hfc {

class Control;

class BoundRow : public QObject {
  public:
    BoundRow(Db& db, LogStore::Sheet sheet, QObject* parent = nullptr);

    void bind(Control* box, const QString& column);
    // Fills the boxes from the row (creating a blank row if the table has none).
    void load();
    // Stores every box. Database errors are swallowed: the boxes keep their text.
    void store();
    void hold(bool on) { held_ = on; }

  private:
    void changed(Control* box);
    QStringList columns() const;

    LogStore store_;
    LogStore::Sheet sheet_;
    struct Binding {
        Control* box;
        QString column;
        QString stored; // the value the row holds, as far as we know
    };
    std::vector<Binding> bindings_;
    bool held_ = false;
};

} // namespace hfc

#pragma once
// One control of a window model: a named bag of the properties a view mirrors. The model owns
// the state; a view only shows it and forwards the operator's events.
#include <QHash>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <functional>
#include <vector>

namespace hfc {

class Control : public QObject {
    Q_OBJECT
  public:
    enum class Kind {
        TextBox, // editable text
        Label,
        Button, // command button: Enter while focused clicks it
        Option, // option button: value true/false
        CheckBox,
        Menu,  // menu item; caption is its text
        Frame, // panel holding other controls
        List,  // list box: items
        Combo, // combo box: items and an editable text
        Grid,  // data grid: columns and rows
        ScrollBar,
        Tree,
        Timer,
        DirList, // folder list: path
    };

    Control(const QString& name, Kind kind, QObject* parent = nullptr);

    const QString& name() const { return name_; }
    Kind kind() const { return kind_; }
    bool isEditable() const { return kind_ == Kind::TextBox || kind_ == Kind::Combo; }

    // text and caption are two names for one string
    const QString& text() const { return text_; }
    void setText(const QString& t); // a new text puts the caret after its last character
    // The caret of an edit box: where a typed key goes and what Backspace and Delete take.
    int cursor() const;
    void setCursor(int pos); // clamped to the text
    // Text the operator has selected in an edit box: a typed key, Backspace or Delete takes it
    // first. A new text ends the selection.
    int selectionStart() const { return selStart_; }
    int selectionLength() const { return selLength_; }
    void setSelection(int start, int length);
    // Removes the selected text (the caret goes where it began); false when nothing is selected.
    bool removeSelected();
    bool visible() const { return visible_; }
    void setVisible(bool v);
    bool enabled() const { return enabled_; }
    void setEnabled(bool e);
    const QString& backcolor() const { return backcolor_; }
    void setBackcolor(const QString& c);
    int value() const { return value_; } // option: 0/1; scroll bar: position
    bool checked() const { return value_ != 0; }
    void setValue(int v);
    const QStringList& items() const { return items_; }
    void setItems(const QStringList& items);
    const QStringList& columns() const { return columns_; }
    void setColumns(const QStringList& c);
    // Every row (a copy); rowCount and row read a long grid without copying it.
    std::vector<QStringList> rows() const;
    size_t rowCount() const { return source_ ? sourceCount_ : rows_.size(); }
    QStringList row(size_t i) const;
    void setRows(std::vector<QStringList> rows);
    void setTable(const QStringList& columns, std::vector<QStringList> rows);
    // In-place changes of a long grid, without copying its rows.
    void appendRow(QStringList row);
    void setCell(size_t row, int column, const QString& value);
    // A grid over a whole table need not hold it: its rows are fetched when read, and the model
    // only says how many there are and when they changed. setRows ends it.
    using RowSource = std::function<QStringList(size_t)>;
    void setRowSource(size_t count, RowSource fetch);
    void setSourcedRowCount(size_t count);
    void sourcedRowsChanged() { emit changed(); }
    int maxLength() const { return maxLength_; } // 0 = no limit
    void setMaxLength(int n) { maxLength_ = n; }
    const QString& tooltip() const { return tooltip_; }
    void setTooltip(const QString& t);
    QString extra(const QString& prop) const { return extra_.value(prop); }
    void setExtra(const QString& prop, const QString& v);

    // Generic access by property name, for the script driver and the views.
    bool hasProperty(const QString& prop) const;
    QString property(const QString& prop) const; // rows: one line per row, tab-separated
    bool setProperty(const QString& prop, const QString& value);

  signals:
    void changed();

  private:
    QString name_;
    Kind kind_;
    QString text_;
    int cursor_ = -1; // -1: after the last character, wherever that is
    int selStart_ = 0, selLength_ = 0;
    bool visible_ = true;
    bool enabled_ = true;
    QString backcolor_;
    int value_ = 0;
    QStringList items_;
    QStringList columns_;
    std::vector<QStringList> rows_;
    RowSource source_;
    size_t sourceCount_ = 0;
    int maxLength_ = 0;
    QString tooltip_;
    QHash<QString, QString> extra_;
};

} // namespace hfc

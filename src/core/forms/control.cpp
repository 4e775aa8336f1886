#include "forms/control.h"

#include <algorithm>

namespace hfc {

Control::Control(const QString& name, Kind kind, QObject* parent)
    : QObject(parent), name_(name), kind_(kind) {}

void Control::setText(const QString& t) {
    if (t == text_) return;
    text_ = t;
    cursor_ = -1;
    selLength_ = 0;
    emit changed();
}
void Control::setSelection(int start, int length) {
    start = std::clamp(start, 0, int(text_.size()));
    selStart_ = start;
    selLength_ = std::clamp(length, 0, int(text_.size()) - start);
}
bool Control::removeSelected() {
    if (selLength_ <= 0) return false;
    const int from = selStart_;
    QString t = text_;
    t.remove(from, selLength_);
    setText(t);
    setCursor(from);
    return true;
}
int Control::cursor() const {
    return cursor_ < 0 || cursor_ > text_.size() ? int(text_.size()) : cursor_;
}
void Control::setCursor(int pos) {
    const int at = pos < 0 || pos >= text_.size() ? -1 : pos;
    if (at == cursor_) return;
    cursor_ = at;
    emit changed();
}
void Control::setVisible(bool v) {
    if (v == visible_) return;
    visible_ = v;
    emit changed();
}
void Control::setEnabled(bool e) {
    if (e == enabled_) return;
    enabled_ = e;
    emit changed();
}
void Control::setBackcolor(const QString& c) {
    if (c == backcolor_) return;
    backcolor_ = c;
    emit changed();
}
void Control::setValue(int v) {
    if (v == value_) return;
    value_ = v;
    emit changed();
}
void Control::setItems(const QStringList& items) {
    if (items == items_) return;
    items_ = items;
    emit changed();
}
void Control::setColumns(const QStringList& c) {
    if (c == columns_) return;
    columns_ = c;
    emit changed();
}
std::vector<QStringList> Control::rows() const {
    if (!source_) return rows_;
    std::vector<QStringList> out;
    out.reserve(sourceCount_);
    for (size_t i = 0; i < sourceCount_; ++i) out.push_back(source_(i));
    return out;
}
QStringList Control::row(size_t i) const {
    if (source_) return i < sourceCount_ ? source_(i) : QStringList();
    return i < rows_.size() ? rows_[i] : QStringList();
}
void Control::setRows(std::vector<QStringList> rows) {
    // The same rows again (an empty list after an empty list, as a call is typed) are no change:
    // a view need not redraw them.
    if (!source_ && rows == rows_) return;
    source_ = nullptr;
    sourceCount_ = 0;
    rows_ = std::move(rows);
    emit changed();
}
void Control::appendRow(QStringList row) {
    if (source_) return;
    rows_.push_back(std::move(row));
    emit changed();
}
void Control::setCell(size_t row, int column, const QString& value) {
    if (source_ || row >= rows_.size() || column < 0 || column >= rows_[row].size()) return;
    if (rows_[row][column] == value) return;
    rows_[row][column] = value;
    emit changed();
}
void Control::setTable(const QStringList& columns, std::vector<QStringList> rows) {
    if (!source_ && rows == rows_) {
        setColumns(columns);
        return;
    }
    columns_ = columns;
    setRows(std::move(rows));
}
void Control::setRowSource(size_t count, RowSource fetch) {
    rows_.clear();
    rows_.shrink_to_fit();
    source_ = std::move(fetch);
    sourceCount_ = count;
    emit changed();
}
void Control::setSourcedRowCount(size_t count) {
    if (!source_) return;
    sourceCount_ = count;
    emit changed();
}
void Control::setTooltip(const QString& t) {
    if (t == tooltip_) return;
    tooltip_ = t;
    emit changed();
}
void Control::setExtra(const QString& prop, const QString& v) {
    if (extra_.value(prop) == v && extra_.contains(prop)) return;
    extra_.insert(prop, v);
    emit changed();
}

bool Control::hasProperty(const QString& prop) const {
    static const QStringList known = {"text",      "caption", "visible",  "enabled",
                                      "backcolor", "value",   "items",    "columns",
                                      "rows",      "tooltip", "maxlength"};
    return known.contains(prop.toLower()) || extra_.contains(prop);
}

QString Control::property(const QString& prop) const {
    const QString p = prop.toLower();
    if (p == "text" || p == "caption") return text_;
    if (p == "visible") return visible_ ? "true" : "false";
    if (p == "enabled") return enabled_ ? "true" : "false";
    if (p == "backcolor") return backcolor_;
    if (p == "value") {
        if (kind_ == Kind::Option || kind_ == Kind::CheckBox) return value_ ? "true" : "false";
        return QString::number(value_);
    }
    if (p == "items") return items_.join('|');
    if (p == "columns") return columns_.join('|');
    if (p == "rows") {
        QStringList lines;
        for (size_t i = 0; i < rowCount(); ++i) lines << row(i).join('\t');
        return lines.join('\n');
    }
    if (p == "tooltip") return tooltip_;
    if (p == "maxlength") return QString::number(maxLength_);
    return extra_.value(prop);
}

bool Control::setProperty(const QString& prop, const QString& value) {
    const QString p = prop.toLower();
    const auto asBool = [&] { return value == "true" || value == "1" || value == "True"; };
    if (p == "text" || p == "caption")
        setText(value);
    else if (p == "visible")
        setVisible(asBool());
    else if (p == "enabled")
        setEnabled(asBool());
    else if (p == "backcolor")
        setBackcolor(value);
    else if (p == "value") {
        if (value == "true" || value == "false")
            setValue(value == "true" ? 1 : 0);
        else
            setValue(value.toInt());
    } else if (p == "items")
        setItems(value.isEmpty() ? QStringList() : value.split('|'));
    else if (p == "tooltip")
        setTooltip(value);
    else if (p == "maxlength")
        setMaxLength(value.toInt());
    else if (extra_.contains(prop))
        setExtra(prop, value);
    else
        return false;
    return true;
}

} // namespace hfc

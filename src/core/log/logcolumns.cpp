#include "log/logcolumns.h"

#include "data/db.h"

namespace hfc {

const std::vector<LogColumn>& logRowColumns() {
    static const std::vector<LogColumn> cols = {
        {"ccall", "TEXT", "Позывной", &LogRow::ccall},
        {"ddate", "TEXT", "Дата", &LogRow::ddate},
        {"ttime", "TEXT", "Время", &LogRow::ttime},
        {"bband", "TEXT", "Диапазон", &LogRow::bband},
        {"mode", "TEXT", "Вид", &LogRow::mode},
        {"rsts", "TEXT", "RST пер.", &LogRow::rsts},
        {"rstr", "TEXT", "RST пр.", &LogRow::rstr},
        {"rsts1", "TEXT", "RST передан", &LogRow::rsts1},
        {"rsts2", "TEXT", "Передан", &LogRow::rsts2},
        {"rstr1", "TEXT", "RST принят", &LogRow::rstr1},
        {"rstr2", "TEXT", "Принят", &LogRow::rstr2},
        {"mult", "TEXT", "Множ.", &LogRow::mult},
        {"ps", "TEXT", "Множ. 2", &LogRow::ps},
        {"point", "TEXT", "Очки", &LogRow::point},
        {"point2", "TEXT", "Очки 2", &LogRow::point2},
        {"contr", "TEXT", "Страна", &LogRow::contr},
        {"PRF", "TEXT", "Префикс", &LogRow::prf},
        {"QTH", "TEXT", "QTH", &LogRow::qth},
        {"ps1", "TEXT", "Вид/Повт.", &LogRow::ps1},
        {"ps2", "TEXT", "Соревнование", &LogRow::ps2},
        // the radio's frequency in kHz ("21025.0"), empty when no radio was read
        {"freq", "TEXT", "Частота", &LogRow::freq, true},
    };
    return cols;
}

const LogColumn* logColumnNamed(const QString& name) {
    for (const LogColumn& c : logRowColumns())
        if (c.name.compare(name, Qt::CaseInsensitive) == 0) return &c;
    return nullptr;
}

const QString& logSelectList() {
    static const QString list = [] {
        QStringList names;
        for (const LogColumn& c : logRowColumns()) names << c.name;
        return names.join(QStringLiteral(", "));
    }();
    return list;
}

LogRow logRowFrom(const Stmt& st, int first) {
    LogRow r;
    int at = first;
    for (const LogColumn& c : logRowColumns()) r.*c.field = st.text(at++);
    return r;
}

LogRow logRowFromFields(const QMap<QString, QString>& fields) {
    LogRow r;
    for (const LogColumn& c : logRowColumns()) r.*c.field = fields.value(c.name);
    return r;
}

QMap<QString, QString> logRowFields(const LogRow& r) {
    QMap<QString, QString> out;
    for (const LogColumn& c : logRowColumns())
        if (!(r.*c.field).isEmpty()) out.insert(c.name, r.*c.field);
    return out;
}

QStringList logRowValues(const LogRow& r) {
    QStringList v;
    for (const LogColumn& c : logRowColumns()) v << r.*c.field;
    return v;
}

const QStringList& logGridColumns() {
    static const QStringList names = {"ccall", "rstr1",  "rstr2", "rsts1", "rsts2", "mult", "ps",
                                      "point", "point2", "bband", "ttime", "ddate", "mode"};
    return names;
}

QStringList logHeadings(const QStringList& names) {
    QStringList out;
    for (const QString& n : names) {
        const LogColumn* c = logColumnNamed(n);
        out << (c ? c->heading : n);
    }
    return out;
}

} // namespace hfc

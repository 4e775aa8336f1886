#include "forms/dxcc1/dxcc1form.h"

#include "data/databases.h"
#include "data/likeprefix.h"
#include "text/keyfilter.h"

namespace hfc {

using K = Control::Kind;

namespace {

// Per box: letters-and-digits or digits only, the most characters it takes, and where Enter goes.
struct BoxRule {
    const char* box;
    bool digitsOnly;
    int maxLength;
    const char* next;
};
constexpr BoxRule kBoxes[] = {
    {"txtprf", false, 5, "txtstran"}, {"txtstran", false, 15, "txtkont"},
    {"txtkont", false, 3, "txtitu"},  {"txtitu", true, 0, "txtcq"},
    {"txtcq", true, 0, "txtpref"},    {"txtpref", false, 5, "cmbadd"},
    {"txtserch", false, 5, "cmbadd"}, {"txtserch1", false, 15, "cmbadd"},
};

const BoxRule* ruleOf(const QString& box) {
    for (const BoxRule& r : kBoxes)
        if (box == QLatin1String(r.box)) return &r;
    return nullptr;
}

} // namespace

Dxcc1Form::Dxcc1Form(const Env& env, QObject* parent) : Form(QStringLiteral("dxcc1"), env, parent) {
    windowTitle = QStringLiteral("DXCC");
    escCloses = true;
    DBGrid1 = add("DBGrid1", K::Grid);
    lblserch = add("lblserch", K::Label, "Поиск");
    txtserch = add("txtserch", K::TextBox);
    txtserch1 = add("txtserch1", K::TextBox);
    frdxcc = add("frdxcc", K::Frame, "Дополнение базы DXCC");
    lblprf = add("lblprf", K::Label, "Pref");
    txtprf = add("txtprf", K::TextBox);
    lblstran = add("lblstran", K::Label, "Страна");
    txtstran = add("txtstran", K::TextBox);
    lblkont = add("lblkont", K::Label, "Конт");
    txtkont = add("txtkont", K::TextBox);
    lblzone = add("lblzone", K::Label, "Зона");
    txtitu = add("txtitu", K::TextBox);
    txtcq = add("txtcq", K::TextBox);
    lblpref = add("lblpref", K::Label, "Префикс");
    txtpref = add("txtpref", K::TextBox);
    for (Control* c :
         {txtprf1 = add("txtprf1", K::TextBox), txtpref1 = add("txtpref1", K::TextBox),
         txtstran1 = add("txtstran1", K::TextBox), txtkont1 = add("txtkont1", K::TextBox),
         txtcq1 = add("txtcq1", K::TextBox), txtitu1 = add("txtitu1", K::TextBox)})
        c->setVisible(false);
    // Headings of the boxes that have no label of their own beside them.
    txtserch->setExtra("heading", "по префиксу");
    txtserch1->setExtra("heading", "по стране");
    txtitu->setExtra("heading", "ITU");
    txtcq->setExtra("heading", "CQ");
    cmbadd = add("cmbadd", K::Button, "Добавить");
    cmbexit = add("cmbexit", K::Button, "Выход");
    for (const BoxRule& r : kBoxes) control(r.box)->setMaxLength(r.maxLength);
    tabOrder = {"txtprf",  "txtstran", "txtkont",  "txtitu",    "txtcq",
                "txtpref", "cmbadd",   "txtserch", "txtserch1", "cmbexit"};

    proc("Form_Load", [this] { Form_Load(); });
    for (const BoxRule& r : kBoxes)
        on(QLatin1String(r.box) + QStringLiteral("_KeyPress"),
           [this, box = QString::fromLatin1(r.box)](Event& e) { boxKeyPress(box, e); },
           {"KeyAscii"});
    proc("txtserch_KeyUp", [this] { searchByPrefix(); });
    proc("txtserch1_KeyUp", [this] { searchByCountry(); });
    proc("cmbAdd_Click", [this] { cmbAdd_Click(); });
    proc("cmbadd_Click", [this] { cmbAdd_Click(); });
    proc("CMBEXIT_Click", [this] { CMBEXIT_Click(); });
    proc("cmbexit_Click", [this] { CMBEXIT_Click(); });
    var("chars", chars);
    var("digits", digits);
}

void Dxcc1Form::Form_Load() {
    chars = QStringLiteral("0123456789ASDFGHJKLQWERTYUIOPZXCVBNM");
    digits = QStringLiteral("0123456789");
    for (Control* c : {txtserch, txtserch1, txtprf, txtstran, txtkont, txtitu, txtcq, txtpref})
        c->setText({});
    searchByPrefix(); // the whole table, in prefix order
    setFocus(txtprf);
}

void Dxcc1Form::boxKeyPress(const QString& box, Event& e) {
    const BoxRule* rule = ruleOf(box);
    if (!rule) return;
    e.keyAscii = filterKey(e.keyAscii, rule->digitsOnly ? digits : chars,
                           control(box)->text().size(), rule->maxLength);
    if (e.keyAscii == keys::Enter && !txtprf->text().isEmpty()) setFocus(QLatin1String(rule->next));
}

void Dxcc1Form::showRows(const QString& sql, const QString& pattern) {
    Db& db = env().db->dxcc;
    // The table's own column names mean nothing to a reader: each gets its Russian heading.
    static const QHash<QString, QString> headings = {
        {"prf", "Префикс"},    {"PREF", "Префикс страны"}, {"strana", "Страна"},
        {"kont", "Континент"}, {"iaru", "Зона ITU"},       {"cq", "Зона CQ"}};
    QStringList columns = db.columnNames(sql);
    for (QString& c : columns) c = headings.value(c, c);
    DBGrid1->setTable(columns, db.query(sql, {pattern}));
}

void Dxcc1Form::searchByPrefix() {
    showRows(QStringLiteral("SELECT * FROM tbldxcc WHERE prf LIKE ?1 ESCAPE '\\' ORDER BY prf"),
             likePrefix(txtserch->text()));
}

void Dxcc1Form::searchByCountry() {
    // No ordering: the rows come in the table's own order.
    showRows(QStringLiteral("SELECT * FROM tbldxcc WHERE strana LIKE ?1 ESCAPE '\\'"),
             likePrefix(txtserch1->text()));
}

void Dxcc1Form::cmbAdd_Click() {
    // The country field of the table holds 14 characters.
    if (txtstran->text().size() >= 15) txtstran->setText(txtstran->text().left(14));
    if (!txtprf->text().isEmpty() && !txtpref->text().isEmpty()) {
        txtprf1->setText(txtprf->text());
        txtstran1->setText(txtstran->text());
        txtkont1->setText(txtkont->text());
        txtcq1->setText(txtcq->text());
        txtitu1->setText(txtitu->text());
        txtpref1->setText(txtpref->text());
        env().db->dxcc.run(QStringLiteral("INSERT INTO tbldxcc (prf, strana, kont, cq, iaru, PREF) "
                                          "VALUES (?1, ?2, ?3, ?4, ?5, ?6)"),
                           {txtprf1->text(), txtstran1->text(), txtkont1->text(), txtcq1->text(),
                            txtitu1->text(), txtpref1->text()});
        for (Control* c : {txtprf, txtstran, txtkont, txtcq, txtitu, txtpref}) c->setText({});
    } else {
        msgbox(QStringLiteral("Введите Pref. или Префикс"), QStringLiteral("Ошибка"));
    }
    setFocus(txtprf);
}

void Dxcc1Form::CMBEXIT_Click() {
    unload();
}

} // namespace hfc

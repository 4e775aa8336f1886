#include "forms/rusdx/rusdxform.h"

#include "data/databases.h"
#include "data/likeprefix.h"
#include "text/keyfilter.h"

namespace hfc {

using K = Control::Kind;

namespace {
constexpr int kSearchLength = 5;
}

RusdxForm::RusdxForm(const Env& env, QObject* parent) : Form(QStringLiteral("rusdx"), env, parent) {
    windowTitle = QStringLiteral("Районы России");
    escCloses = true;
    lblserch = add("lblserch", K::Label, "Поиск");
    txtserch = add("txtserch", K::TextBox);
    txtserch->setMaxLength(kSearchLength);
    DBGrid1 = add("DBGrid1", K::Grid);
    Command1 = add("Command1", K::Button, "Выход");

    proc("Form_Load", [this] { Form_Load(); });
    on("txtserch_KeyPress", [this](Event& e) { txtserch_KeyPress(e); }, {"KeyAscii"});
    proc("txtserch_KeyUp", [this] { txtserch_KeyUp(); });
    proc("Command1_Click", [this] { Command1_Click(); });
    var("chars", chars);
}

void RusdxForm::Form_Load() {
    chars = QStringLiteral("0123456789ASDFGHJKLQWERTYUIOPZXCVBNM");
    txtserch->setText({});
    txtserch_KeyUp(); // the whole table, in prefix order
    setFocus(txtserch);
}

void RusdxForm::txtserch_KeyPress(Event& e) {
    e.keyAscii = filterKey(e.keyAscii, chars, txtserch->text().size(), kSearchLength);
}

void RusdxForm::txtserch_KeyUp() {
    const Rows rows = env().db->rus.query(
        QStringLiteral("SELECT pref, kodsrr, gorod FROM tblrus WHERE pref LIKE ?1 ESCAPE '\\' "
                       "ORDER BY pref"),
        {likePrefix(txtserch->text())});
    // The oblast's code is what a contest exchange carries; kodcrk is empty in the table.
    DBGrid1->setTable({"Префикс", "Код области", "Область"}, rows);
}

void RusdxForm::Command1_Click() {
    unload();
}

} // namespace hfc

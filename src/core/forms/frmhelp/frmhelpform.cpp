#include "forms/frmhelp/frmhelpform.h"

#include "forms/frmhelp/calendar.h"

namespace hfc {

using K = Control::Kind;

FrmHelpForm::FrmHelpForm(const Env& env, QObject* parent)
    : Form(QStringLiteral("FRMHELP"), env, parent) {
    windowTitle = QStringLiteral("Условия и результаты соревнований по р/связи на КВ");
    keyPreview = true; // Esc closes the window wherever the focus is
    kalendar = add("kalendar", K::Frame);
    kalendar->setVisible(false); // shown when no contest is chosen, or from the menu
    tvwDb = add("tvwDb", K::Tree);
    tvwDb->setExtra("frame", "kalendar"); // the tree sits in the calendar frame
    lblhelp = add("lblhelp", K::Label, "Положение");
    Text1 = add("Text1", K::TextBox);
    Text1->setExtra("multiline", "1"); // the rules run to pages
    txtcontest = add("txtcontest", K::TextBox);
    txtcontest->setVisible(false);
    lblrez = add("lblrez", K::Label, "Результаты");
    DBCombo1 = add("DBCombo1", K::Combo);
    DBCombo1->setExtra("heading", "Год");
    Option1 = add("Option1", K::Option, "CW");
    Option2 = add("Option2", K::Option, "SSB");
    txtrez = add("txtrez", K::TextBox);
    TXTREZUL1 = add("TXTREZUL1", K::TextBox);
    TXTMOD1 = add("TXTMOD1", K::TextBox);
    txtcont1 = add("txtcont1", K::TextBox);
    txtrez1 = add("txtrez1", K::TextBox);
    txtgod1 = add("txtgod1", K::TextBox);
    for (Control* c : {TXTREZUL1, TXTMOD1, txtcont1, txtrez1, txtgod1}) c->setVisible(false);
    mnukalendar = add("mnukalendar", K::Menu, "Календарь");
    mnunew = add("mnunew", K::Menu, "Внести новые результаты");
    mnusave = add("mnusave", K::Menu, "Сохранить ввод");
    mnuexit = add("mnuexit", K::Menu, "Выход");
    for (const char* p : {"keys", "parents", "images", "expanded"}) tvwDb->setExtra(p, {});

    proc("Form_Load", [this] { Form_Load(); });
    proc("Form_Activate", [this] { Form_Activate(); });
    on("Form_KeyUp", [this](Event& e) { Form_KeyUp(e); }, {"KeyCode", "Shift"});
    on("tvwDb_Expand", [this](Event& e) { tvwDb_Expand(e.index); }, {"Index"});
    on("tvwDb_Collapse", [this](Event& e) { tvwDb_Collapse(e.index); }, {"Index"});
    on("tvwDb_NodeClick", [this](Event& e) { tvwDb_NodeClick(e.index); }, {"Index"});
    proc("mnukalendar_Click", [this] { mnukalendar_Click(); });
    proc("mnuexit_Click", [this] { mnuexit_Click(); });
    var("contestcode", contestcode);
    var("helpcode", helpcode);
    var("helpmode", helpmode);
    var("helpgod", helpgod);
    registerResults();
}

void FrmHelpForm::Form_Load() {
    helpmode = QStringLiteral("CW");
    Option1->setValue(1);
    Option2->setValue(0);
    buildTree();
}

void FrmHelpForm::Form_Activate() {
    helpcode = contestcode;
    // "hi hi" stands for no contest chosen in the main window: offer the calendar.
    if (helpcode == QStringLiteral("hi hi")) kalendar->setVisible(true);
    wwod1();
    WWOD();
}

void FrmHelpForm::Form_KeyUp(Event& e) {
    if (e.keyCode == keys::Esc) unload();
}

void FrmHelpForm::buildTree() {
    nodes.clear();
    for (const CalendarNode& n : calendarNodes())
        nodes.push_back({QString::fromUtf8(n.key), QString::fromUtf8(n.parent),
                         QString::fromUtf8(n.text), QString::fromUtf8(n.image), false});
    QStringList texts;
    for (const TreeNode& n : nodes) texts << n.text;
    tvwDb->setItems(texts);
    syncTree();
}

void FrmHelpForm::syncTree() {
    QStringList keys, parents, images, expanded;
    for (const TreeNode& n : nodes) {
        keys << n.key;
        parents << n.parent;
        images << n.image;
        expanded << (n.expanded ? QStringLiteral("1") : QStringLiteral("0"));
    }
    tvwDb->setExtra("keys", keys.join('|'));
    tvwDb->setExtra("parents", parents.join('|'));
    tvwDb->setExtra("images", images.join('|'));
    tvwDb->setExtra("expanded", expanded.join('|'));
}

void FrmHelpForm::setExpanded(int index, bool expanded) {
    // Only month nodes have children, so only they open and close.
    if (index < 1 || index > int(nodes.size()) || nodes[index - 1].key.isEmpty()) return;
    TreeNode& n = nodes[index - 1];
    n.expanded = expanded;
    n.image = expanded ? QStringLiteral("open") : QStringLiteral("closed");
    syncTree();
}

void FrmHelpForm::tvwDb_Expand(int index) {
    setExpanded(index, true);
}

void FrmHelpForm::tvwDb_Collapse(int index) {
    setExpanded(index, false);
}

void FrmHelpForm::tvwDb_NodeClick(int index) {
    const CalendarNode* line = calendarNode(index);
    if (!line || !*line->code) return; // a month only opens or closes
    helpcode = QString::fromUtf8(line->code);
    if (line->ssbOnly) Option2_Click();
    wwod1();
    kalendar->setVisible(false); // the rules and results take the calendar's place
}

void FrmHelpForm::mnukalendar_Click() {
    kalendar->setVisible(!kalendar->visible());
}

void FrmHelpForm::mnuexit_Click() {
    unload();
}

} // namespace hfc

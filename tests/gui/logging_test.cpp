// A few QSOs logged on the Qt window with key events alone, as an operator works: the contest
// from the menu, the band by arrows, the call, Enter, the exchange, Enter.
#include "../support/freeport.h"
#include "windowfixture.h"

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTableView>
#include <QTest>

using namespace hfc;

namespace {
// Keys go wherever the keyboard is, like the operator's.
void press(Qt::Key key) {
    QWidget* w = QApplication::focusWidget();
    ASSERT_NE(w, nullptr);
    QTest::keyClick(w, key);
}
void type(const char* text) {
    for (const char* c = text; *c; ++c) {
        QWidget* w = QApplication::focusWidget();
        ASSERT_NE(w, nullptr);
        QTest::keyClicks(w, QString(QLatin1Char(*c)));
    }
}
// CQ WW chosen (own zone 16), 14 MHz, and these calls in the log there at 12:00.
void cqwwOn14(Window& w, std::initializer_list<const char*> calls) {
    w.ui.queueInput(QString("16"));
    w.form->click("mnucqww");
    w.form->cmbband_Click(3);
    for (const char* call : calls)
        w.db.contest.run("INSERT INTO tbllog (ccall, bband, ps2, ttime) "
                         "VALUES (?1, '14', 'cqww', '12:00')",
                         {QString(call)});
}
QString focusName() {
    QWidget* w = QApplication::focusWidget();
    return w ? w->objectName() : QString();
}
} // namespace

TEST(LoggingGui, AContestLoggedWithTheKeyboardAlone) {
    Window w;
    w.win->findChild<QLineEdit*>("txtcall")->setFocus();

    // F10, down the contest menu to CQ WW, Enter; the own zone is asked for.
    press(Qt::Key_F10);
    QMenu* menu = w.win->menuBar()->actions().at(0)->menu();
    ASSERT_TRUE(menu->isVisible());
    for (int i = 0;
         i < 60 && !(menu->activeAction() &&
                     QString(menu->activeAction()->text()).remove(QLatin1Char('&')) == "CQ WW");
         ++i)
        QTest::keyClick(menu, Qt::Key_Down);
    ASSERT_NE(menu->activeAction(), nullptr);
    w.ui.queueInput(QString("16"));
    QTest::keyClick(menu, Qt::Key_Return);
    ASSERT_EQ(w.form->getVar("contestcode"), "cqww");
    QApplication::processEvents();
    // Offscreen no window manager hands the window its activation back from the closed menu.
    if (QApplication::activeWindow() != w.win.get()) QApplication::setActiveWindow(w.win.get());

    // The band buttons have the keyboard: two to the right is 7 MHz.
    EXPECT_TRUE(focusName().startsWith("cmbband"));
    press(Qt::Key_Right);
    press(Qt::Key_Right);
    press(Qt::Key_Return);
    EXPECT_EQ(w.form->getVar("curband"), "7");
    EXPECT_EQ(focusName(), "txtcall");

    auto* grid = w.win->findChild<QTableView*>("DBGrid3");
    for (const char* call : {"DL1ABC", "F5ABC"}) {
        type(call);
        EXPECT_EQ(w.form->txtstran5->text().isEmpty(), false) << call; // country on each key
        press(Qt::Key_Return);
        EXPECT_EQ(focusName(), "txtrstr") << call; // the exchange, its zone already in
        press(Qt::Key_Return);
        EXPECT_EQ(focusName(), "txtcall") << call;
    }
    EXPECT_EQ(grid->model()->rowCount(), 2);
    EXPECT_EQ(w.win->findChild<QLineEdit*>("qsotot")->text(), "2");
    // Repeats on the window are in EntryKeysGui, their rows in the cqww_session scenario.
    EXPECT_EQ(w.db.contest.query("SELECT ccall, bband FROM tbllog ORDER BY rowid"),
              Rows({{"DL1ABC", "7"}, {"F5ABC", "7"}}));
}

TEST(LoggingGui, ALoggedCallIsMendedInTheLogGridAndStoredInCapitals) {
    Window w;
    cqwwOn14(w, {"DL1ABC", "G4ABC"});
    w.form->call("refreshLogGrid", {});
    QApplication::processEvents();
    auto* grid = w.win->findChild<QTableView*>("DBGrid3");
    grid->setFocus();
    grid->setCurrentIndex(grid->model()->index(1, 0));
    type("g4abd"); // typing on the cell opens it; the window's key handler upper-cases
    QApplication::processEvents();
    auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->text(), "G4ABD");
    press(Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(w.db.contest.scalar("SELECT ccall FROM tbllog WHERE rowid = 2"), "G4ABD");
    EXPECT_EQ(grid->model()->index(1, 0).data().toString(), "G4ABD");
}

// Delete on a row of the log grid asks first; Yes takes the QSO out of the log and, on a shared
// log, makes the delete event that goes to the other computers (here kept in the outbox, the
// broker being away).
TEST(LoggingGui, DeleteOnALogGridRowAsksAndTheAnswerDecides) {
    QTemporaryDir conf;
    qputenv("XDG_CONFIG_HOME", conf.path().toUtf8());
    StationSettings s;
    s.broker = QStringLiteral("127.0.0.1:%1").arg(hfc::test::freePort());
    s.logid = "test";
    s.node = "run";
    Window w(&s);
    cqwwOn14(w, {"DL1ABC", "G4ABC", "F5ABC"});
    w.form->call("refreshLogGrid", {});
    QApplication::processEvents();
    auto* grid = w.win->findChild<QTableView*>("DBGrid3");
    grid->setFocus();
    grid->setCurrentIndex(grid->model()->index(1, 0));
    w.ui.takeShown();

    w.ui.queueAnswer(Ui::Answer::No);
    press(Qt::Key_Delete);
    QApplication::processEvents();
    const QStringList asked = w.ui.takeShown();
    ASSERT_EQ(asked.size(), 1);
    EXPECT_TRUE(asked[0].contains("Удалить QSO с G4ABC (14, 12:00) из журнала?"))
        << asked[0].toStdString();
    EXPECT_EQ(w.db.contest.scalar("SELECT count(*) FROM tbllog"), "3");

    w.ui.queueAnswer(Ui::Answer::Yes);
    press(Qt::Key_Delete);
    QApplication::processEvents();
    EXPECT_EQ(w.db.contest.column("SELECT ccall FROM tbllog ORDER BY rowid"),
              QStringList({"DL1ABC", "F5ABC"}));
    // The tombstone of that QSO waits in the outbox for the broker.
    const QString uid =
        w.db.contest.scalar("SELECT uid FROM mqqso WHERE del = '1' AND qrowid = ''");
    EXPECT_FALSE(uid.isEmpty());
    EXPECT_EQ(w.db.contest.scalar("SELECT count(*) FROM mqoutbox WHERE uid = ?1", {uid}), "1");
}

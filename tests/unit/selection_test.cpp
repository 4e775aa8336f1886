// Choosing each of the 43 contests: code, title, switches, captions, the multiplier window, the
// restart calls and the focus. The expected values are written out here from the contest tables,
// not taken from the program's catalogue.
#include "formfixture.h"

#include <map>

using namespace hfc;
using hfc::test::FormFixture;

namespace {

struct Row {
    const char* item;
    const char* caption;
    const char* code;
    const char* title;
    const char* prompt; // nullptr: no input box
    const char* promptTitle;
    const char* calls;    // "both", "none", "clearmwid", "both clearmwid"
    const char* switches; // dxccmult itufill cqfill pfxmult exchmult fixexch (u = unchanged)
                          // exchsel1..4 class (3=3: ctype3 set to 3)
    int boxes;
    const char* window; // "numbered", "cleared", or the codes in box order
};

// clang-format off
const Row kRows[] = {
    {"mnuchemp", "Чемпионат", "chemp", "Чемпионат России", nullptr, nullptr, "both", "1 1 1 1 1 0 0 1 1 1 4", 0, nullptr},
    {"mnuaa", "AA DX", "aa", "AA DX Contest", "Введите ваш возраст ", "Ввод контр.номера", "both", "1 1 1 0 1 1 1 0 1 1 3", 0, nullptr},
    {"mnuagcw", "AGCW", "agcw", "AGCW Happy New Year Contest", nullptr, nullptr, "none", "1 1 1 1 1 0 0 1 1 1 3", 0, nullptr},
    {"mnuari", "ARI", "ari", "ARI DX Contest", nullptr, nullptr, "clearmwid", "0 1 1 1 1 0 1 1 1 0 3=3", 103, "AG AL AN AO AP AQ AR AT AV BA BG BI BL BN BO BR BS BZ CA CB CE CH CL CN CO CR CS CT CZ EN FE FG FI FO FR GE GO GR IM IS KR LC LE LI LO LT LU MC ME MI MN MO MS MT NA NO NU OR PA PC PD PE PG PI PN PO PR PS PT PV PZ RA RC RE RG RI RM RN RO SA SI SO SP SR SS SV TA TE TN TO TP TR TS TV UD VA VB VC VE VI VR VT VV"},
    {"mnuarrl", "ARRL-10m", "arrl10", "ARRL 10m DX Contest", nullptr, nullptr, "both clearmwid", "0 1 1 1 1 0 1 1 1 0 1", 71, "cleared"},
    {"mnubal", "Baltic", "bal", "Baltic Contest", nullptr, nullptr, "both", "1 1 1 1 1 0 0 1 1 1 2", 0, nullptr},
    {"mnucqm", "CQ - M", "cqm", "CQ - M int. DX Contest", nullptr, nullptr, "both", "0 1 1 1 1 u 0 1 1 1 3", 0, nullptr},
    {"mnucq160", "CQ160m", "cq160", "CQ WW160 m DX Contest ", "Введите страну DXCC (UA) ", "Ввод контр.номера", "both clearmwid", "0 1 1 1 1 1 1 1 1 0 1", 71, "cleared"},
    {"mnucro", "Croatian", "cro", "Croatian DX Contest", nullptr, nullptr, "both", "0 1 1 1 1 0 0 1 1 1 2", 0, nullptr},
    {"mnucqww", "CQ WW", "cqww", "CQ WW DX Contest", "Введите CQ зону  ", "Ввод контр.номера", "both clearmwid", "0 1 0 1 0 1 1 0 1 1 1", 40, "numbered"},
    {"mnuea", "EA DX", "ea", "EA DX Contest", nullptr, nullptr, "both clearmwid", "1 1 1 1 0 0 1 1 1 0 1", 47, "A AB AV AL B BA BI BU C CA CC CO CR CS CU GC GE GR GU H HU J L LE LO LU M MA NA O OR P PM PO S SA SE SS SG T TE TO V VA VI Z ZA"},
    {"mnues", "ES Open", "ES", "ES Open Contest", nullptr, nullptr, "both clearmwid", "1 1 1 0 1 0 0 1 1 1 1", 10, "cleared"},
    {"mnueuhf", "EU HF", "euhf", "EU HF Contest", "Введите год получения лицензии   ", "Ввод контрольного номера ", "both clearmwid", "1 1 1 1 0 1 1 0 1 1 1", 71, "cleared"},
    {"mnufd", "Fiel Day", "fd", "IARU Region 1 Field Day ", nullptr, nullptr, "both", "0 1 1 1 1 0 0 1 1 1 1", 0, nullptr},
    {"mnuha", "HA DX", "HA", "HA DX Contest", nullptr, nullptr, "both", "1 1 1 1 1 0 1 1 1 0 3", 0, nullptr},
    {"mnuhol", "Holyland", "hol", "Holyland DX Contest", nullptr, nullptr, "both", "1 1 1 1 0 0 1 1 1 0 2", 0, nullptr},
    {"mnuhel", "Helvetia", "hel", "Helvetia DX Contest", nullptr, nullptr, "both clearmwid", "1 1 1 1 1 0 1 1 1 0 3", 26, "AG AI AR BE BL BS FR GE GL GR JU LU NE NW OW SG SH SO SZ TG TI UR VD VS ZG ZH"},
    {"mnuiaru", "IARU HF", "iaru", "IARU HF Contest", "Введите ITU зону ", "Ввод контр.номера", "both", "1 0 1 1 1 1 1 1 1 1 1", 0, nullptr},
    {"mnujid", "JID L", "jid", "Japan Int'l DX Contest", "Введите ITU зону ", "Ввод контр.номера", "both clearmwid", "1 1 1 1 0 1 1 0 1 1 2", 47, "numbered"},
    {"mnukcj", "KCJ", "kcj", "Keymen's Club of Japan", "Введите континент ", "Ввод контр.номера", "none", "1 1 1 1 0 1 1 1 0 1 1", 0, nullptr},
    {"mnulz", "LZ DX", "lzd", "LZ DX Contest", "Введите ITU зону ", "Ввод контр.номера", "both clearmwid", "1 0 1 1 1 1 1 0 1 1 3", 75, "numbered"},
    {"mnulzo", "LZ Open", "lzo", "LZ OPEN Contest", nullptr, nullptr, "both", "1 1 1 1 1 0 0 1 1 1 1", 0, nullptr},
    {"mnumarc", "Marconi", "marc", "Marconi Memorial Contest ", nullptr, nullptr, "both", "0 1 1 1 1 0 0 1 1 1 3", 0, nullptr},
    {"mnuok", "OK/OM DX", "ok", "OK/OL/OM DX Contest", nullptr, nullptr, "both clearmwid", "1 1 1 1 0 0 1 1 0 1 2", 87, "APA APB APC APD APE APF APG APH API APJ BBN BBE BKD BKO BKH BME BMB BNY BPZ BPV BPB BRA CBU CCK CJH CPE CPI CPR CST CTA DDO DCH DKV DKL DPM DPJ DPS DRO DSO DTA ECL EDE ECH EJA ELI ELT ELO EMO ETE EUL FHB FHK FCR FJI FNA FPA FRK FSE FSV FTP FUO GBL GBM GBV GBR GHO GJI GKR GPR GTR GUH GVY GZL GZN GZS HBR HFM HJE HKA HNJ HOL HOP HOS HPR HSU HVS"},
    {"mnupacc", "PACC", "pacc", "PACC DX Contest", nullptr, nullptr, "both clearmwid", "1 1 1 1 0 0 1 1 0 1 3", 12, "DR FL FR GD GR LB NB NH OV UT ZH ZL"},
    {"mnuraem", "RAEM", "raem", "RAEM Contest", "Введите коордираты (??N??O) ", "Ввод контр.номера", "both", "1 1 1 1 1 0 1 1 1 0 4", 0, nullptr},
    {"nmuref", "REF", "ref", "REF DX Contest", nullptr, nullptr, "both", "1 1 1 1 0 0 1 1 1 0 1", 0, nullptr},
    {"mnursgb", "RSGB", "rsgb", "RSGB  Contest", nullptr, nullptr, "both", "1 1 1 1 1 0 1 1 1 0 3", 0, nullptr},
    {"mnurus", "RUS DX", "rudx", "RUSSIAN DX Contest", "Введите код области ", "Ввод контр.номера", "none", "0 1 1 1 1 1 1 1 1 0 1", 0, nullptr},
    {"mnusac", "SAC", "sac", "SAC Contest", nullptr, nullptr, "both", "1 1 1 1 1 0 0 1 1 1 3", 0, nullptr},
    {"mnusp", "SP DX", "sp", "SP DX Contest", nullptr, nullptr, "both clearmwid", "1 1 1 1 0 0 1 1 0 1 3", 16, "B C D F G J K L M O P R S U W Z"},
    {"mnutoec", "TOEC", "toec", "TOEC WW Grid Contest ", "Введите ваш QRA локатор (KO95)", "Ввод контр.номера", "both", "1 1 1 1 1 1 1 1 1 0 3", 0, nullptr},
    {"mnutops", "TOPS", "tops", "TOPS Activity Contest", nullptr, nullptr, "both", "1 1 1 0 1 0 1 1 1 0 3", 0, nullptr},
    {"mnuuba", "UBA", "uba", "UBA DX Contest", nullptr, nullptr, "both", "1 1 1 1 1 0 1 1 1 0 3", 0, nullptr},
    {"mnuiota", "IOTA", "iota", "RSGB IOTA Contest", nullptr, nullptr, "both", "1 1 1 1 1 0 1 1 1 0 1", 0, nullptr},
    {"mnuukr", "Ukraina DX", "ukr", "Ukrainian DX Contest", nullptr, nullptr, "both clearmwid", "0 1 1 1 1 0 1 1 1 0 3", 27, "CH CN CR DN DO HA HE HM IF KI KO KR KV LU LV NI OD PO RI SL SU TE VI VO ZA ZN ZP"},
    {"mnuwae", "WAE", "wae", "WAE DX Contest", nullptr, nullptr, "both", "1 1 1 1 1 0 0 1 1 1 3", 0, nullptr},
    {"mnuwag", "WAG", "wag", "WAG DX Contest", nullptr, nullptr, "both clearmwid", "1 1 1 1 1 0 1 1 1 0 3", 26, "A B C D E F G H I J K L M N O P Q R S T U V W X Y Z"},
    {"mnuwpx", "WPX", "wpx", "CQ WW WPX DX Contest", nullptr, nullptr, "both", "1 1 1 0 1 0 0 1 1 1 1", 0, nullptr},
    {"mnuwwg", "WWG", "wwg", "TOEC WW GRID  Contest", "Введите ваши координаты   ", "Ввод QTH-ЛОКАТОРА", "both", "1 1 1 1 1 1 1 1 1 0 3", 0, nullptr},
    {"mnuvkzl", "VK/ZL", "vkzl", "VK/ZL DX Contest", nullptr, nullptr, "both", "1 1 1 0 1 0 0 1 1 1 1", 0, nullptr},
    {"mnuyo", "YO DX", "yo", "YO DX  Contest", "Введите ITU зону ", "Ввод контр.номера", "both", "1 0 1 1 1 1 1 1 1 0 3", 0, nullptr},
    {"mnuyu", "YU DX", "yu", "YU DX Contest", "Введите ITU зону ", "Ввод контр.номера", "both", "1 0 1 1 1 1 1 0 1 1 3", 0, nullptr},
};
// clang-format on

// Captions and visibility: "name+" shown, "name-" hidden, "name=text" caption.
const std::map<QString, QStringList> kSettings = {
    {"cqww", {"lblmult1+", "lblmult1=Zone", "multwid=CQ zone", "multwid+", "cmbwsego+"}},
    {"arrl10", {"lblmult1+", "lblmult1=Zone", "multwid=CQ zone", "multwid+", "cmbwsego+"}},
    {"cq160", {"lblmult1+", "lblmult1=Zone", "multwid=DC", "multwid+", "cmbwsego+"}},
    {"ari",
     {"lblzone=Prov", "DBList1+", "DBGrid1-", "txtmult+", "lbldxcc+", "txtmult2+", "lblmult=DXCC",
      "lblmult1=Prov", "lblmult1+", "multwid=Prov", "multwid+", "cmbwsego+"}},
    {"ea", {"lblzone=Prov", "multwid+", "cmbwsego+"}},
    {"euhf",
     {"txtpoint2-", "txtmult2+", "multwid=Год получения лицензии", "multwid+", "cmbwsego+"}},
    {"chemp",
     {"lblrstr=", "lbldxcc=Зоны", "txtmult2-", "txtpoint2+", "lblzone=Корр", "lblpoint=QSO",
      "lblmult=связь", "lblmult1=Корр."}},
    {"lzo", {"lblrstr=", "lblrsts="}},
    {"cqm", {"lblmult=R 150 "}},
    {"cro", {"lblmult=DXCC"}},
    {"raem", {"txtpoint2+", "txtmult2-"}},
    {"toec", {"txtmult2+", "txtpoint2-"}},
    {"uba", {"txtmult2+", "txtpoint2-"}},
    {"wae", {"lblqtc+"}},
    {"hel", {"multwid+", "cmbwsego+"}},
    {"jid", {"multwid+", "cmbwsego+"}},
    {"lzd", {"multwid+", "cmbwsego+"}},
    {"ok", {"multwid+", "cmbwsego+"}},
    {"pacc", {"multwid+", "cmbwsego+"}},
    {"sp", {"multwid+", "cmbwsego+"}},
    {"ukr", {"multwid+", "cmbwsego+"}},
    {"wag", {"multwid+", "cmbwsego+"}},
};

// Controls a selection may touch; every other one must keep what it had.
const QStringList kWatched = {"lblmult1",  "multwid",  "cmbwsego", "lblzone",  "DBList1",
                              "DBGrid1",   "txtmult",  "lbldxcc",  "txtmult2", "lblmult",
                              "txtpoint2", "lblpoint", "lblqtc",   "lblrstr",  "lblrsts"};

constexpr int kSentinel = 7;

struct SelectionTest : FormFixture {
    void prime(bool visible) {
        // The callsign box's focus refreshes serial, totals and the entry line: take it first.
        form->setFocus("txtcall");
        form->contestcode = "x";
        form->myexch = "old";
        for (int* sw :
             {&form->dxccmult, &form->itufill, &form->cqfill, &form->pfxmult, &form->exchmult,
              &form->fixexch, &form->exchsel1, &form->exchsel2, &form->exchsel3, &form->exchsel4,
              &form->ctype1, &form->ctype2, &form->ctype3, &form->ctype4, &form->mwidlast})
            *sw = kSentinel;
        for (const QString& name : kWatched) {
            form->control(name)->setText("?");
            form->control(name)->setVisible(visible);
        }
        for (Control* box : form->txtMwid) box->setText("#");
        form->TXTRSTS2->setText("serial?");
        form->txtrsts->setText("serial?");
        form->qsoband[0]->setText("total?");
        form->qsotot->setText("total?");
        ui.takeShown();
    }

    void checkSwitches(const Row& r) {
        const QStringList want = QString(r.switches).split(' ');
        ASSERT_EQ(want.size(), 11);
        const int got[] = {form->dxccmult, form->itufill, form->cqfill,   form->pfxmult,
                           form->exchmult, form->fixexch, form->exchsel1, form->exchsel2,
                           form->exchsel3, form->exchsel4};
        for (int i = 0; i < 10; ++i) {
            const int expected = want[i] == "u" ? kSentinel : want[i].toInt();
            EXPECT_EQ(got[i], expected) << "switch column " << i;
        }
        const QStringList cls = want[10].split('=');
        const int which = cls[0].toInt();
        const int value = cls.size() > 1 ? cls[1].toInt() : 1;
        const int types[] = {form->ctype1, form->ctype2, form->ctype3, form->ctype4};
        for (int t = 1; t <= 4; ++t)
            EXPECT_EQ(types[t - 1], t == which ? value : 0) << "ctype" << t;
    }

    void checkSettings(const Row& r, bool primedVisible) {
        QHash<QString, QString> caption;
        QHash<QString, bool> shown;
        for (const QString& s : kSettings.count(r.code) ? kSettings.at(r.code) : QStringList()) {
            const int eq = s.indexOf('=');
            if (eq > 0)
                caption[s.left(eq)] = s.mid(eq + 1);
            else
                shown[s.chopped(1)] = s.endsWith('+');
        }
        const QString code = r.code;
        if (code == "raem") { // the restart sends the serial as the second element
            caption["lblrsts"] = "001";
            caption["lblrstr"] = "";
        }
        // CQ-M and Croatian hide one label of the score panel (one multiplier kind only).
        const QStringList scoreLabels = {"lblmult1", "lblmult", "lblpoint", "lblqso"};
        const bool hidesScoreLabel = code == "cqm" || code == "cro";
        if (hidesScoreLabel && primedVisible) {
            int hidden = 0;
            for (const QString& name : scoreLabels) hidden += !form->control(name)->visible();
            EXPECT_EQ(hidden, 1);
        }
        for (const QString& name : kWatched) {
            Control* c = form->control(name);
            if (hidesScoreLabel && scoreLabels.contains(name)) {
                EXPECT_EQ(c->text(), caption.value(name, "?")) << name.toStdString();
                continue;
            }
            if (code == "chemp" && name == "lblrsts")
                EXPECT_NE(c->text(), "?") << "chemp replaces the sent element";
            else
                EXPECT_EQ(c->text(), caption.value(name, "?")) << name.toStdString();
            EXPECT_EQ(c->visible(), shown.value(name, primedVisible)) << name.toStdString();
        }
    }

    void checkWindow(const Row& r) {
        const QString window = r.window ? r.window : "";
        if (!r.window) {
            EXPECT_EQ(form->mwidlast, kSentinel);
            for (Control* box : form->txtMwid) ASSERT_EQ(box->text(), "#");
            return;
        }
        EXPECT_EQ(form->mwidlast, r.boxes - 1);
        EXPECT_EQ(form->mwidmode, window == "cleared" ? 1 : 0);
        QStringList want;
        if (window == "numbered")
            for (int i = 1; i <= r.boxes; ++i) want << QString("%1").arg(i, 2, 10, QChar('0'));
        else if (window != "cleared")
            want = window.split(' ');
        while (want.size() < r.boxes) want << "";
        for (int i = 0; i < ContestForm::MwidBoxes; ++i)
            EXPECT_EQ(form->txtMwid[i]->text(), i < r.boxes ? want[i] : "#") << "box " << i;
    }

    void checkCalls(const Row& r, const QString& typed) {
        const QString calls = r.calls;
        const bool restart = calls.startsWith("both");
        EXPECT_EQ(form->TXTRSTS2->text(), restart ? "0" : "serial?");
        EXPECT_EQ(form->qsoband[0]->text(), restart ? "0" : "total?");
        EXPECT_EQ(form->qsotot->text(), restart ? "0" : "total?");
        if (!restart) {
            EXPECT_EQ(form->txtrsts->text(), "serial?");
            return;
        }
        const QString code = r.code;
        const QString exch = r.prompt ? typed : "old";
        if (code == "raem" || form->fixexch != 0)
            EXPECT_EQ(form->txtrsts->text(), exch);
        else if (code == "lzo")
            EXPECT_EQ(form->txtrsts->text(), "000");
        else
            EXPECT_EQ(form->txtrsts->text(), "001");
    }
};

} // namespace

TEST_F(SelectionTest, EveryContestSetsItsTables) {
    ASSERT_EQ(std::size(kRows), 43u);
    for (bool visible : {false, true}) {
        for (const Row& r : kRows) {
            SCOPED_TRACE(std::string(r.item) + (visible ? " (shown)" : " (hidden)"));
            prime(visible);
            const QString typed = QString("in-") + r.code;
            if (r.prompt) ui.queueInput(typed);
            ASSERT_TRUE(form->call(QString(r.item) + "_Click", {}));

            EXPECT_EQ(form->contestcode, r.code);
            EXPECT_EQ(text("LBLCONTEST"), QString(r.title));
            const QStringList shown = ui.takeShown();
            if (r.prompt) {
                ASSERT_EQ(shown.size(), 1);
                EXPECT_EQ(shown[0], QString("inputbox\t%1\t%2").arg(r.prompt, r.promptTitle));
                EXPECT_EQ(form->myexch, typed);
            } else {
                EXPECT_TRUE(shown.isEmpty());
                EXPECT_EQ(form->myexch, "old");
            }
            checkSwitches(r);
            checkSettings(r, visible);
            checkWindow(r);
            checkCalls(r, typed);
            EXPECT_EQ(form->focusName(), "cmbband(0)");
        }
    }
}

TEST_F(SelectionTest, MenuItemsInMenuOrderUnderTheirMenus) {
    int i = 0;
    for (const Row& r : kRows) {
        Control* m = form->control(r.item);
        ASSERT_NE(m, nullptr) << r.item;
        EXPECT_EQ(m->kind(), Control::Kind::Menu);
        EXPECT_EQ(m->text(), QString(r.caption));
        EXPECT_EQ(m->extra("parent"), i < 33 ? "cmbadd1" : "mnudal") << r.item;
        ASSERT_LT(i, int(form->contestMenu.size()));
        EXPECT_EQ(form->contestMenu[i]->name(), r.item);
        ++i;
    }
    EXPECT_EQ(form->contestMenu.size(), 43u);
    EXPECT_EQ(form->control("mnutops")->extra("parent"), "cmbadd1");
    EXPECT_EQ(form->control("mnuuba")->extra("parent"), "mnudal");
    EXPECT_EQ(form->mnudal->extra("parent"), "cmbadd1");
    EXPECT_TRUE(form->hasHandler("nmuref_Click"));
    EXPECT_FALSE(form->hasHandler("mnuref_Click"));
}

TEST_F(SelectionTest, CancelStoresAnEmptyExchange) {
    ui.queueInput(std::nullopt);
    form->call("mnucqww_Click", {});
    EXPECT_EQ(form->myexch, "");
    EXPECT_EQ(text("txtrsts"), ""); // CQ WW sends the fixed zone
}

TEST_F(SelectionTest, AWindowlessContestLeavesTheWindowOfThePreviousOne) {
    form->call("mnusp_Click", {});
    form->call("mnuwpx_Click", {});
    EXPECT_EQ(form->mwidlast, 15);
    EXPECT_EQ(text("txtMwid(15)"), "Z");
    EXPECT_TRUE(form->multwid->visible());
}

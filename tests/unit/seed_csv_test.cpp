// Checks the seed tables compiled in as resources: shape, key uniqueness and the rows the
// country and district logic depends on.
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QString>
#include <QStringList>
#include <gtest/gtest.h>

// The resources live in a static library; make sure its registration is linked in.
static void initSeedResources() {
    Q_INIT_RESOURCE(seed);
}

namespace {

using Row = QStringList;

// Minimal RFC 4180 reader: quoted fields may hold commas, line breaks and doubled quotes.
QList<Row> parseCsv(const QString& text) {
    QList<Row> rows;
    Row row;
    QString field;
    bool quoted = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (quoted) {
            if (c == '"' && i + 1 < text.size() && text[i + 1] == '"') {
                field += '"';
                ++i;
            } else if (c == '"') {
                quoted = false;
            } else {
                field += c;
            }
        } else if (c == '"') {
            quoted = true;
        } else if (c == ',') {
            row << field;
            field.clear();
        } else if (c == '\n') {
            row << field;
            rows << row;
            row.clear();
            field.clear();
        } else {
            field += c;
        }
    }
    EXPECT_FALSE(quoted) << "unterminated quoted field";
    if (!field.isEmpty() || !row.isEmpty()) rows << (row << field);
    return rows;
}

// Reads a seed table, checks its header and column count, and returns the rows keyed by the
// first column (reporting duplicate keys).
QHash<QString, Row> loadTable(const QString& name, const QStringList& header) {
    initSeedResources();
    QFile f(":/seed/" + name);
    EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << name.toStdString();
    const QList<Row> rows = parseCsv(QString::fromUtf8(f.readAll()));
    QHash<QString, Row> byKey;
    EXPECT_FALSE(rows.isEmpty());
    if (rows.isEmpty()) return byKey;
    EXPECT_EQ(rows.first(), header);
    for (qsizetype i = 1; i < rows.size(); ++i) {
        const Row& r = rows[i];
        EXPECT_EQ(r.size(), header.size()) << name.toStdString() << " line " << i + 1;
        EXPECT_FALSE(r.value(0).isEmpty()) << name.toStdString() << " line " << i + 1;
        EXPECT_FALSE(byKey.contains(r.value(0))) << "duplicate key " << r.value(0).toStdString();
        byKey.insert(r.value(0), r);
    }
    return byKey;
}

bool isPlainZone(const QString& z) {
    static const QRegularExpression re("^[1-9][0-9]?$");
    return re.match(z).hasMatch();
}

// The longest beginning of the call that is a key, as the country lookup walks it.
Row longestMatch(const QHash<QString, Row>& table, const QString& call) {
    Row found;
    for (qsizetype n = 1; n <= call.size(); ++n)
        if (table.contains(call.left(n))) found = table.value(call.left(n));
    return found;
}

TEST(SeedCsv, DxccTableHoldsTheEntitiesTheLogicNeeds) {
    const auto t = loadTable("tbldxcc.csv", {"prf", "PREF", "strana", "kont", "iaru", "cq"});
    ASSERT_GT(t.size(), 1000);
    EXPECT_EQ(t.value("UA"), Row({"UA", "UA", "RUSSIAN", "EU", "29", "16"}));
    EXPECT_EQ(t.value("UA9").mid(1, 3), Row({"UA9", "RUSSIAN", "AS"}));
    EXPECT_EQ(t.value("UA2").mid(1, 2), Row({"UA2", "RUSSIAN"}));
    EXPECT_EQ(t.value("DL").value(1), "DL");
    EXPECT_EQ(t.value("JA").mid(1, 3), Row({"JA", "JAPAN", "AS"}));
    EXPECT_EQ(t.value("IT9").value(1), "IT9") << "WAE-only entities keep their prefix, no '*'";

    EXPECT_EQ(longestMatch(t, "UA3QQQ").value(1), "UA");
    EXPECT_EQ(longestMatch(t, "RA9QQQ").mid(1, 3), Row({"UA9", "RUSSIAN", "AS"}));
    EXPECT_EQ(longestMatch(t, "R2FAA").value(1), "UA2");

    for (const Row& r : t) {
        EXPECT_LE(r[2].size(), 14) << r[0].toStdString();
        EXPECT_FALSE(r[1].startsWith('*')) << r[0].toStdString();
        EXPECT_TRUE(isPlainZone(r[4]) && isPlainZone(r[5])) << r[0].toStdString();
    }
}

TEST(SeedCsv, DistrictTableMapsCallAreasToOblastCodes) {
    const auto t = loadTable("tblrus.csv", {"pref", "kodsrr", "gorod", "kodcrk", "cq", "itu"});
    EXPECT_EQ(t.value("3A").value(1), "MA");
    EXPECT_EQ(t.value("3D").value(1), "MO");
    EXPECT_EQ(t.value("1A").value(1), "SP");
    EXPECT_EQ(t.value("9X").value(1), "KO");
    EXPECT_EQ(t.value("2F").value(1), "KA");
    EXPECT_EQ(t.value("3A").mid(4), Row({"16", "29"}));
    EXPECT_EQ(t.value("0Z").mid(4), Row({"19", "35"}));

    static const QRegularExpression key("^[0-9][A-Z]$"), code("^[A-Z]{2}$");
    for (const Row& r : t) {
        EXPECT_TRUE(key.match(r[0]).hasMatch()) << r[0].toStdString();
        EXPECT_TRUE(code.match(r[1]).hasMatch()) << r[0].toStdString();
        EXPECT_TRUE(isPlainZone(r[4]) && isPlainZone(r[5])) << r[0].toStdString();
    }
}

TEST(SeedCsv, HelpTableHasOneRulesRowPerContest) {
    const auto t =
        loadTable("tblhelp.csv", {"CONTEST", "TXTHELP", "rezgod", "rezmod", "rezul", "rezfile"});
    const QStringList codes =
        QString("chemp aa agcw ari arrl10 bal cqm cq160 cro cqww ea ES euhf fd HA hol hel iaru "
                "jid kcj lzd lzo marc ok pacc raem ref rsgb rudx sac sp toec tops uba iota ukr "
                "wae wag wpx wwg vkzl yo yu")
            .split(' ');
    ASSERT_EQ(codes.size(), 43);
    EXPECT_EQ(t.size(), 43);
    for (const QString& c : codes) {
        const Row r = t.value(c);
        ASSERT_EQ(r.size(), 6) << "no rules row for " << c.toStdString();
        const qsizetype lines = r[1].count('\n') + 1;
        EXPECT_TRUE(lines >= 3 && lines <= 8) << c.toStdString();
        EXPECT_EQ(r.mid(2), Row({"", "", "", ""})) << c.toStdString();
    }
}

} // namespace

#include "data/oemfile.h"
#include "testfiles.h"
#include "text/codepage.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace hfc;
using hfc::test::readFile;
using hfc::test::writeFile;

TEST(Codepage, Win1251AndCp866Bytes) {
    // "АЯаяЁё№р" in the published tables of both code pages.
    const QString text = QString::fromUtf8("АЯаяЁё№р");
    const QByteArray win = toWin1251(text);
    EXPECT_EQ(win, QByteArray("\xC0\xDF\xE0\xFF\xA8\xB8\xB9\xF0"));
    EXPECT_EQ(fromWin1251(win), text);
    EXPECT_EQ(win1251ToCp866(win), QByteArray("\x80\x9F\xA0\xEF\xF0\xF1\xFC\xE0"));
    // "«" and the unused byte 0x98 have no place in 866; ASCII stays as it is.
    EXPECT_EQ(win1251ToCp866(QByteArray("a\xAB\x98z")), QByteArray("a??z"));
    EXPECT_EQ(toWin1251(QString::fromUtf8("x\x1A中")), QByteArray("x\x1A?"));
}

TEST(Codepage, FileConvertedInPlaceWithCrLf) {
    QTemporaryDir dir;
    const QString path = dir.filePath("report.txt");
    // A last line without line end, LF-only and CR LF lines, an empty line.
    writeFile(path, QByteArray("\xCF\xF0\xE8\r\n\nab\n\xEC\xE8\xF0"));
    ASSERT_TRUE(ansiToOemFile(path));
    EXPECT_EQ(readFile(path), QByteArray("\x8F\xE0\xA8\r\n\r\nab\r\n\xAC\xA8\xE0\r\n"));
    EXPECT_FALSE(QFile::exists(dir.filePath("report1.txt")));
    // An empty file stays empty.
    writeFile(path, "");
    ASSERT_TRUE(ansiToOemFile(path));
    EXPECT_EQ(readFile(path), QByteArray());
}

TEST(Codepage, CopyNameWithoutExtensionAndFailures) {
    QTemporaryDir dir;
    const QString path = dir.filePath("REPORT");
    writeFile(path, "x\r\n");
    writeFile(dir.filePath("RE1PORT"), "stale copy"); // the copy's name, replaced then removed
    ASSERT_TRUE(ansiToOemFile(path));
    EXPECT_EQ(readFile(path), QByteArray("x\r\n"));
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList{"REPORT"});

    EXPECT_FALSE(ansiToOemFile(dir.filePath("absent.txt")));
    EXPECT_FALSE(ansiToOemFile(""));
}

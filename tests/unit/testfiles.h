#pragma once
// Reading and writing whole files in tests, the files under tests/data, and what a text
// must hold.
#include <QByteArray>
#include <QFile>
#include <QString>
#include <QStringList>
#include <gtest/gtest.h>

namespace hfc::test {

// The bytes of a file; "<missing>" when it cannot be read, so a comparison shows why it failed.
inline QByteArray readFile(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<missing>");
}

inline void writeFile(const QString& path, const QByteArray& bytes) {
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(bytes);
}

// Whether text holds every one of parts ("^…": starts with it); the text is shown when not.
inline ::testing::AssertionResult holds(const QString& text, const QStringList& parts) {
    for (const QString& p : parts)
        if (p.startsWith('^') ? !text.startsWith(p.mid(1)) : !text.contains(p))
            return ::testing::AssertionFailure()
                   << "no \"" << p.toStdString() << "\" in: " << text.toStdString();
    return ::testing::AssertionSuccess();
}

// A file of tests/data/<folder>.
inline QByteArray testDataFile(const char* folder, const char* name) {
    QFile f(QStringLiteral(HFC_TEST_DATA "/") + QLatin1String(folder) + QLatin1Char('/') +
            QLatin1String(name));
    EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << name;
    return f.readAll();
}

} // namespace hfc::test

#pragma once
// Reading and writing whole files in tests, and the files under tests/data.
#include <QByteArray>
#include <QFile>
#include <QString>
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

// A file of tests/data/<folder>.
inline QByteArray testDataFile(const char* folder, const char* name) {
    QFile f(QStringLiteral(HFC_TEST_DATA "/") + QLatin1String(folder) + QLatin1Char('/') +
            QLatin1String(name));
    EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << name;
    return f.readAll();
}

} // namespace hfc::test

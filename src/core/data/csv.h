#pragma once
#include <QString>
#include <QStringList>
#include <vector>

namespace hfc {
// Parses RFC 4180 CSV text (quoted fields may hold commas, quotes and line breaks).
std::vector<QStringList> parseCsv(const QString& text);
} // namespace hfc

#pragma once
// The DOS copy of a report: a Windows-1251 file rewritten in code page 866, safely in place.
#include <QString>

namespace hfc {

// Converts a Windows-1251 text file to code page 866 in place, through a working copy named with
// "1" before the last four characters of the path that takes the file's place when complete.
// Lines end in CR LF afterwards. Returns false on any failure, with error (if given) naming the
// file and the cause; the file is then left as it was.
bool ansiToOemFile(const QString& path, QString* error = nullptr);

} // namespace hfc

#pragma once
// Files the program writes (reports, exports, backups, converted text) go to disk whole or not
// at all: the bytes are written under a working name beside the target, flushed to the disk,
// and renamed over the target only when all of them are there. A failure leaves the earlier
// file as it was, byte for byte, and says why in Russian.
#include <QByteArray>
#include <QString>

namespace hfc {

// Why a file operation failed, in Russian, from the system's error number: no space, no rights,
// a read-only disk, a missing folder, else the system's own words.
QString fileErrorReason(int err);

// "Не удалось записать файл: PATH (REASON)" for a write that failed with err.
QString fileWriteError(const QString& path, int err);

// Writes bytes to path through a working name (path + ".part" unless one is given) and a rename.
// On failure returns false, removes the working file and sets error (if given) to
// fileWriteError's text.
bool writeFileWhole(const QString& path, const QByteArray& bytes, QString* error = nullptr,
                    const QString& workingName = {});

// Copies the file from to the new file to (which must not be in the way) the same way: to a
// working name, flushed, renamed. False with error set on failure; nothing is left behind.
bool copyFileWhole(const QString& from, const QString& to, QString* error = nullptr);

// Flushes a finished file (and the folder that names it) to the disk. False with errno set.
bool syncFile(const QString& path);
bool syncFolderOf(const QString& path);

} // namespace hfc

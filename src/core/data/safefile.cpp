#include "data/safefile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace hfc {

namespace {

QByteArray nativePath(const QString& path) {
    return QFile::encodeName(path);
}

bool writeAllTo(int fd, const char* data, qint64 size) {
    while (size > 0) {
        const ssize_t n = ::write(fd, data, size_t(size));
        if (n < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        data += n;
        size -= n;
    }
    return true;
}

// Runs fill on a new working file beside path and renames it over path once it is complete and
// on the disk. fill gets the open descriptor and returns false with errno set on failure.
template <typename Fill>
bool writeThroughWorkingName(const QString& path, const QString& workingName, QString* error,
                             Fill fill) {
    const QString work = workingName.isEmpty() ? path + QStringLiteral(".part") : workingName;
    const QByteArray w = nativePath(work);
    int err = 0;
    // A working file left by a run cut short is ours to replace.
    ::unlink(w.constData());
    const int fd = ::open(w.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
    if (fd < 0) {
        err = errno;
    } else {
        // The write, the flush and the close each report a full disk on some file system;
        // every one is checked, as a report said written must be there whole.
        if (!fill(fd) || ::fsync(fd) != 0) err = errno ? errno : EIO;
        if (::close(fd) != 0 && err == 0) err = errno;
        if (err == 0 && std::rename(w.constData(), nativePath(path).constData()) != 0) err = errno;
        if (err != 0) ::unlink(w.constData());
    }
    if (err != 0) {
        if (error) *error = fileWriteError(path, err);
        return false;
    }
    syncFolderOf(path);
    return true;
}

} // namespace

QString fileErrorReason(int err) {
    switch (err) {
    case ENOSPC:
    case EDQUOT:
        return QStringLiteral("на диске нет места");
    case EACCES:
    case EPERM:
        return QStringLiteral("нет прав на запись");
    case EROFS:
        return QStringLiteral("диск доступен только для чтения");
    case ENOENT:
    case ENOTDIR:
        return QStringLiteral("папки нет");
    case EISDIR:
        return QStringLiteral("на месте файла папка");
    case EIO:
        return QStringLiteral("ошибка записи на диск");
    default:
        return QString::fromLocal8Bit(std::strerror(err));
    }
}

QString fileWriteError(const QString& path, int err) {
    return QStringLiteral("Не удалось записать файл: %1 (%2)")
        .arg(QDir::toNativeSeparators(path), fileErrorReason(err));
}

bool writeFileWhole(const QString& path, const QByteArray& bytes, QString* error,
                    const QString& workingName) {
    return writeThroughWorkingName(path, workingName, error, [&](int fd) {
        return writeAllTo(fd, bytes.constData(), bytes.size());
    });
}

bool copyFileWhole(const QString& from, const QString& to, QString* error) {
    const int in = ::open(nativePath(from).constData(), O_RDONLY | O_CLOEXEC);
    if (in < 0) {
        if (error)
            *error = QStringLiteral("Не удалось прочитать файл «%1»: %2.")
                         .arg(QDir::toNativeSeparators(from), fileErrorReason(errno));
        return false;
    }
    bool readFailed = false;
    const bool ok = writeThroughWorkingName(to, {}, error, [&](int fd) {
        char buf[1 << 16];
        for (;;) {
            const ssize_t n = ::read(in, buf, sizeof buf);
            if (n == 0) return true;
            if (n < 0) {
                if (errno == EINTR) continue;
                readFailed = true;
                return false;
            }
            if (!writeAllTo(fd, buf, n)) return false;
        }
    });
    ::close(in);
    if (!ok && readFailed && error)
        *error =
            QStringLiteral("Не удалось прочитать файл «%1».").arg(QDir::toNativeSeparators(from));
    return ok;
}

bool syncFile(const QString& path) {
    const int fd = ::open(nativePath(path).constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return false;
    const bool ok = ::fsync(fd) == 0;
    const int err = errno;
    ::close(fd);
    errno = err;
    return ok;
}

bool syncFolderOf(const QString& path) {
    return syncFile(QFileInfo(path).absolutePath());
}

} // namespace hfc

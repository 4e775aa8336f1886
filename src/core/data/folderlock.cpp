#include "data/folderlock.h"

#include "data/safefile.h"

#include <QDir>
#include <QFile>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace hfc {

bool FolderLock::take(const QString& folder, QString& error) {
    release();
    const int fd =
        ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) {
        error = QStringLiteral("Не удалось занять папку данных «%1»: %2.\nПрограмма не запущена.")
                    .arg(QDir::toNativeSeparators(folder), fileErrorReason(errno));
        return false;
    }
    // flock belongs to this open folder: a second open, in this process or another, is refused.
    if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
        const int err = errno;
        ::close(fd);
        error = err == EWOULDBLOCK
                    ? QStringLiteral("Папка данных «%1» уже используется другой запущенной "
                                     "программой hfcontest.\nЗакройте её или выберите другую "
                                     "папку; программа не запущена.")
                          .arg(QDir::toNativeSeparators(folder))
                    : QStringLiteral("Не удалось занять папку данных «%1»: %2.\nПрограмма не "
                                     "запущена.")
                          .arg(QDir::toNativeSeparators(folder), fileErrorReason(err));
        return false;
    }
    fd_ = fd;
    return true;
}

void FolderLock::release() {
    if (fd_ >= 0) ::close(fd_); // closing the file drops the lock
    fd_ = -1;
}

} // namespace hfc

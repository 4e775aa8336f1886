#pragma once
// One program per data folder: two loggers on one log would hand out the same serial numbers.
// The lock is the kernel's lock on the open folder itself, so a program that crashes or is
// killed cannot leave it held, and no lock file is left in the folder.
#include <QString>

namespace hfc {

class FolderLock {
  public:
    FolderLock() = default;
    ~FolderLock() { release(); }
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    // Takes the lock of folder. False with error set (in Russian, naming the folder) when
    // another program holds it or it cannot be taken.
    bool take(const QString& folder, QString& error);
    void release();
    bool held() const { return fd_ >= 0; }

  private:
    int fd_ = -1;
};

} // namespace hfc

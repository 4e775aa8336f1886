#pragma once
#include <QDateTime>

namespace hfc {

// Local and UTC time for the window: the system clock in the program, a fixed clock in scripts.
class Clock {
  public:
    virtual ~Clock() = default;
    virtual QDateTime localNow() const = 0;
    virtual QDateTime utcNow() const = 0;
};

class SystemClock : public Clock {
  public:
    QDateTime localNow() const override { return QDateTime::currentDateTime(); }
    QDateTime utcNow() const override { return QDateTime::currentDateTimeUtc(); }
};

class FixedClock : public Clock {
  public:
    // Both times are kept as written (no zone arithmetic), so a script states exactly what the
    // operator's clocks show.
    void set(const QDateTime& local, const QDateTime& utc) {
        local_ = local;
        utc_ = utc;
    }
    void advance(qint64 seconds) {
        local_ = local_.addSecs(seconds);
        utc_ = utc_.addSecs(seconds);
    }
    QDateTime localNow() const override { return local_; }
    QDateTime utcNow() const override { return utc_; }

  private:
    QDateTime local_{QDate(2000, 1, 1), QTime(0, 0), Qt::UTC};
    QDateTime utc_{QDate(2000, 1, 1), QTime(0, 0), Qt::UTC};
};

} // namespace hfc

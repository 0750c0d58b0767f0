#pragma once

#include <QDateTime>

class Clock {
  public:
    virtual ~Clock() = default;
    virtual QDateTime Now() const = 0;
};

/// The time of this machine.
class SystemClock : public Clock {
  public:
    QDateTime Now() const override;
};

/// A clock that stands still.
class FixedClock : public Clock {
  public:
    explicit FixedClock(const QDateTime& now) : now_(now) {}
    QDateTime Now() const override { return now_; }

  private:
    QDateTime now_;
};

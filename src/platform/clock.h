// Where today and now come from. Rules take a Clock; nothing else asks the machine for the time.
#pragma once

#include <QDateTime>

namespace vandrel {

class Clock {
  public:
    virtual ~Clock() = default;
    virtual QDateTime now() const = 0;
    QDate today() const { return now().date(); }
};

class SystemClock : public Clock {
  public:
    QDateTime now() const override { return QDateTime::currentDateTime(); }
};

// Stands still at the moment it was given; for the demonstration and the tests.
class FixedClock : public Clock {
  public:
    explicit FixedClock(const QDateTime& moment) : m_moment(moment) {}
    QDateTime now() const override { return m_moment; }
    void set(const QDateTime& moment) { m_moment = moment; }

  private:
    QDateTime m_moment;
};

} // namespace vandrel

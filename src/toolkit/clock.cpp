#include "toolkit/clock.h"

namespace toolkit {

Timer::Timer(Clock& clock, std::chrono::milliseconds period, QObject* parent) : QTimer(parent), clock_(clock)
{
    setInterval(period);
    setTimerType(Qt::PreciseTimer);
    connect(this, &QTimer::timeout, this, &Timer::timedOut);
}

Timer::~Timer()
{
    clock_.stop(*this);
}

void Timer::setEnabled(bool enabled)
{
    if (enabled == enabled_)
        return;
    enabled_ = enabled;
    putOff_ = false;
    if (enabled)
        clock_.start(*this);
    else
        clock_.stop(*this);
}

void Timer::hold()
{
    held_ = true;
}

void Timer::release()
{
    held_ = false;
    if (!putOff_)
        return;
    auto deliver = [this] {
        if (putOff_ && !held_)
            timedOut();
    };
    QMetaObject::invokeMethod(this, deliver, Qt::QueuedConnection);
}

void Timer::timedOut()
{
    putOff_ = held_;
    if (held_ || !enabled_)
        return;
    if (isSingleShot())
        enabled_ = false;
    if (tick_)
        tick_();
}

} // namespace toolkit

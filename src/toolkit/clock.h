#pragma once

#include <QTimer>

#include <chrono>
#include <functional>

namespace toolkit {

/// Where timers take their time from: the system's clock in the program, a stepped one in tests.
class Clock
{
public:
    virtual ~Clock() = default;

    /// Milliseconds on a clock that never runs backwards; only differences mean anything.
    [[nodiscard]] virtual std::chrono::milliseconds now() const = 0;

    /// Makes `timer` emit timeout() once per interval from now on (once only if it is single-shot).
    virtual void start(QTimer& timer) = 0;
    virtual void stop(QTimer& timer) = 0;

    /// Lets `pause` pass while the window system is served: windows are painted and moved, but no key,
    /// click or close request is delivered. Timers tick; those of a form that must not are held by it.
    virtual void wait(std::chrono::milliseconds pause) = 0;
};

/// A timer as the screens know it: it is enabled or not, and enabling it while it runs does not restart it.
class Timer : public QTimer
{
public:
    Timer(Clock& clock, std::chrono::milliseconds period, QObject* parent = nullptr);
    ~Timer() override;

    void setEnabled(bool enabled);
    [[nodiscard]] bool isEnabled() const { return enabled_; }

    /// What a tick does; replaces what was set before.
    void onTick(std::function<void()> handler) { tick_ = std::move(handler); }

    /// While held, a tick is put off; one put-off tick (never more) is delivered after the release,
    /// once control is back in the event loop, if the timer is still enabled then.
    void hold();
    void release();

private:
    void timedOut();

    Clock& clock_;
    std::function<void()> tick_;
    bool enabled_ = false;
    bool held_ = false;
    bool putOff_ = false;
};

} // namespace toolkit

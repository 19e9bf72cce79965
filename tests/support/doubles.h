#pragma once

#include "narrator/character.h"
#include "toolkit/services.h"

#include <QStringList>

#include <deque>
#include <functional>
#include <map>

namespace support {

/// Has one function answer all boxes.
class AnsweredDialogs final : public toolkit::Dialogs
{
public:
    struct Box
    {
        enum class Kind { Notice, Confirm, Input };
        Kind kind;
        QString title, text;
        Icon icon = Icon::None;
    };
    /// The input, or anything but "" for Yes.
    std::function<QString(const Box& box)> answer;

    void notice(QWidget*, const QString& title, const QString& text, Icon icon) override
    {
        answer({Box::Kind::Notice, title, text, icon});
    }
    [[nodiscard]] bool confirm(QWidget*, const QString& title, const QString& text) override
    {
        return !answer({Box::Kind::Confirm, title, text}).isEmpty();
    }
    [[nodiscard]] QString input(QWidget*, const QString& title, const QString& prompt,
                                const QString&) override
    {
        return answer({Box::Kind::Input, title, prompt});
    }
};

/// Time that passes only in advance() and wait().
class SteppedClock final : public toolkit::Clock
{
public:
    [[nodiscard]] std::chrono::milliseconds now() const override { return now_; }
    void start(QTimer& timer) override;
    void stop(QTimer& timer) override { due_.erase(&timer); }
    void wait(std::chrono::milliseconds pause) override { advance(pause); }

    /// Ticks whatever falls due on the way, in order.
    void advance(std::chrono::milliseconds span);

private:
    std::chrono::milliseconds now_{0};
    std::map<QTimer*, std::chrono::milliseconds> due_;
};

/// Gives the numbers of a list, then goes round 0, 0.25, 0.5, 0.75 and almost 1.
class ScriptedRandom final : public toolkit::Random
{
public:
    void reseed() override {}
    [[nodiscard]] float next() override;

    std::deque<float> numbers;

private:
    std::size_t drawn_ = 0;
};

class RecordingBrowser final : public toolkit::Browser
{
public:
    void navigate(const QString& address, QObject&, std::function<void()> failed) override
    {
        visited << address;
        if (!works)
            failed();
    }
    QStringList visited;
    bool works = true;
};

class CountingBeeper final : public toolkit::Beeper
{
public:
    void beep() override { ++beeps; }
    int beeps = 0;
};

/// Writes down what the game asks of its host, one line a request.
class RecordingHost final : public narrator::Characters, public narrator::Character
{
public:
    explicit RecordingHost(QStringList& log, bool missing) : log_(log), missing_(missing) {}

    void Load(const QString& id, const QString& path) override;
    narrator::Character& Item(const QString&) override { return *this; }
    void Show() override { log_ << "Show"; }
    void Stop() override { log_ << "Stop"; }
    void Play(const QString& animation) override { log_ << "Play " + animation; }
    void Speak(const QString& text) override { log_ << "Speak " + text; }

private:
    QStringList& log_;
    bool missing_;
};

} // namespace support

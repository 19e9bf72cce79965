#pragma once

#include "toolkit/services.h"

#include <random>

namespace toolkit {

// What the running program hands to its screens, each the real one of its kind.

class DesktopDialogs final : public Dialogs
{
public:
    void notice(QWidget* owner, const QString& title, const QString& text, Icon icon) override;
    [[nodiscard]] bool confirm(QWidget* owner, const QString& title, const QString& text) override;
    [[nodiscard]] QString input(QWidget* owner, const QString& title, const QString& prompt,
                                const QString& initial) override;
};

class DesktopBrowser final : public Browser
{
public:
    void navigate(const QString& address, QObject& context, std::function<void()> failed) override;
};

class DesktopBeeper final : public Beeper
{
public:
    void beep() override;
};

class ClockSeededRandom final : public Random
{
public:
    ClockSeededRandom();
    void reseed() override;
    [[nodiscard]] float next() override;

private:
    std::mt19937 engine_;
};

class SystemClock final : public Clock
{
public:
    [[nodiscard]] std::chrono::milliseconds now() const override;
    void start(QTimer& timer) override;
    void stop(QTimer& timer) override;
    void wait(std::chrono::milliseconds pause) override;
};

} // namespace toolkit

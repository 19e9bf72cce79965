#pragma once

#include "toolkit/clock.h"
#include "toolkit/random.h"

#include <QString>

#include <functional>

class QObject;
class QWidget;

namespace toolkit {

class Screens;

/// The modal boxes of the screens. Each call returns when its box has been answered; timers go on meanwhile.
class Dialogs
{
public:
    enum class Icon { None, Information, Exclamation };

    virtual ~Dialogs() = default;

    /// A box with an OK button.
    virtual void notice(QWidget* owner, const QString& title, const QString& text, Icon icon) = 0;
    /// A box with Yes and No; true for Yes.
    [[nodiscard]] virtual bool confirm(QWidget* owner, const QString& title, const QString& text) = 0;
    /// Asks for one line of text; empty when the box was cancelled.
    [[nodiscard]] virtual QString input(QWidget* owner, const QString& title, const QString& prompt,
                                        const QString& initial) = 0;
};

/// Opens addresses outside the program.
class Browser
{
public:
    virtual ~Browser() = default;

    /// Hands an address ("mailto:...", or a web address as people write it) to the desktop and does not wait.
    /// Where nothing opens it, `failed` is called some moments later, unless `context` has gone by then.
    virtual void navigate(const QString& address, QObject& context, std::function<void()> failed) = 0;
};

class Beeper
{
public:
    virtual ~Beeper() = default;
    virtual void beep() = 0;
};

/// What a screen is handed to reach the world outside it.
struct Services
{
    Screens& screens;
    Dialogs& dialogs;
    Random& random;
    Browser& browser;
    Beeper& beeper;
    Clock& clock;
};

} // namespace toolkit

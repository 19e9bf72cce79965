#pragma once

#include "support/doubles.h"
#include "toolkit/screens.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace support {

/// A stand to put screens on: the services of a screen with nothing real behind them.
class Stand
{
public:
    Stand();
    ~Stand();
    Stand(const Stand&) = delete;
    Stand& operator=(const Stand&) = delete;

    [[nodiscard]] toolkit::Form& form(const QString& name) const;
    template <typename Control>
    [[nodiscard]] Control& control(const QString& screen, const QString& name) const;
    [[nodiscard]] QString text(const QString& screen, const QString& name) const;
    void click(const QString& screen, const QString& name) const;
    /// The name of the control that has the focus of its screen, or "".
    [[nodiscard]] std::string focused(const QString& screen) const;
    /// The names of the screens that are open, in alphabetical order.
    [[nodiscard]] std::string open() const;
    /// What was asked of the host since the last call, one request a line.
    std::string hostLog();

    ScriptedDialogs dialogs;
    ScriptedRandom random;
    RecordingBrowser browser;
    CountingBeeper beeper;
    SteppedClock clock;
    toolkit::Screens screens; ///< after all that its forms use
    QStringList hostRequests;
    bool ended = false;
    toolkit::Services services{screens, dialogs, random, browser, beeper, clock};
};

template <typename Control>
Control& Stand::control(const QString& screen, const QString& name) const
{
    for (QObject* child : form(screen).findChildren<QObject*>(name))
        if (auto* found = dynamic_cast<Control*>(child))
            return *found;
    throw std::out_of_range("no such control: " + name.toStdString());
}

} // namespace support

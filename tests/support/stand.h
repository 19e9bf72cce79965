#pragma once

#include "support/bank.h"
#include "support/doubles.h"
#include "toolkit/screens.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace support {

/// A stand to put screens on: a bank, and the services of a screen with nothing real behind them. A box that
/// nobody has looked at fails the test, and so does a question that was not asked.
class Stand
{
public:
    Stand();
    virtual ~Stand();
    Stand(const Stand&) = delete;
    Stand& operator=(const Stand&) = delete;

    template <typename Screen>
    void add(const QString& name, const toolkit::Screens::Ties& ties = {});
    /// Screens with nothing on them.
    void addPlain(const QStringList& names);

    [[nodiscard]] toolkit::Form& form(const QString& name) const;
    template <typename Control>
    [[nodiscard]] Control& control(const QString& screen, const QString& name) const;
    /// What these controls show, with bars between them; "focus" is the name of what has the focus,
    /// "announcement" what screen readers were told last.
    [[nodiscard]] std::string shown(const QString& screen, const QString& names) const;
    [[nodiscard]] std::string focused(const QString& screen) const;
    /// The names of the screens that are open, in alphabetical order.
    [[nodiscard]] std::string open() const;

    /// Does `steps`, separated by "; ": "show screen", "close screen", "250ms" lets that time pass, "settle"
    /// does what is posted, "!..." is done to the bank behind the back of the screens; and on a screen "name"
    /// clicks a control, "name:yn" with answers for the questions to come (":yn" alone too), "name=text"
    /// types over what a box holds, and "name#2" chooses the third entry of a list.
    void run(const QString& steps, const QString& screen = {});
    /// What came of such steps.
    std::string after(const QString& steps, const QString& screen = {})
    {
        run(steps, screen);
        return told();
    }
    /// What came of it since the last call, separated by "; ": what was asked of the host, boxes as "Title:
    /// text" with a sign for the icon, and "ended" of the program. The name that is asked for is Asha.
    std::string told();

    Bank bank;
    QStringList log;
    AnsweredDialogs dialogs;
    ScriptedRandom random;
    RecordingBrowser browser;
    CountingBeeper beeper;
    SteppedClock clock;
    toolkit::Screens screens;        ///< after all that its forms use
    std::string answers;             ///< 'y' or 'n' for each question to come
    std::function<void()> meanwhile; ///< runs while the next box is open
    QString usual;                   ///< the screen that is meant where none is named
    bool hostMissing = false;
    toolkit::Services services{screens, dialogs, random, browser, beeper, clock};
    narrator::CharactersFactory makeHost = [this](QWidget&) {
        return std::make_unique<RecordingHost>(log, hostMissing);
    };

protected:
    virtual void runStep(const QString& step, const QString& screen);

private:
    QString answerBox(const AnsweredDialogs::Box& box);
};

template <typename Screen>
void Stand::add(const QString& name, const toolkit::Screens::Ties& ties)
{
    screens.add(
        name, [this] { return std::make_unique<Screen>(services); }, ties);
}

template <typename Control>
Control& Stand::control(const QString& screen, const QString& name) const
{
    for (QObject* child : form(screen).findChildren<QObject*>(name))
        if (auto* found = dynamic_cast<Control*>(child))
            return *found;
    throw std::out_of_range("no such control: " + name.toStdString());
}

} // namespace support

#pragma once

#include "support/bank.h"
#include "support/doubles.h"
#include "toolkit/choice_list.h"
#include "toolkit/screens.h"
#include "toolkit/text_box.h"

#include <gtest/gtest.h>

namespace admin {

/// Writes down every box as "Title: text", with a sign for its icon, and answers questions in turn.
class ListeningDialogs final : public toolkit::Dialogs
{
public:
    /// The boxes since the last call, one a line.
    std::string take();

    std::string answers; ///< 'y' or 'n' for each question to come
    std::function<void(const QString& text)> onBox;

    void notice(QWidget* owner, const QString& title, const QString& text, Icon icon) override;
    [[nodiscard]] bool confirm(QWidget* owner, const QString& title, const QString& text) override;
    [[nodiscard]] QString input(QWidget*, const QString&, const QString&, const QString&) override
    {
        return {};
    }

private:
    QStringList log_;
};

/// An owner at the console's screens, working on a bank of its own.
class Owner
{
public:
    Owner();

    /// Shows the console and the screens named in it.
    void open(std::initializer_list<const char*> names);
    void add(const QString& name, const toolkit::Screens::Factory& factory,
             const toolkit::Screens::Place& place = {});
    [[nodiscard]] toolkit::Form& form(const QString& name) const;
    template <typename Control>
    [[nodiscard]] Control& control(const QString& screen, const QString& name) const
    {
        for (auto* child : form(screen).findChildren<QWidget*>(name))
            if (auto* found = dynamic_cast<Control*>(child))
                return *found;
        throw std::out_of_range("no such control: " + name.toStdString());
    }

    /// Does `steps` on a screen, separated by "; ": "name" presses a button, "name=text" types a text over
    /// what a box holds, "name#2" chooses the third entry of a list.
    void run(const QString& screen, const QString& steps);
    /// What an editor shows: texts, and the entries of its lists with a "*" at the chosen one.
    [[nodiscard]] std::string shown(const QString& screen) const;
    /// The buttons that are enabled, in alphabetical order.
    [[nodiscard]] std::string buttons(const QString& screen) const;
    [[nodiscard]] std::string focused(const QString& screen) const;
    /// The questions or messages of the bank, one a line.
    [[nodiscard]] std::string questions() const;
    [[nodiscard]] std::string messages() const;

    support::Bank bank;
    ListeningDialogs dialogs;

private:
    support::ScriptedRandom random_;
    support::RecordingBrowser browser_;
    support::CountingBeeper beeper_;
    support::SteppedClock clock_;

public:
    toolkit::Screens screens; ///< after all that its forms use
    toolkit::Services services{screens, dialogs, random_, browser_, beeper_, clock_};
};

} // namespace admin

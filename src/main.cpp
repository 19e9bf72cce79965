#include "admin/add_questions.h"
#include "admin/change_password.h"
#include "admin/console.h"
#include "admin/login.h"
#include "admin/messages.h"
#include "game/orv.h"
#include "narrator/host.h"
#include "shell/back.h"
#include "shell/mainscreen.h"
#include "shell/rules.h"
#include "shell/thank.h"
#include "shell/userselect.h"
#include "toolkit/desktop.h"
#include "toolkit/desktop_services.h"
#include "toolkit/screens.h"
#include "voice/speaker.h"

#include <QApplication>

int main(int argc, char** argv)
{
    if (!toolkit::prepareDesktop())
        return 1;
    const bool grown = toolkit::growToScreen(shell::Back::size);
    const QApplication application(argc, argv);
    if (grown)
        qunsetenv("QT_SCALE_FACTOR");            // not meant for a browser that the program starts
    QApplication::setApplicationName("Orvanta"); // in window lists, for windows without a caption
    QApplication::setQuitOnLastWindowClosed(false);

    toolkit::DesktopDialogs dialogs;
    toolkit::ClockSeededRandom random;
    toolkit::DesktopBrowser browser;
    toolkit::DesktopBeeper beeper;
    toolkit::SystemClock clock;
    const auto speaker = voice::makeSpeaker(); // one for all games, so that muting lasts
    toolkit::Screens screens;                  // goes first, with the forms that use the others
    const toolkit::Services services{screens, dialogs, random, browser, beeper, clock};

    const auto makeHost = [&](QWidget& form) { return narrator::makeCharacters(form, clock, speaker.get()); };
    screens.add("userselect", [&] { return std::make_unique<shell::UserSelect>(services); });
    screens.add("mainscreen", [&] { return std::make_unique<shell::MainScreen>(services); });
    screens.add("rules", [&] { return std::make_unique<shell::Rules>(services); });
    screens.add("thank", [&] { return std::make_unique<shell::Thank>(services); });
    screens.add("back", [&] { return std::make_unique<shell::Back>(services); });
    screens.add("orv", [&] { return std::make_unique<game::Orv>(services, makeHost); }, {.behind = "back"});
    screens.add("login", [&] { return std::make_unique<admin::Login>(services); });
    screens.add("admin", [&] { return std::make_unique<admin::Console>(services); });
    const toolkit::Screens::Ties console{.inside = "admin"};
    screens.add(
        "addquestions", [&] { return std::make_unique<admin::AddQuestions>(services); }, console);
    screens.add(
        "messages", [&] { return std::make_unique<admin::Messages>(services); }, console);
    screens.add(
        "changepassword", [&] { return std::make_unique<admin::ChangePassword>(services); }, console);
    screens.onAllClosed(&QApplication::quit);

    screens.show("userselect");
    return QApplication::exec();
}

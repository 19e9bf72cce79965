#include "show.h"

#include "game/orv.h"

namespace game {

using namespace std::chrono_literals;

void addScreens(support::Stand& stand, toolkit::Services services, const bool& hostMissing)
{
    const auto makeHost = [&](QWidget&) {
        return std::make_unique<support::RecordingHost>(stand.hostRequests, hostMissing);
    };
    stand.screens.add("orv", [=] { return std::make_unique<Orv>(services, makeHost); }, {.behind = "back"});
    for (const char* name : {"back", "thank"})
        stand.screens.add(name, [=] {
            return std::make_unique<toolkit::Form>(toolkit::FormSettings{.name = name}, services);
        });
}

ShowTest::ShowTest()
{
    addScreens(stand, stand.services, hostMissing);
}

void ShowTest::start()
{
    stand.dialogs.expectInput("Please Enter your First Name ", "Asha");
    stand.screens.show("orv");
    stand.hostLog();
}

void ShowTest::chooseOption(int k, bool lock)
{
    stand.dialogs.expectConfirm("Asha shall I lock it?", lock);
    stand.click("orv", QString("option%1").arg(k));
}

void ShowTest::answerRight()
{
    chooseOption(3, true);
    stand.clock.advance(900ms);
}

void ShowTest::answerUpTo(int n)
{
    for (int question = 1; question <= n; ++question) {
        answerRight();
        stand.click("orv", "cmdok");
    }
}

bool ShowTest::visible(const QString& control) const
{
    return !stand.control<QWidget>("orv", control).isHidden();
}

std::string ShowTest::options() const
{
    return (shown("option1") + '|' + shown("option2") + '|' + shown("option3") + '|' + shown("option4"))
        .toStdString();
}

std::string ShowTest::looks() const
{
    std::string result;
    for (int k = 1; k <= 4; ++k) {
        const auto& option = stand.control<toolkit::Label>("orv", QString("option%1").arg(k));
        const bool green = option.palette().window().color() == QColor(0, 192, 0);
        result += !option.isOpaque() ? '.' : green ? 'g' : 'c';
    }
    return result;
}

std::string ShowTest::focused() const
{
    return stand.focused("orv");
}

void ShowTest::expectFarewell()
{
    stand.dialogs.expectNoticeWith({"Visit"});
}

} // namespace game

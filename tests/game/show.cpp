#include "show.h"

#include "game/orv.h"

namespace game {

using namespace std::chrono_literals;
using toolkit::Form;
using toolkit::Label;

namespace {

/// Shows the game while the game is loading, as the real backdrop does.
class Backdrop final : public Form
{
public:
    explicit Backdrop(toolkit::Services services) : Form({.name = "back"}, services) { setEnabled(false); }

protected:
    void Form_Load() override { screens().show("orv"); }
};

} // namespace

ShowTest::ShowTest()
{
    const auto makeHost = [this](QWidget&) {
        return std::make_unique<support::RecordingHost>(desk.hostRequests, hostMissing);
    };
    desk.screens.add("orv", [this, makeHost] { return std::make_unique<Orv>(desk.services, makeHost); },
                     {.behind = "back"});
    desk.screens.add("back", [this] { return std::make_unique<Backdrop>(desk.services); });
    desk.screens.add("thank", [this] {
        return std::make_unique<Form>(toolkit::FormSettings{.name = "thank"}, desk.services);
    });
}

void ShowTest::start()
{
    desk.dialogs.expectInput("Please Enter your First Name ", "Asha");
    desk.screens.show("orv");
    desk.hostLog();
}

void ShowTest::chooseOption(int k, bool lock)
{
    desk.dialogs.expectConfirm("Asha shall I lock it?", lock);
    desk.click("orv", QStringLiteral("option%1").arg(k));
}

void ShowTest::answerRight()
{
    chooseOption(3, true);
    desk.clock.advance(900ms);
}

void ShowTest::answerUpTo(int n)
{
    for (int question = 1; question <= n; ++question) {
        answerRight();
        desk.click("orv", "cmdok");
    }
}

bool ShowTest::visible(const QString& control) const
{
    return !desk.control<QWidget>("orv", control).isHidden();
}

bool ShowTest::enabled(const QString& control) const
{
    return desk.control<QWidget>("orv", control).isEnabled();
}

std::string ShowTest::looks() const
{
    std::string result;
    for (int k = 1; k <= 4; ++k) {
        const auto& option = desk.control<Label>("orv", QStringLiteral("option%1").arg(k));
        const bool green = option.palette().window().color() == QColor(0, 192, 0);
        result += !option.isOpaque() ? '.' : green ? 'g' : 'c';
    }
    return result;
}

std::string ShowTest::focused() const
{
    const QWidget* focus = desk.form("orv").focusWidget();
    return focus ? focus->objectName().toStdString() : "";
}

void ShowTest::expectFarewell()
{
    desk.dialogs.expectNoticeWith({"Visit"});
}

} // namespace game

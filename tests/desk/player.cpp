#include "player.h"

#include <QDir>

namespace desk {

const char* const farewell = "Orvanta | Thank you for playing. Visit www.orvanta.example for updates and "
                             "more questions. | no icon | OK";

void Player::SetUp()
{
    bank.execute("update questions set correct_answer = case (question_id * 7) % 4 when 0 then answer1 "
                 "when 1 then answer2 when 2 then upper(answer3) else answer4 end");
}

void Player::TearDown()
{
    if (!desk)
        return;
    EXPECT_EQ(desk->printed().toStdString(), "");
    desk.reset();
    EXPECT_EQ(names(), files);
}

std::string Player::names() const
{
    return QFileInfo(bank.path())
        .dir()
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name)
        .join(' ')
        .toStdString();
}

void Player::begin(const DeskSettings& settings)
{
    desk = std::make_unique<Desk>(settings);
    desk->start(QFileInfo(bank.path()).path());
}

void Player::beyondRules()
{
    const std::pair<const char*, const char*> buttons[] = {
        {"userselect", "contestant"}, {"mainscreen", "Command1"}, {"rules", "startplay"}};
    for (const auto& [screen, button] : buttons) {
        desk->untilFocus(screen, button);
        type(screen, "\r");
    }
}

void Player::type(const QString& screen, const QString& keys)
{
    desk->untilKeyboard(desk->windowOf(screen));
    desk->display->type(keys);
}

void Player::toQuestion(const QString& name)
{
    beyondRules();
    desk->enterName(name);
    untilQuestion();
}

// Unless a prompt of the host was quicker, the first press only brings the lifelines into view.
void Player::take(int lifeline)
{
    const QString cross = QString("l%1l1").arg(lifeline);
    const QString key = QChar(f1Key + lifeline - 1);
    type("orv", key);
    const Scene open = desk->untilStays("the lifelines", [this](const Scene& scene) {
        return desk->display->place(scene.at("orv").window).height() == 500;
    });
    if (!open.control("orv", cross).visible)
        type("orv", key);
    desk->until("the cross", [&](const Scene& scene) { return scene.control("orv", cross).visible; });
}

Scene Player::untilQuestion()
{
    return desk->until("a question", [](const Scene& scene) {
        return scene.control("orv", "question").text.startsWith("Question") &&
               !scene.control("orv", "cmdok").visible;
    });
}

int Player::right(const QString& question)
{
    return std::stoi(
        bank.value("select 1 + (lower(correct_answer) = answer2) + 2 * (lower(correct_answer) = "
                   "answer3) + 3 * (lower(correct_answer) = answer4) from questions where question = '" +
                   question.toStdString() + "'"));
}

ShownWindow Player::choose(int k)
{
    desk->click("orv", QString("option%1").arg(k));
    return desk->box();
}

void Player::win()
{
    choose(right());
    desk->answer("Yes");
    desk->untilFocus("orv", "cmdok");
}

int Player::choices() const
{
    return std::stoi(bank.value("select sum(a + b + c + d - 4) from questions"));
}

} // namespace desk

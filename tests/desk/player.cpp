#include "player.h"

#include <QDir>
#include <SQLiteCpp/SQLiteCpp.h>

#include <algorithm>

namespace desk {

const char* const farewell = "Orvanta | Thank you for playing. Visit www.orvanta.example for updates and "
                             "more questions. | no icon | OK";

namespace {

const QStringList optionNames = {"option1", "option2", "option3", "option4"};

} // namespace

void Player::SetUp()
{
    bank.execute("update questions set correct_answer = case (question_id * 7) % 4 when 0 then answer1 "
                 "when 1 then answer2 when 2 then upper(answer3) else answer4 end");
}

void Player::TearDown()
{
    if (!desk)
        return;
    if (HasFailure()) {
        const QString path =
            QDir::temp().filePath(QStringLiteral("orvanta-desk-%1.png")
                                      .arg(testing::UnitTest::GetInstance()->current_test_info()->name())
                                      .replace('/', '-'));
        desk->display->picture(desk->display->area()).save(path);
        std::printf("the screen at the end: %s\n", qPrintable(path));
    }
    EXPECT_EQ(desk->printed().toStdString(), "");
    desk.reset();
    EXPECT_EQ(names(), files);
}

std::string Player::names() const
{
    return QDir(QFileInfo(bank.path()).path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name)
        .join(' ')
        .toStdString();
}

void Player::begin(const DeskSettings& settings)
{
    desk = std::make_unique<Desk>(settings);
    desk->start(QFileInfo(bank.path()).path());
}

void Player::toRules()
{
    desk->click("userselect", "contestant");
    desk->click("mainscreen", "Command1");
    desk->until("the rules", [this](const Scene& scene) {
        return scene.shows("rules") && scene.at("rules").control("startplay").focus &&
               desk->hasKeyboard(scene.at("rules").window);
    });
}

void Player::toPrompt()
{
    toRules();
    desk->display->press(Display::Return);
    desk->until("the name prompt", [](const Scene& scene) { return scene.prompt && scene.prompt->ready; });
}

void Player::toQuestion(const QString& name)
{
    toPrompt();
    desk->enterName(name);
    desk->until("question 1",
                [](const Scene& scene) { return scene.text("orv", "question").startsWith("Question"); });
}

int Player::right()
{
    const Scene scene = desk->look();
    const ShownWindow& game = scene.at("orv");
    const QString correct =
        QString::fromStdString(bank.value("select correct_answer from questions where question = '" +
                                          game.textOf("question").toStdString() + "'"));
    for (int k = 1; k <= 4; ++k) {
        if (game.textOf(optionNames[k - 1]).mid(3).compare(correct, Qt::CaseInsensitive) == 0)
            return k;
    }
    throw std::runtime_error("no option is right: " + game.textOf("question").toStdString());
}

Box Player::choose(int k)
{
    desk->click("orv", optionNames[k - 1]);
    return desk->box();
}

QString Player::win()
{
    choose(right());
    desk->answer("Yes");
    return desk
        ->until(
            "the prize",
            [](const Scene& scene) { return scene.shows("orv") && scene.at("orv").control("cmdok").focus; })
        .text("orv", "question");
}

void Player::next()
{
    desk->click("orv", "cmdok");
    desk->until("the next question", [](const Scene& scene) {
        return scene.text("orv", "question").startsWith("Question") &&
               !scene.at("orv").control("cmdok").visible;
    });
}

void Player::winTo(int n)
{
    for (int won = 1; won <= n; ++won) {
        win();
        if (won < n)
            next();
    }
}

std::string Player::choices() const
{
    const SQLite::Database database(bank.path().toStdString());
    SQLite::Statement rows(database,
                           "select question_id, a - 1, b - 1, c - 1, d - 1 from questions order by 1");
    std::string result;
    while (rows.executeStep()) {
        for (int option = 1; option <= 4; ++option) {
            for (int times = rows.getColumn(option); times > 0; --times)
                result += " " + rows.getColumn(0).getString() + "?abcd"[option];
        }
    }
    return result;
}

std::string Player::choice(int k)
{
    return " " +
           bank.value("select question_id from questions where question = '" + says().toStdString() + "'") +
           "?abcd"[k];
}

} // namespace desk

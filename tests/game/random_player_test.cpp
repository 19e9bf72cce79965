#include "invariants.h"

#include "game/orv.h"
#include "support/bank.h"
#include "support/doubles.h"
#include "toolkit/screens.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTest>
#include <SQLiteCpp/SQLiteCpp.h>

#include <gtest/gtest.h>

#include <deque>
#include <map>
#include <random>

namespace game {

using std::chrono::milliseconds;
using toolkit::Form;

namespace {

constexpr int fullRun = 20000;
constexpr unsigned usualSeed = 20;

int fromEnvironment(const char* variable, int usual)
{
    bool set = false;
    const int value = qEnvironmentVariableIntValue(variable, &set);
    return set ? value : usual;
}

/// Thousands of durable writes take minutes on a disk.
class MemoryDirectory
{
public:
    MemoryDirectory() : former_(qgetenv("TMPDIR"))
    {
        if (QFileInfo("/dev/shm").isWritable())
            qputenv("TMPDIR", "/dev/shm");
    }
    ~MemoryDirectory()
    {
        if (former_.isNull())
            qunsetenv("TMPDIR");
        else
            qputenv("TMPDIR", former_);
    }
    MemoryDirectory(const MemoryDirectory&) = delete;
    MemoryDirectory& operator=(const MemoryDirectory&) = delete;

private:
    QByteArray former_;
};

/// Seven questions a level. The right answer stands at any of the four places, often in other letter case;
/// one question of a level has two right answers, and one has tallies of 0.
constexpr const char* variety = R"(
insert into questions select question_id + 5, question || ' again', answer1, answer2, answer3, answer4,
    correct_answer, Level, 7, 0, 21, 3 from questions where question_id % 10 <= 2;
update questions set answer1 = upper(answer3) where question_id % 10 = 1;
update questions set correct_answer = case question_id % 4
    when 0 then answer1 when 1 then upper(answer2) when 2 then correct_answer else upper(answer4) end
    where question_id % 10 <> 1;
update questions set a = 0, b = 0, c = 0, d = 0 where question_id % 10 = 4;
insert into locking values ('is that your answer?'), ('sure?');
)";

class SeededRandom final : public toolkit::Random
{
public:
    explicit SeededRandom(unsigned seed) : engine_(seed) {}
    void reseed() override {}
    [[nodiscard]] float next() override { return static_cast<float>(engine_() >> 8U) / 16777216.0F; }

private:
    std::mt19937 engine_;
};

class Backdrop final : public Form
{
public:
    explicit Backdrop(toolkit::Services services) : Form({.name = "back"}, services) { setEnabled(false); }

protected:
    void Form_Load() override { screens().show("orv"); }
};

/// Hands each box to whoever plays.
class HandedDialogs final : public toolkit::Dialogs
{
public:
    void notice(QWidget*, const QString&, const QString& text, Icon) override { (void)box(text); }
    [[nodiscard]] bool confirm(QWidget*, const QString&, const QString& text) override { return box(text); }
    [[nodiscard]] QString input(QWidget*, const QString&, const QString& prompt, const QString&) override
    {
        return box(prompt) ? "Asha" : "";
    }

    std::function<bool(const QString& text)> box; ///< true: yes, OK
};

/// Plays game after game on one bank, doing whatever comes to mind, and looks after every action and under
/// every box whether the game is still in order.
class RandomPlayer
{
public:
    explicit RandomPlayer(unsigned seed);

    /// One action; false once something is out of order.
    bool act();
    [[nodiscard]] std::string report() const;

    std::map<std::string, int> seen; ///< how often what happened

private:
    void startGame();
    void chooseAction();
    void clickOption();
    void clickAt(const QString& control);
    void click(const QString& aim, QPoint point);
    void press(QWidget* reached, const std::function<void()>& input);
    void pressKey();
    void step(milliseconds span);
    void closeFromOutside();
    bool answerBox(const QString& text);
    bool answerTo(Box box);
    void look();
    void lookAfterAction();
    void endGame();
    void compareTallies();
    void countBox(Box box);
    void fail(const std::string& sentence);
    void note(const QString& action);
    int upTo(int last) { return std::uniform_int_distribution(0, last)(engine_); }
    bool chance(int percent) { return upTo(99) < percent; }
    [[nodiscard]] Form* orv() const { return screens_.find("orv"); }

    std::mt19937 engine_;
    MemoryDirectory memory_;
    support::Bank bank_;
    std::unique_ptr<SQLite::Database> reader_;
    HandedDialogs dialogs_;
    SeededRandom random_;
    support::RecordingBrowser browser_;
    support::CountingBeeper beeper_;
    support::SteppedClock clock_;
    toolkit::Screens screens_;
    toolkit::Services services_{screens_, dialogs_, random_, browser_, beeper_, clock_};
    QStringList hostRequests_;

    std::vector<BankRow> rows_;
    std::unique_ptr<Story> story_;
    std::unique_ptr<Scene> scene_;
    int depth_ = 0; ///< of open boxes
    Box firstBox_ = Box::None;
    bool regularEnd_ = false;
    int timeOvers_ = 0;
    int games_ = 0;
    std::deque<std::string> actions_;
    std::string failure_;
};

RandomPlayer::RandomPlayer(unsigned seed) : engine_(seed), random_(seed)
{
    bank_.execute(variety);
    reader_ = std::make_unique<SQLite::Database>(bank_.path().toStdString());
    SQLite::Statement select(*reader_, "select * from questions order by question_id");
    const auto text = [&](int i) { return QString::fromStdString(select.getColumn(i).getString()); };
    while (select.executeStep()) {
        BankRow row{
            select.getColumn(0).getInt64(), text(1), {text(2), text(3), text(4), text(5)}, text(6), text(7)};
        for (int i = 0; i < 4; ++i)
            row.tallies.at(i) = select.getColumn(8 + i);
        rows_.push_back(row);
    }
    dialogs_.box = [this](const QString& box) { return answerBox(box); };
    const auto makeHost = [this](QWidget&) {
        return std::make_unique<support::RecordingHost>(hostRequests_, false);
    };
    screens_.add(
        "orv", [this, makeHost] { return std::make_unique<Orv>(services_, makeHost); }, "back");
    screens_.add("back", [this] { return std::make_unique<Backdrop>(services_); });
    screens_.add("thank", [this] {
        return std::make_unique<Form>(toolkit::FormSettings{.name = "thank"}, services_);
    });
}

bool RandomPlayer::act()
{
    firstBox_ = Box::None;
    if (!orv())
        startGame();
    else
        chooseAction();
    lookAfterAction();
    return failure_.empty();
}

void RandomPlayer::startGame()
{
    note("start a game");
    story_ = std::make_unique<Story>();
    story_->bank = &rows_;
    story_->messages = QStringList{"shall I lock it?", "is that your answer?", "sure?"};
    regularEnd_ = false;
    hostRequests_.clear();
    screens_.close("thank");
    screens_.show("orv");
    if (firstBox_ != Box::Name)
        fail("A game begins with the question for the name.");
    // Makes the form the active window; painting takes most of the time, so few games are painted.
    constexpr int gamesPerPainted = 25;
    orv()->setUpdatesEnabled(games_++ % gamesPerPainted == 0);
    QCoreApplication::processEvents();
}

void RandomPlayer::chooseAction()
{
    struct Action
    {
        int weight;
        std::function<void()> run;
    };
    const bool ok = !scene_->cmdok->isHidden();
    const bool quit = !scene_->cmdokquit->isHidden();
    const bool fifty = story_->fiftyQuestion == story_->question;
    const bool counting = story_->counting;
    const Action actions[] = {
        {counting ? 80 : 240, [this] { clickOption(); }},
        {fifty ? 60 : 0, [this] { clickAt(QStringLiteral("option%1").arg(*story_->removed.begin())); }},
        {ok ? 500 : 5, [this] { clickAt("cmdok"); }},
        {quit ? 150 : 5, [this] { clickAt("cmdokquit"); }},
        {60, [this] { clickAt(QStringLiteral("lifeline%1").arg(1 + upTo(2))); }},
        {35, [this] { clickAt("LL"); }},
        {20, [this] { clickAt("mws"); }},
        {story_->answer == Story::Answer::Right ? 40 : 6, [this] { clickAt("leave"); }},
        {50,
         [this] {
             click("random", {upTo(orv()->width() - 1), upTo(orv()->height() - 1)});
         }},
        {100, [this] { pressKey(); }},
        {counting ? 600 : 280, [this] { step(milliseconds(chance(60) ? upTo(250) : upTo(6000))); }},
        {1, [this] { closeFromOutside(); }},
    };
    int all = 0;
    for (const Action& action : actions)
        all += action.weight;
    int picked = upTo(all - 1);
    for (const Action& action : actions) {
        picked -= action.weight;
        if (picked < 0) {
            action.run();
            return;
        }
    }
}

/// Mostly the right one: the player has looked it up.
void RandomPlayer::clickOption()
{
    int k = 1 + upTo(3);
    const bool lookedUp = chance(94);
    while (lookedUp && !story_->row->isRight(k))
        k = 1 + upTo(3);
    clickAt(QStringLiteral("option%1").arg(k));
}

/// A click where the control is, whatever may lie over it; nothing where it is out of the window.
void RandomPlayer::clickAt(const QString& control)
{
    const QRect area = scene_->widget(control)->geometry();
    click(control, area.topLeft() + QPoint(upTo(area.width() - 1), upTo(area.height() - 1)));
}

void RandomPlayer::click(const QString& aim, QPoint point)
{
    QWidget* reached = orv()->childAt(point);
    note("click at " + aim + ", reaches " + (reached ? reached->objectName() : "no control"));
    if (reached)
        press(reached,
              [&] { QTest::mouseClick(reached, Qt::LeftButton, {}, reached->mapFrom(orv(), point)); });
    else if (orv()->rect().contains(point))
        QTest::mouseClick(orv(), Qt::LeftButton, {}, point);
}

/// `input` is what presses the control that it reaches, which may be of any kind.
void RandomPlayer::press(QWidget* reached, const std::function<void()>& input)
{
    const QString control = reached->objectName();
    const bool enabled = reached->isEnabled();
    const Box expected = enabled ? story_->press(control, *scene_) : Box::None;
    regularEnd_ = expected == Box::Farewell || expected == Box::Champion;
    const int question = story_->question;
    input();
    if (firstBox_ != expected)
        fail("A control that is pressed asks what it must and nothing else.");
    if (control == "lifeline3" && story_->fiftyQuestion == question && question > 0)
        story_->seeRemoved(*scene_);
    if (control == "cmdok" && enabled && orv()) {
        look();
        if (story_->question != question + 1)
            fail("OK after a prize brings the next question.");
    }
    if (control.startsWith("lifeline") && enabled && expected == Box::None)
        ++seen["takes " + control.toStdString()];
}

void RandomPlayer::pressKey()
{
    constexpr Qt::Key keys[] = {Qt::Key_Return, Qt::Key_Enter,   Qt::Key_Space, Qt::Key_Tab,
                                Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Escape};
    const Qt::Key key = keys[upTo(std::size(keys) - 1)];
    QWidget* focus = orv()->focusWidget();
    note(QKeySequence(key).toString() + " on " + focus->objectName());
    const auto input = [&] { QTest::keyClick(focus, key); };
    const bool presses = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
    if (presses && qobject_cast<QPushButton*>(focus)) {
        press(focus, input);
        return;
    }
    const bool before = focus == scene_->cmdokquit;
    input();
    const bool now = orv()->focusWidget() == scene_->cmdokquit;
    if (now && !before && hostRequests_.filter("Please send your comments").isEmpty())
        fail("The host speaks the credit when cmdokquit gets the focus.");
}

void RandomPlayer::step(milliseconds span)
{
    note(QStringLiteral("wait %1 ms").arg(span.count()));
    clock_.advance(span);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
}

void RandomPlayer::closeFromOutside()
{
    note("close from outside");
    regularEnd_ = false;
    orv()->close();
    if (firstBox_ != Box::Farewell)
        fail("A form that is closed from outside says farewell.");
}

/// Time passes under a box, the form cannot be reached.
bool RandomPlayer::answerBox(const QString& text)
{
    if (!failure_.empty())
        return true;
    if (!scene_)
        scene_ = std::make_unique<Scene>(*orv());
    const Box box = story_->boxOpens(text);
    note("  box: " + text);
    if (box == Box::Unknown)
        fail("Only known boxes open, the farewell once.");
    if (depth_ == 0 && firstBox_ == Box::None)
        firstBox_ = box;
    ++depth_;
    countBox(box);
    look();
    for (int steps = upTo(3); steps > 0 && failure_.empty(); --steps) {
        step(milliseconds(upTo(chance(50) ? 900 : 6000)));
        look();
    }
    --depth_;
    const bool answer = answerTo(box);
    note(answer ? "  box: yes" : "  box: no");
    if (box == Box::Leave && answer && story_->answer == Story::Answer::Right)
        ++seen["withdraws while the answer flashes"];
    if (box == Box::Name)
        story_->name = answer ? "Asha" : "";
    story_->boxCloses(box, answer);
    return answer;
}

bool RandomPlayer::answerTo(Box box)
{
    if (box == Box::Lock) {
        const bool yes = chance(75);
        ++seen[yes ? "locks" : "takes a choice back"];
        return yes;
    }
    return box == Box::Leave ? chance(20) : box != Box::Name || chance(80);
}

void RandomPlayer::countBox(Box box)
{
    if (depth_ > 1)
        ++seen["box over a box"];
    if (box == Box::TimeOver) {
        ++timeOvers_;
        ++seen["time over"];
    }
    if (box == Box::Used)
        ++seen["lifeline refused"];
    if (box == Box::Blank)
        ++seen["blank option refused"];
}

void RandomPlayer::look()
{
    if (!failure_.empty() || !scene_)
        return;
    const int opened = story_->panelsOpenedByPrompts;
    for (const QString& request : hostRequests_)
        story_->hear(request);
    hostRequests_.clear();
    if (story_->panelsOpenedByPrompts > opened)
        ++seen["panel opened by a prompt"];
    if (story_->announced() && story_->quitOffered)
        ++seen["both OK buttons"];
    const std::string broken = brokenInvariant(*scene_, *story_);
    if (!broken.empty())
        fail(broken);
}

void RandomPlayer::lookAfterAction()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    if (failure_.empty() && depth_ != 0)
        fail("No box stays open.");
    if (failure_.empty() && !orv()) {
        endGame();
    } else if (failure_.empty()) {
        look();
        if (story_->unloading)
            fail("A form that has said farewell is closed.");
        if (firstBox_ == Box::Lock)
            compareTallies();
    }
    if (failure_.empty() && beeper_.beeps != 4 * timeOvers_)
        fail("The end of the time is told by four beeps.");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void RandomPlayer::endGame()
{
    if (!story_->unloading)
        fail("A form that closes says farewell.");
    if (screens_.find("back"))
        fail("The backdrop goes with the game.");
    if ((screens_.find("thank") != nullptr) != regularEnd_)
        fail("The thank-you screen follows exactly a regular end.");
    compareTallies();
    if (!regularEnd_)
        ++seen["end: closed from outside"];
    else if (story_->answer == Story::Answer::Wrong)
        ++seen["end: wrong answer"];
    else
        ++seen[story_->withdrawn             ? "end: withdrawal"
               : story_->won == lastQuestion ? "end: top prize"
                                             : "end: withdrawal, later"];
    scene_.reset();
}

void RandomPlayer::compareTallies()
{
    SQLite::Statement select(*reader_, "select a, b, c, d from questions order by question_id");
    for (const BankRow& row : rows_) {
        select.executeStep();
        for (int i = 0; i < 4; ++i) {
            if (select.getColumn(i).getInt() != row.tallies.at(i))
                fail("Every choice, locked or taken back, is counted once, for its own option.");
        }
    }
}

void RandomPlayer::fail(const std::string& sentence)
{
    if (failure_.empty())
        failure_ = sentence;
}

void RandomPlayer::note(const QString& action)
{
    constexpr std::size_t kept = 20;
    actions_.push_back(action.toStdString());
    if (actions_.size() > kept)
        actions_.pop_front();
}

std::string RandomPlayer::report() const
{
    std::string result = "Does not hold: " + failure_ + "\nThe last actions:\n";
    for (const std::string& action : actions_)
        result += action + "\n";
    return result;
}

} // namespace

TEST(RandomPlayerTest, WhateverThePlayerDoesTheGameStaysInOrder)
{
    const int actions = fromEnvironment("ORVANTA_PLAYER_ACTIONS", fullRun);
    const int seed = fromEnvironment("ORVANTA_PLAYER_SEED", usualSeed);
    RandomPlayer player(static_cast<unsigned>(seed));
    for (int done = 1; done <= actions; ++done)
        ASSERT_TRUE(player.act()) << "ORVANTA_PLAYER_SEED=" << seed << ", action " << done << "\n"
                                  << player.report();
    if (actions < fullRun)
        return;
    for (const char* what :
         {"end: top prize", "end: wrong answer", "end: withdrawal", "end: closed from outside",
          "withdraws while the answer flashes", "both OK buttons", "takes lifeline1", "takes lifeline2",
          "takes lifeline3", "lifeline refused", "blank option refused", "time over", "box over a box",
          "panel opened by a prompt", "takes a choice back"})
        EXPECT_GT(player.seen[what], 0) << "this player never met: " << what;
}

} // namespace game

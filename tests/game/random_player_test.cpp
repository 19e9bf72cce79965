#include "invariants.h"

#include "show.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <SQLiteCpp/SQLiteCpp.h>

#include <random>

namespace game {

using std::chrono::milliseconds;
using toolkit::Form;

namespace {

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
)";

/// Plays game after game on one bank, doing whatever comes to mind, and looks after every action and under
/// every box whether the game is still in order. The game draws from the same numbers.
class RandomPlayer final : toolkit::Random
{
public:
    explicit RandomPlayer(int seed) : engine_(static_cast<unsigned>(seed))
    {
        bank_.execute(variety);
        reader_ = std::make_unique<SQLite::Database>(bank_.path().toStdString());
        SQLite::Statement select(*reader_, "select * from questions order by question_id");
        const auto text = [&](int i) { return QString::fromStdString(select.getColumn(i).getString()); };
        while (select.executeStep()) {
            const auto tally = [&](int i) { return select.getColumn(i).getInt(); };
            const std::array answers{text(2), text(3), text(4), text(5)};
            const std::array tallies{tally(8), tally(9), tally(10), tally(11)};
            rows_.push_back({text(1), answers, text(6), text(7).toInt(), tallies});
        }
        addScreens(stand_, services_, hostMissing_);
        stand_.dialogs.otherwise = [this](const auto& box) { return answerBox(box.text) ? "Asha" : ""; };
    }

    /// One action; false once something is out of order.
    bool act()
    {
        firstBox_.clear();
        regularEnd_ = false;
        orv() ? chooseAction() : startGame();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
        orv() ? look() : endGame();
        if (firstBox_ == "lock" || !orv())
            compareTallies();
        game_->require(game_->unloading == !orv(), "A form says farewell exactly when it closes.");
        game_->require(stand_.beeper.beeps == 4 * seen["time over"],
                       "The end of the time is told by four beeps.");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return game_->fault.empty();
    }

    [[nodiscard]] std::string report() const
    {
        return "Does not hold: " + game_->fault + "\nThe last actions:\n" + actions_.join('\n').toStdString();
    }

    std::map<std::string, int> seen; ///< how often what happened

private:
    void reseed() override {}
    float next() override { return static_cast<float>(engine_() >> 8U) / 16777216.0F; }

    void startGame()
    {
        note("start a game");
        game_ = std::make_unique<Spectator>(rows_);
        stand_.hostRequests.clear();
        stand_.screens.close("thank");
        stand_.screens.show("back");
        stand_.screens.show("orv");
        game_->require(firstBox_ == "name", "A game begins with the question for the name.");
        // Makes the form the active window; painting takes most of the time, so few games are painted.
        orv()->setUpdatesEnabled(chance(4));
        QCoreApplication::processEvents();
    }

    void chooseAction()
    {
        const bool fifty = game_->fiftyQuestion == game_->question;
        const bool counting = game_->counting;
        const std::pair<int, std::function<void()>> actions[] = {
            {counting ? 80 : 240, [this] { clickOption(); }},
            {fifty ? 60 : 0, [this] { clickAt(QString("option%1").arg(*game_->removed.begin())); }},
            {game_->shown("cmdok") ? 500 : 5, [this] { clickAt("cmdok"); }},
            {game_->shown("cmdokquit") ? 150 : 5, [this] { clickAt("cmdokquit"); }},
            {60, [this] { clickAt(QString("lifeline%1").arg(1 + upTo(2))); }},
            {35, [this] { clickAt("LL"); }},
            {20, [this] { clickAt("mws"); }},
            {game_->answer == Spectator::Answer::Right ? 40 : 6, [this] { clickAt("leave"); }},
            {50, [this] { clickAt("orv"); }},
            {100, [this] { pressKey(); }},
            {counting ? 600 : 280, [this] { step(milliseconds(chance(60) ? upTo(250) : upTo(6000))); }},
            {1, [this] { note("close from outside"), orv()->close(); }},
        };
        std::vector<int> weights;
        for (const auto& [weight, run] : actions)
            weights.push_back(weight);
        actions[std::discrete_distribution<std::size_t>(weights.begin(), weights.end())(engine_)].second();
    }

    /// Mostly the right one: the player has looked it up.
    void clickOption()
    {
        int k = 1 + upTo(3);
        for (const bool lookedUp = chance(94); lookedUp && !game_->row->isRight(k);)
            k = 1 + upTo(3);
        clickAt(QString("option%1").arg(k));
    }

    /// A click where the control (or the whole form) is, whatever may lie over it.
    void clickAt(const QString& aim)
    {
        const QRect area = aim == "orv" ? orv()->rect() : game_->widget(aim).geometry();
        const QPoint point = area.topLeft() + QPoint(upTo(area.width() - 1), upTo(area.height() - 1));
        QWidget* reached = orv()->childAt(point);
        note("click at " + aim + ", reaches " + (reached ? reached->objectName() : "no control"));
        const auto input = [&] {
            QTest::mouseClick(reached, Qt::LeftButton, {}, reached->mapFrom(orv(), point));
        };
        if (reached)
            press(*reached, input);
    }

    /// `input` is what presses the control that it reaches, which may be of any kind.
    void press(const QWidget& reached, const std::function<void()>& input)
    {
        const std::string expected = reached.isEnabled() ? game_->press(reached.objectName()) : "";
        regularEnd_ = expected == "farewell" || expected == "champion";
        input();
        game_->require(firstBox_ == expected, "What is pressed asks what it must and nothing else.");
    }

    void pressKey()
    {
        constexpr Qt::Key keys[] = {Qt::Key_Return, Qt::Key_Enter,   Qt::Key_Space, Qt::Key_Tab,
                                    Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Escape};
        const Qt::Key key = keys[upTo(std::size(keys) - 1)];
        QWidget* focus = orv()->focusWidget();
        note(QKeySequence(key).toString() + " on " + focus->objectName());
        const auto input = [&] { QTest::keyClick(focus, key); };
        const bool presses = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
        presses&& qobject_cast<QPushButton*>(focus) ? press(*focus, input) : input();
    }

    void step(milliseconds span)
    {
        note(QString("wait %1 ms").arg(span.count()));
        stand_.clock.advance(span);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    }

    /// Time passes under a box, the form cannot be reached. True: yes, OK.
    bool answerBox(const QString& text)
    {
        if (!game_->fault.empty())
            return true;
        if (!game_->form)
            game_->watch(*orv());
        const std::string box = game_->boxOpens(text);
        note("  box: " + text);
        if (firstBox_.empty())
            firstBox_ = box;
        ++seen[box];
        look();
        for (int steps = upTo(3); steps > 0 && game_->fault.empty(); --steps) {
            step(milliseconds(upTo(chance(50) ? 900 : 6000)));
            look();
        }
        const bool yes = chance(box == "lock" ? 75 : box == "leave" ? 20 : box == "name" ? 80 : 100);
        note(yes ? "  box: yes" : "  box: no");
        seen["takes a choice back"] += box == "lock" && !yes;
        seen["withdraws while the answer flashes"] +=
            box == "leave" && yes && game_->answer == Spectator::Answer::Right;
        game_->boxCloses(box, yes);
        return yes;
    }

    void look()
    {
        if (!game_->fault.empty() || !game_->form)
            return;
        for (const QString& request : stand_.hostRequests)
            game_->hear(request);
        stand_.hostRequests.clear();
        seen["both OK buttons"] += game_->announced() && game_->quitOffered;
        game_->look();
    }

    void endGame()
    {
        game_->require((stand_.screens.find("thank") != nullptr) == regularEnd_,
                       "'Thank you' follows a regular end.");
        game_->form = nullptr;
        ++seen[regularEnd_ ? "regular end" : "closed from outside"];
    }

    void compareTallies()
    {
        SQLite::Statement select(*reader_, "select a, b, c, d from questions order by question_id");
        for (const BankRow& row : rows_) {
            select.executeStep();
            for (int i = 0; i < 4; ++i)
                game_->require(select.getColumn(i).getInt() == row.tallies.at(i),
                               "Every choice, locked or taken back, is counted once, for its own option.");
        }
    }

    void note(const QString& action) { actions_ = actions_.mid(actions_.size() < 20 ? 0 : 1) << action; }
    int upTo(int last) { return std::uniform_int_distribution(0, last)(engine_); }
    bool chance(int percent) { return upTo(99) < percent; }
    [[nodiscard]] Form* orv() const { return stand_.screens.find("orv"); }

    std::mt19937 engine_;
    support::Bank bank_;
    std::unique_ptr<SQLite::Database> reader_;
    std::vector<BankRow> rows_;
    std::unique_ptr<Spectator> game_;
    std::string firstBox_; ///< that the action opened
    bool regularEnd_ = false;
    QStringList actions_;
    const bool hostMissing_ = false;
    support::Stand stand_; ///< after all that its forms use
    toolkit::Services services_{stand_.screens, stand_.dialogs, *this,
                                stand_.browser, stand_.beeper,  stand_.clock};
};

} // namespace

TEST(RandomPlayerTest, WhateverThePlayerDoesTheGameStaysInOrder)
{
    constexpr int actions = 20'000;
    const int seed = qEnvironmentVariable("ORVANTA_PLAYER_SEED", "20").toInt();
    // Thousands of durable writes take minutes on a disk.
    const QByteArray temporary = qgetenv("TMPDIR");
    qputenv("TMPDIR", QFileInfo("/dev/shm").isWritable() ? "/dev/shm" : temporary);
    RandomPlayer player(seed);
    qputenv("TMPDIR", temporary);
    for (int done = 1; done <= actions; ++done)
        ASSERT_TRUE(player.act()) << "ORVANTA_PLAYER_SEED=" << seed << ", action " << done << "\n"
                                  << player.report();
    for (const char* what : {"crore", "wrong", "withdraws while the answer flashes", "closed from outside",
                             "both OK buttons", "used", "blank", "time over", "takes a choice back"})
        EXPECT_GT(player.seen[what], 0) << "this player never met: " << what;
}

} // namespace game

#include "show.h"

#include "game/ladder.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QPlainTextEdit>
#include <SQLiteCpp/SQLiteCpp.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>

namespace game {

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

const std::string tallies = "select question, a, b, c, d from bank.questions";

/// A game since its form opened, as far as the screen must still show it.
struct Game
{
    std::map<QString, QObject*> controls;
    toolkit::TwipRect opening{};
    QStringList asked; ///< questions
    QStringList row;   ///< of the last one: its four answers and the right one
    QString stage = ladderPanelText();
    int won = 0;
    qsizetype kept = 0; ///< the rung whose amount shows, or the last that did
    int chosen = 0;
    std::set<int> removed;
    std::array<bool, 3> taken{};
    bool asking = false, locked = false, sorry = false, lost = false, withdrawn = false;
    bool quitOffered = false; ///< stays, even if a last flash leads on to another question
    bool halved = false, counting = false, pollShown = false;
    bool lifelinesOpen = false, ladderOpen = false, unloading = false;
};

/// Plays game after game on one bank, doing whatever comes to mind, and looks after every action and under
/// every box whether all that is seen fits together. The game draws from the same numbers. A box is known by
/// a part of its text.
class RandomPlayer final : toolkit::Dialogs, toolkit::Random
{
public:
    explicit RandomPlayer(int seed) : engine_(static_cast<unsigned>(seed))
    {
        bank_.execute(variety);
        notes_.exec("attach '" + bank_.path().toStdString() + "' as bank; create table counted as " +
                    tallies);
        addScreens(stand_, services_, hostMissing_);
    }

    void act()
    {
        firstBox_.clear();
        regularEnd_ = false;
        orv() ? chooseAction() : startGame();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
        look();
        if (firstBox_ == "lock it" || !orv())
            EXPECT_EQ(notes_.execAndGet("select count(*) from (select * from counted except " + tallies + ")")
                          .getInt(),
                      0)
                << "Every choice, locked or taken back, is counted once, for its own option.";
        seen["closed from outside"] += !orv() && !regularEnd_;
        EXPECT_EQ(stand_.screens.find("thank") != nullptr, regularEnd_);
        EXPECT_EQ(game_.unloading, !orv()) << "A form says farewell exactly when it closes.";
        EXPECT_EQ(stand_.beeper.beeps, 4 * seen["Time Is Over"]);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    std::map<QString, int> seen; ///< how often what happened
    QStringList actions;         ///< the last ones

private:
    void notice(QWidget*, const QString&, const QString& text, Icon) override { (void)answerBox(text); }
    bool confirm(QWidget*, const QString&, const QString& text) override { return answerBox(text); }
    QString input(QWidget*, const QString&, const QString& text, const QString&) override
    {
        return answerBox(text) ? "Asha" : "";
    }
    void reseed() override {}
    float next() override { return static_cast<float>(engine_() >> 8U) / 16777216.0F; }

    void startGame()
    {
        note("start a game");
        game_ = {};
        stand_.hostRequests.clear();
        stand_.screens.close("thank");
        stand_.screens.show("back");
        stand_.screens.show("orv");
        EXPECT_EQ(firstBox_, "First Name");
        // Makes the form the active window; painting takes most of the time, so few games are painted.
        orv()->setUpdatesEnabled(chance(4));
        QCoreApplication::processEvents();
    }

    void chooseAction()
    {
        int k = 1 + upTo(3);
        // Mostly the right one: the player has looked it up.
        for (const bool lookedUp = chance(94); lookedUp && !isRight(k);)
            k = 1 + upTo(3);
        const int blank = game_.removed.empty() ? k : *game_.removed.begin();
        const QStringList choices =
            QString("option%1 option%2 lifeline%3 cmdok cmdokquit leave LL mws orv key time end")
                .arg(k)
                .arg(blank)
                .arg(1 + upTo(2))
                .split(' ');
        std::array weights{240, 0, 60, 5, 5, 6, 35, 20, 50, 100, 280, 1};
        weights[1] += game_.halved ? 60 : 0;
        weights[3] += shows("cmdok") ? 500 : 0;
        weights[4] += shows("cmdokquit") ? 150 : 0;
        weights[5] += game_.locked ? 40 : 0;
        weights[10] += game_.counting ? 900 : 0;
        std::discrete_distribution pick(weights.begin(), weights.end());
        const QString& chosen = choices[pick(engine_)];
        if (chosen == "key")
            pressKey();
        else if (chosen == "time")
            step(chance(60) ? 250 : 6000);
        else if (chosen == "end")
            orv()->close();
        else
            clickAt(chosen);
    }

    /// A click where the control (or the whole form) is, whatever may lie over it.
    void clickAt(const QString& aim)
    {
        const QRect area = aim == "orv" ? orv()->rect() : control<QWidget>(aim).geometry();
        const QPoint point = area.topLeft() + QPoint(upTo(area.width() - 1), upTo(area.height() - 1));
        QWidget* reached = orv()->childAt(point);
        note("click at " + aim + ", reaches " + (reached ? reached->objectName() : "no control"));
        if (reached)
            press(*reached,
                  [&] { QTest::mouseClick(reached, Qt::LeftButton, {}, reached->mapFrom(orv(), point)); });
    }

    void pressKey()
    {
        constexpr Qt::Key keys[] = {Qt::Key_Return, Qt::Key_Enter,   Qt::Key_Space, Qt::Key_Tab,
                                    Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Escape};
        const int key = upTo(std::size(keys) - 1);
        QWidget* focus = orv()->focusWidget();
        note(QKeySequence(keys[key]).toString() + " on " + focus->objectName());
        const auto input = [&] { QTest::keyClick(focus, keys[key]); };
        key < 3 && qobject_cast<QPushButton*>(focus) ? press(*focus, input) : input();
    }

    /// `input` presses the control, which may be of any kind.
    void press(const QWidget& reached, const std::function<void()>& input)
    {
        const QString name = reached.isEnabled() ? reached.objectName() : "";
        const int k = name.right(1).toInt();
        QString box;
        if (name.startsWith("option") && !shows("eraseoptions") && !game_.locked) {
            game_.chosen = k;
            box = game_.removed.contains(k) ? "blank" : "lock it";
        } else if (name.startsWith("lifeline")) {
            const bool fresh = !std::exchange(game_.taken.at(k - 1), true);
            box = fresh ? "" : "already used";
            game_.pollShown |= fresh && k == 1;
            game_.counting |= fresh && k == 2;
            game_.halved |= fresh && k == 3;
        } else if (name == "leave") {
            box = "want to leave";
        } else if (name == "cmdokquit" || (name == "cmdok" && game_.won == lastQuestion)) {
            box = name == "cmdok" ? "Congrulations" : "Visit";
            regularEnd_ = true;
        }
        game_.lifelinesOpen ^= name == "LL";
        game_.ladderOpen ^= name == "mws";
        input();
        EXPECT_EQ(firstBox_, box) << "What is pressed asks what it must and nothing else.";
    }

    void step(int longestMs)
    {
        const int span = upTo(longestMs);
        note(QString("wait %1 ms").arg(span));
        stand_.clock.advance(std::chrono::milliseconds(span));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    }

    /// Time passes under a box, the form cannot be reached. True: yes, OK.
    bool answerBox(const QString& text)
    {
        if (testing::Test::HasFailure())
            return true;
        const QStringList parts{"First Name", "lock it",      "want to leave", "blank", "already used",
                                "answer was", "Time Is Over", "Congrulations", "crore", "Visit"};
        const auto known =
            std::ranges::find_if(parts, [&](const QString& part) { return text.contains(part); });
        const QString box = known == parts.end() ? "unknown" : *known;
        firstBox_ = firstBox_.isEmpty() ? box : firstBox_;
        ++seen[box];
        if (box == "First Name") {
            game_.opening = orv()->bounds();
            for (QObject* child : orv()->findChildren<QObject*>())
                game_.controls.emplace(child->objectName(), child);
        }
        game_.asking |= box == "lock it";
        game_.sorry |= box == "answer was";
        if (box == "Visit")
            EXPECT_FALSE(std::exchange(game_.unloading, true));
        if (box == "Time Is Over")
            EXPECT_TRUE(std::exchange(game_.counting, false));
        for (int steps = upTo(3); look(), steps > 0; --steps)
            step(chance(50) ? 900 : 6000);
        const bool yes = chance(box == "lock it" ? 75 : box == "want to leave" ? 20 : 100);
        note((yes ? "  yes to " : "  no to ") + text);
        boxCloses(box, yes);
        return yes;
    }

    void boxCloses(const QString& box, bool yes)
    {
        const bool leaves = box == "want to leave" && yes;
        seen["withdraws while the answer flashes"] += leaves && game_.locked;
        game_.withdrawn |= leaves;
        game_.lost |= box == "answer was";
        if (leaves || box == "answer was") {
            game_.quitOffered = true;
            game_.kept = leaves ? game_.asked.size() - 1 : game_.won - game_.won % questionsPerStep;
        }
        if (box != "lock it")
            return;
        const std::string tally(1, "abcd"[game_.chosen - 1]);
        notes_.exec("update counted set " + tally + " = " + tally + " + 1 where question = '" +
                    game_.asked.back().toStdString() + "'");
        seen["takes a choice back"] += !yes;
        game_.asking = false;
        game_.locked = yes && isRight(game_.chosen);
        if (!yes)
            game_.counting = game_.pollShown = false;
    }

    void hear(const QString& words)
    {
        game_.lifelinesOpen |= words == "Try using the lifelines?";
        game_.ladderOpen |= words.startsWith("You have currently won rupees ");
        const bool prize = words.startsWith("Total Prize Money Rupees ");
        if (!prize && !words.startsWith("Your question is,,"))
            return;
        game_.counting = game_.pollShown = false;
        if (prize) {
            EXPECT_TRUE(std::exchange(game_.locked, false))
                << "A prize is for a right answer that was locked.";
            game_.kept = ++game_.won;
            game_.stage = withRungMarked(game_.stage, game_.won);
            game_.ladderOpen |= game_.won % questionsPerStep == 0;
            return;
        }
        const QString question = words.section(",,", 1, 1);
        EXPECT_FALSE(game_.asked.contains(question)) << "No question is asked twice in a game.";
        EXPECT_EQ(game_.won, game_.asked.size())
            << "A question follows only after all before it have been won.";
        game_.asked << question;
        const auto row = notes_.execAndGet(
            "select answer1 || '|' || answer2 || '|' || answer3 || '|' || answer4 || '|' || correct_answer"
            " from bank.questions where question = '" +
            question.toStdString() + "' and Level = '" + std::to_string(1 + game_.won / questionsPerStep) +
            "'");
        game_.row = QString::fromStdString(row.getString()).split('|');
        game_.withdrawn = game_.halved = false;
        game_.removed.clear();
    }

    void look()
    {
        if (!orv() || testing::Test::HasFailure())
            return;
        for (const QString& request : std::exchange(stand_.hostRequests, {}))
            if (request.startsWith("Speak "))
                hear(request.mid(6));
        const bool announced = game_.won > 0 && game_.won == game_.asked.size();
        const bool judged = announced || game_.lost;
        const bool covered = judged || game_.withdrawn;
        seen["both OK buttons"] += announced && game_.quitOffered;
        const auto& [first, second, third] = game_.taken;
        const std::pair<const char*, bool> shown[] = {
            {"eraseoptions", covered},
            {"cmdok", announced},
            {"cmdokquit", game_.quitOffered},
            {"clock", game_.counting},
            {"clockback", game_.counting},
            {"hidepoll", !game_.pollShown},
            {"l1l1", first},
            {"l1l2", first},
            {"l2l1", second},
            {"l2l2", second},
            {"l3l1", third},
            {"l3l2", third},
        };
        for (const auto& [name, isShown] : shown)
            EXPECT_EQ(shows(name), isShown) << name;
        const std::pair<const char*, bool> enabled[] = {
            {"leave", !judged},        {"LL", !covered},          {"lifeline1", !announced},
            {"lifeline2", !announced}, {"lifeline3", !announced},
        };
        for (const auto& [name, isEnabled] : enabled)
            EXPECT_EQ(control<QWidget>(name).isEnabled(), isEnabled) << name;
        EXPECT_EQ(runs("random"), !judged && !game_.unloading);
        EXPECT_EQ(runs("flash"), game_.locked);
        EXPECT_EQ(runs("lifelinetimer"), game_.counting);
        lookAtOptions();
        const QString headline =
            covered ? "Total Prize Money Rs. " + prizeLadder().at(game_.kept) : game_.asked.value(game_.won);
        EXPECT_TRUE(control<toolkit::Label>("question").text().contains(headline)) << headline.toStdString();
        EXPECT_EQ(control<QPlainTextEdit>("stage").toPlainText().simplified(), game_.stage.simplified());
        const double w = game_.ladderOpen ? 2850 : 0;
        const double h = game_.lifelinesOpen ? 1000 : 0;
        const auto& [left, top, width, height] = game_.opening;
        EXPECT_EQ(orv()->bounds(), (toolkit::TwipRect{left - w / 2, top - h / 2, width + w, height + h}));
        const QWidget* focus = orv()->focusWidget();
        EXPECT_TRUE(focus && !focus->isHidden() && focus->isEnabled());
    }

    void lookAtOptions()
    {
        std::set<int> blanks;
        for (int k = 1; k <= 4 && !game_.row.isEmpty(); ++k) {
            const auto& label = control<toolkit::Label>(QString("option%1").arg(k));
            if (label.text().isEmpty())
                blanks.insert(k);
            else
                EXPECT_EQ(label.text(), QChar('A' + k - 1) + ("> " + game_.row[k - 1]));
            EXPECT_FALSE(label.text().isEmpty() && isRight(k)) << "Fifty-fifty removes wrong answers only.";
            const bool green = label.palette().window().color() == QColor(0, 192, 0);
            const char look = !label.isOpaque() ? '.' : green ? 'g' : 'c';
            const bool chosen = k == game_.chosen;
            const char* const undecided = game_.asking && chosen ? "c" : game_.locked && chosen ? ".gc" : ".";
            const char* const verdict = isRight(k) ? "g" : chosen ? "c" : ".";
            EXPECT_TRUE(QString(game_.sorry ? verdict : undecided).contains(look)) << k << look;
        }
        if (game_.halved && game_.removed.empty())
            game_.removed = blanks;
        EXPECT_EQ(game_.removed.size(), game_.halved ? 2U : 0U);
        EXPECT_EQ(blanks, game_.removed);
    }

    template <typename Control>
    [[nodiscard]] Control& control(const QString& name) const
    {
        return dynamic_cast<Control&>(*game_.controls.at(name));
    }
    [[nodiscard]] bool shows(const QString& name) const { return !control<QWidget>(name).isHidden(); }
    [[nodiscard]] bool runs(const QString& name) const { return control<toolkit::Timer>(name).isEnabled(); }
    [[nodiscard]] bool isRight(int k) const { return game_.row[k - 1].toLower() == game_.row[4].toLower(); }
    [[nodiscard]] Form* orv() const { return stand_.screens.find("orv"); }
    void note(const QString& action) { actions = actions.mid(actions.size() < 20 ? 0 : 1) << action; }
    int upTo(int last) { return std::uniform_int_distribution(0, last)(engine_); }
    bool chance(int percent) { return upTo(99) < percent; }

    std::mt19937 engine_;
    support::Bank bank_;
    SQLite::Database notes_{":memory:", SQLite::OPEN_READWRITE};
    Game game_;
    QString firstBox_; ///< that the action opened
    bool regularEnd_ = false;
    const bool hostMissing_ = false;
    support::Stand stand_; ///< after all that its forms use
    toolkit::Services services_{stand_.screens, *this, *this, stand_.browser, stand_.beeper, stand_.clock};
};

} // namespace

TEST(RandomPlayer, MeetsAGameInOrderWhateverIsDone)
{
    const int seed = qEnvironmentVariable("ORVANTA_PLAYER_SEED", "20").toInt();
    // Thousands of durable writes take minutes on a disk.
    const QByteArray temporary = qgetenv("TMPDIR");
    qputenv("TMPDIR", QFileInfo("/dev/shm").isWritable() ? "/dev/shm" : temporary);
    RandomPlayer player(seed);
    qputenv("TMPDIR", temporary);
    for (int action = 0; action < 20'000 && !testing::Test::HasFailure(); ++action)
        player.act();
    EXPECT_FALSE(testing::Test::HasFailure()) << "ORVANTA_PLAYER_SEED=" << seed << ", the last actions:\n"
                                              << player.actions.join('\n').toStdString();
    for (const char* what :
         {"crore", "answer was", "withdraws while the answer flashes", "closed from outside",
          "both OK buttons", "already used", "blank", "Time Is Over", "takes a choice back"})
        EXPECT_GT(player.seen[what], 0) << "this player never met: " << what;
}

} // namespace game

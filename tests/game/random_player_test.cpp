#include "show.h"

#include "game/ladder.h"
#include "support/seed.h"

#include <QCoreApplication>

#include <algorithm>
#include <map>
#include <random>

namespace game {

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

constexpr std::array rare{"crore", "answer was", "already used", "blank", "Time Is Over", "choose option A"};

/// What the screen does not show of a game.
struct Game
{
    std::map<QString, QObject*> controls;
    toolkit::TwipRect opening{};
    QStringList asked;
    QString right; ///< answer to the last one, in small letters
    int won = 0, chosen = 0, farewells = 0;
    bool locked = false, lost = false;
    bool lifelinesOpen = false, ladderOpen = false;
    std::array<bool, 3> crossed{};
};

/// Plays game after game on one bank, doing with mouse and keys whatever comes to mind, and looks after every
/// action and under every box whether all that is seen fits together.
class RandomPlayer : Show
{
public:
    explicit RandomPlayer(int seed) : engine_(static_cast<unsigned>(seed))
    {
        bank.execute(variety);
        dialogs.answer = [this](const auto& box) { return answerBox(box.text) ? "Asha" : ""; };
        choices_ = tally("a + b + c + d");
    }

    void act()
    {
        while (random.numbers.size() < 20)
            random.numbers.push_back(static_cast<float>(upTo(999)) / 1000);
        box_.clear();
        regularEnd_ = false;
        orv() ? chooseAction() : startGame();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
        look();
        EXPECT_EQ(open(), orv() ? "back orv" : regularEnd_ ? "thank" : "");
        EXPECT_EQ(game_.farewells, orv() ? 0 : 1) << "A form says farewell exactly when it closes.";
        EXPECT_EQ(beeper.beeps, 4 * seen["Time Is Over"]);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    std::map<QString, int> seen; ///< how often which box
    QStringList actions;         ///< the last ones

private:
    void startGame()
    {
        note("start a game");
        game_ = {};
        log.clear();
        screens.close("thank");
        screens.show("back");
        screens.show("orv");
        // Makes the form the active window; painting takes most of the time, so few games are painted.
        orv()->setUpdatesEnabled(chance(4));
        QCoreApplication::processEvents();
    }

    /// A control and a key for it, which is pressed instead of a click on the control now and then.
    void chooseAction()
    {
        static const QStringList words =
            QString(
                "option1:A option2:B option3:C option4:4 option2:2 option3:3 lifeline1:F1 lifeline2:Ctrl+2 "
                "lifeline3:F3 LL:L mws:P leave:W cmdok:Return cmdokquit:Space orv: orv: :Tab :Tab "
                ":Shift+Tab :Return :Space :Right :Left :Up :Down :R :H :F11 :Esc")
                .split(' ');
        QString word = words.at(upTo(static_cast<int>(words.size()) - 1));
        int right = 1;
        while (!isRight(right))
            ++right;
        if (chance(55)) // mostly what leads on: the player has looked it up
            word = shows("cmdok") ? "cmdok:Return" : QString("option%1:%1").arg(right);
        if (chance(shows("clock") ? 90 : 30))
            step(chance(60) ? 250 : 6000);
        else if (upTo(999) == 0)
            orv()->close();
        else if (const QString aim = word.section(':', 0, 0);
                 word.endsWith(':') || (!aim.isEmpty() && chance(60)))
            clickAt(aim);
        else
            pressKey(word.section(':', 1), aim);
    }

    /// A click where the control (or the whole form) is, whatever may lie over it.
    void clickAt(const QString& aim)
    {
        const QRect area = aim == "orv" ? orv()->rect() : widget(aim).geometry();
        const QPoint point = area.topLeft() + QPoint(upTo(area.width() - 1), upTo(area.height() - 1));
        QWidget* const hit = orv()->childAt(point);
        note("click at " + aim + ", reaches " + (hit ? hit->objectName() : "no control"));
        if (hit)
            press(hit, [&] { QTest::mouseClick(hit, Qt::LeftButton, {}, hit->mapFrom(orv(), point)); });
    }

    /// A key does what a click on the middle of its control would do.
    void pressKey(const QString& key, QString aim)
    {
        QWidget* const focus = orv()->focusWidget();
        note(key + " with the focus on " + focus->objectName());
        if (key == "Return" || key == "Space")
            aim = focus->objectName();
        else if (aim.startsWith("lifeline") && !game_.lifelinesOpen)
            aim = "LL";
        const QWidget* const target = !aim.isEmpty() && reaches(aim) ? &widget(aim) : nullptr;
        const bool open = !game_.locked && !shows("eraseoptions");
        const auto input = [&, keys = QKeySequence(key)[0]] {
            QTest::keyClick(focus, keys.key(), keys.keyboardModifiers());
        };
        press(target, input, key == "H" ? "choose option A" : "");
        if (key == "R")
            EXPECT_EQ(log.filter("Speak Your question is,,").size(), open);
        const QString now = orv() ? orv()->focusWidget()->objectName() : "";
        if (key.size() > 1 && QString("Right Left Up Down").contains(key))
            EXPECT_TRUE(open ? now.startsWith("option") && !text(now).isEmpty() : &widget(now) == focus);
    }

    /// `input` presses the control, which may be of any kind, or none.
    void press(const QWidget* reached, const std::function<void()>& input, QString box = "")
    {
        const QString name = reached && reached->isEnabled() ? reached->objectName() : "";
        const int k = name.right(1).toInt();
        if (name.startsWith("option") && !game_.locked) {
            game_.chosen = k;
            box = text(option(k)).isEmpty() ? "blank" : "lock it";
        } else if (name.startsWith("lifeline")) {
            box = game_.crossed.at(k - 1) ? "already used" : "";
        } else if (name == "leave") {
            box = "want to leave";
        } else if (name == "cmdokquit" || (name == "cmdok" && game_.won == lastQuestion)) {
            box = name == "cmdok" ? "Congrulations" : "Visit";
            regularEnd_ = true;
        }
        game_.lifelinesOpen ^= name == "LL";
        game_.ladderOpen ^= name == "mws";
        const int before = box == "lock it" ? tally(chosenTally()) : 0;
        input();
        EXPECT_TRUE(box_.contains(box) && box_.isEmpty() == box.isEmpty())
            << "What is pressed asks what it must and nothing else: " << box_.toStdString();
        if (name.startsWith("lifeline") && box.isEmpty())
            EXPECT_TRUE(k == 1 ? !shows("hidepoll") : k == 2 ? shows("clock") : blanks() == 2);
        if (box != "lock it")
            return;
        EXPECT_EQ(tally(chosenTally()), before + 1) << "Every choice, locked or taken back, is counted";
        EXPECT_EQ(tally("a + b + c + d"), ++choices_) << "once, for its own option.";
        EXPECT_TRUE(game_.locked || game_.lost || (shows("hidepoll") && !shows("clock"))) << "taken back";
    }

    void step(int longestMs)
    {
        const int span = upTo(longestMs);
        note(QString("wait %1 ms").arg(span));
        clock.advance(std::chrono::milliseconds(span));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    }

    /// Time passes under a box, the form cannot be reached. True: yes, OK.
    bool answerBox(const QString& text)
    {
        if (testing::Test::HasFailure())
            return true;
        for (const char* what : rare)
            seen[what] += text.contains(what);
        box_ = box_.isEmpty() ? text : box_;
        if (text.contains("First Name")) {
            game_.opening = orv()->bounds();
            for (QObject* child : orv()->findChildren<QObject*>())
                game_.controls.emplace(child->objectName(), child);
        }
        const bool locks = text.contains("lock it");
        const bool leaves = text.contains("want to leave");
        game_.farewells += text.contains("Visit");
        for (int steps = upTo(3); look(), steps > 0; --steps)
            step(chance(50) ? 900 : 6000);
        const bool yes = chance(locks ? 75 : leaves ? 20 : 100);
        note((yes ? "  yes to " : "  no to ") + text);
        game_.lost |= text.contains("answer was");
        game_.locked = locks ? yes && isRight(game_.chosen) : game_.locked;
        return yes;
    }

    /// The question that has just come into view.
    void readQuestion(const QString& question)
    {
        EXPECT_FALSE(game_.asked.contains(question)) << "No question is asked twice in a game.";
        EXPECT_EQ(game_.won, game_.asked.size())
            << "A question follows only after all before it have been won.";
        EXPECT_TRUE(blanks() == 0 && shows("hidepoll") && !shows("clock"));
        game_.asked << question;
        const int level = 1 + game_.won / questionsPerStep;
        game_.right = QString::fromStdString(
            bank.value("select lower(correct_answer) from questions where question = '" +
                       question.toStdString() + "' and Level = " + std::to_string(level)));
    }

    void look()
    {
        if (!orv() || testing::Test::HasFailure())
            return;
        const QString heard = std::exchange(log, {}).join('\n');
        const QString question = text("question");
        const QString ladder = text("stage", "plainText");
        const bool covered = shows("eraseoptions");
        if (ladder.count('X') > game_.won)
            EXPECT_TRUE(std::exchange(game_.locked, false))
                << "A prize is for a right answer that was locked.";
        game_.won = static_cast<int>(ladder.count('X'));
        if (!covered && question != game_.asked.value(game_.asked.size() - 1))
            readQuestion(question);

        const bool announced = shows("cmdok");
        const bool quits = shows("cmdokquit");
        const bool undecided = !announced && !game_.lost;
        const auto pays = [&](qsizetype rung) { return question.contains("Rs. " + prizeLadder().at(rung)); };
        const qsizetype kept = game_.lost ? game_.won - game_.won % questionsPerStep : game_.asked.size() - 1;
        EXPECT_EQ(announced, game_.won > 0 && game_.won == game_.asked.size());
        EXPECT_EQ(isEnabled("leave"), undecided);
        EXPECT_EQ(runs("random"), undecided && !game_.farewells);
        EXPECT_EQ(isEnabled("LL"), !covered);
        EXPECT_TRUE(covered ? (announced && pays(game_.won)) || (quits && pays(kept)) : undecided);
        lookAtLifelines(announced);
        EXPECT_EQ(runs("flash"), game_.locked);
        EXPECT_TRUE(game_.asked.isEmpty() || isRight(1) || isRight(2) || isRight(3) || isRight(4));

        game_.lifelinesOpen |= heard.contains("Try using the lifelines?");
        game_.ladderOpen |=
            heard.contains("You have currently won") || heard.contains("Now you will definately");
        const double w = game_.ladderOpen ? 2850 : 0;
        const double h = game_.lifelinesOpen ? 1000 : 0;
        const auto& [left, top, width, height] = game_.opening;
        EXPECT_EQ(orv()->bounds(), (toolkit::TwipRect{left - w / 2, top - h / 2, width + w, height + h}));
        const QString focus = orv()->focusWidget()->objectName();
        EXPECT_TRUE(isEnabled(focus) && (focus == "stage" || reaches(focus)));
    }

    void lookAtLifelines(bool announced)
    {
        const std::array effects{!shows("hidepoll"), shows("clock"), blanks() > 0};
        for (int i = 0; i < 3; ++i) {
            const bool crossed = shows(QString("l%1l1").arg(i + 1));
            EXPECT_EQ(shows(QString("l%1l2").arg(i + 1)), crossed);
            EXPECT_TRUE(crossed || (!game_.crossed[i] && !effects[i])) << i;
            game_.crossed[i] = crossed;
            EXPECT_EQ(isEnabled(QString("lifeline%1").arg(i + 1)), !announced);
        }
        EXPECT_TRUE(shows("clockback") == shows("clock") && runs("lifelinetimer") == shows("clock"));
        EXPECT_TRUE(!shows("clock") || text("clock").toInt() < 10);
        EXPECT_FALSE(announced && (effects[0] || effects[1]));
        EXPECT_EQ(blanks() % 2, 0);
    }

    [[nodiscard]] int blanks() const
    {
        int count = 0;
        for (int k = 1; k <= 4 && !game_.asked.isEmpty(); ++k)
            count += text(option(k)).isEmpty();
        return count;
    }
    [[nodiscard]] int tally(const std::string& what) const
    {
        return std::stoi(bank.value("select sum(" + what + ") from questions"));
    }
    /// Of the option chosen last.
    [[nodiscard]] std::string chosenTally() const
    {
        return std::string(1, "abcd"[game_.chosen - 1]) + " * (question = '" +
               game_.asked.back().toStdString() + "')";
    }
    [[nodiscard]] QString text(const QString& name, const char* property = "text") const
    {
        return widget(name).property(property).toString();
    }
    [[nodiscard]] static QString option(int k) { return QString("option%1").arg(k); }
    [[nodiscard]] bool shows(const QString& name) const { return !widget(name).isHidden(); }
    [[nodiscard]] bool isEnabled(const QString& name) const { return widget(name).isEnabled(); }
    [[nodiscard]] bool runs(const QString& timer) const
    {
        return dynamic_cast<toolkit::Timer&>(*game_.controls.at(timer)).isEnabled();
    }
    [[nodiscard]] QWidget& widget(const QString& name) const
    {
        return dynamic_cast<QWidget&>(*game_.controls.at(name));
    }
    /// By a click on its middle.
    [[nodiscard]] bool reaches(const QString& name) const
    {
        const auto& aim = widget(name);
        return orv()->childAt(aim.geometry().center()) == &aim;
    }
    [[nodiscard]] bool isRight(int k) const { return text(option(k)).mid(3).toLower() == game_.right; }
    [[nodiscard]] toolkit::Form* orv() const { return screens.find("orv"); }
    void note(const QString& action) { actions = actions.mid(actions.size() < 20 ? 0 : 1) << action; }
    int upTo(int last) { return std::uniform_int_distribution(0, last)(engine_); }
    bool chance(int percent) { return upTo(99) < percent; }

    std::mt19937 engine_;
    Game game_;
    QString box_;     ///< the first one that the action opened
    int choices_ = 0; ///< counted in the whole bank
    bool regularEnd_ = false;
};

} // namespace

TEST(RandomPlayer, MeetsAGameInOrderWhateverIsDone)
{
    constexpr int usual = 20;
    const int seed = support::seed(usual);
    RandomPlayer player(seed);
    for (int action = 0; action < 20'000 && !testing::Test::HasFailure(); ++action)
        player.act();
    EXPECT_FALSE(testing::Test::HasFailure()) << "--seed " << seed << ", the last actions:\n"
                                              << player.actions.join('\n').toStdString();
    for (const char* what : rare)
        EXPECT_TRUE(seed != usual || player.seen[what] > 0) << "this player never met: " << what;
}

} // namespace game

#include "tour.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QTemporaryDir>

#include <algorithm>
#include <functional>
#include <stdexcept>

namespace {

using desk::Scene;

// Every game draws the same questions, whose right answer is always B.
constexpr const char* bank = R"(
create table questions (question_id integer primary key, question text, answer1 text, answer2 text, answer3 text,
    answer4 text, correct_answer text, Level text, a integer, b integer, c integer, d integer);
create table users (username text, password text);
create table locking (message text);
insert into users values ('owner', 'secret');
insert into locking values ('Shall I lock your answer?');
with text(level, question, one, two, three, four) as (values
    (1, 'Which festival is known as the festival of lights?', 'Holi', 'Diwali', 'Onam', 'Pongal'),
    (2, 'Which planet has the largest ring system?', 'Mars', 'Saturn', 'Venus', 'Mercury'),
    (3, 'Who proved that there are infinitely many primes?', 'Plato', 'Euclid', 'Ptolemy', 'Homer')),
    number(n) as (values (1), (2), (3), (4), (5))
insert into questions select level * 10 + n, question, one, two, three, four, two, level, 12, 47, 23, 18
    from text, number order by level, n;
)";
constexpr int rightOption = 2;
constexpr int wrongOption = 3;

/// The host has opened the lifelines at a moment from which on they cannot be closed.
struct LifelinesInTheWay
{
};

/// One run of the program, from its start on.
class Tour
{
public:
    explicit Tour(Album& album)
        : album_(album),
          desk_({.screen = QSize(1024, 768) * album.scale(), .scale = QString::number(album.scale())})
    {
        SQLite::Database(folder_.filePath("orv.orv").toStdString(),
                         SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
            .exec(bank);
        if (!QFile::copy(DESK_HOST, folder_.filePath("genie.acs")))
            throw std::runtime_error(DESK_HOST " cannot be copied");
        desk_.start(folder_.path());
    }

    void pictureShell()
    {
        desk_.until("the end of the fading",
                    [](const Scene& scene) { return !scene.control("userselect", "Timer1").enabled; });
        album_.take(desk_, "welcome");
        desk_.click("userselect", "contestant");
        desk_.untilOnly("mainscreen");
        album_.take(desk_, "title");
        desk_.click("mainscreen", "Command1");
        desk_.untilOnly("rules");
        album_.take(desk_, "rules");
        desk_.click("rules", "startplay");
        untilHeSpeaks();
        album_.take(desk_, "name");
    }

    void pictureFirstQuestion()
    {
        desk_.enterName("Asha");
        untilQuestion();
        untilHeSpeaks();
        take("question", {});
        choose(rightOption);
        album_.take(desk_, "lock");
        desk_.answer("No");
        desk_.click("orv", "leave");
        desk_.box();
        album_.take(desk_, "withdraw");
        desk_.answer("No");
        win();
        take("right", {});
    }

    void pictureLifelines()
    {
        next();
        setPanels({.lifelines = true});
        desk_.click("orv", "lifeline1");
        untilHeSpeaks();
        take("lifelines", {.lifelines = true});
        desk_.click("orv", "lifeline2");
        desk_.until("the seventh second",
                    [](const Scene& scene) { return scene.control("orv", "clock").text.trimmed() == "7"; });
        take("friend", {.lifelines = true});
        desk_.answer("OK");
        desk_.click("orv", "lifeline3");
        desk_.until("an option less", [](const Scene& scene) {
            return scene.control("orv", "option4").text.isEmpty() ||
                   scene.control("orv", "option3").text.isEmpty();
        });
        win();
        take("taken", {.lifelines = true});
    }

    void pictureLadderAndTop()
    {
        for (int question = 3; question <= 15; ++question) {
            next();
            if (question == 7)
                take("ladder", {.ladder = true});
            win();
        }
        take("top", {});
        desk_.click("orv", "cmdok");
        desk_.box();
        album_.take(desk_, "congratulations");
        desk_.answer("OK");
        desk_.answer("OK");
        desk_.box();
        album_.take(desk_, "farewell");
        desk_.answer("OK");
        desk_.untilOnly("thank");
        album_.take(desk_, "thank");
    }

    void pictureWrongAnswer()
    {
        toFirstQuestion();
        choose(wrongOption);
        desk_.answer("Yes");
        desk_.box();
        album_.take(desk_, "wrong");
        desk_.answer("OK");
        desk_.untilFocus("orv", "cmdokquit");
        take("lost", {});
    }

    void pictureConsole()
    {
        desk_.click("userselect", "administrator");
        desk_.untilFocus("login", "username");
        album_.take(desk_, "login");
        desk_.display->type("owner\tsecret\r");
        openMenu("f", "file");
        album_.take(desk_, "console");
        desk_.display->type("q");
        desk_.untilFocus("admin", "question");
        album_.take(desk_, "editor");
        desk_.display->type("&a");
        untilText("questionid", "");
        desk_.display->type("Who?&s");
        desk_.box();
        album_.take(desk_, "refusal");
        desk_.answer("\r");
        pictureOtherChildren();
    }

private:
    struct Panels
    {
        bool lifelines = false;
        bool ladder = false;
        bool operator==(const Panels&) const = default;
    };

    void pictureOtherChildren()
    {
        desk_.display->type("&x");
        desk_.until("the editor to close",
                    [](const Scene& scene) { return !scene.at("admin").controls.contains("cmdnext"); });
        openMenu("m", "msg");
        desk_.display->type("m");
        desk_.untilFocus("admin", "message");
        album_.take(desk_, "messages");
        desk_.display->type("&x");
        desk_.until("the editor to close",
                    [](const Scene& scene) { return !scene.at("admin").controls.contains("message"); });
        openMenu("u", "users");
        desk_.display->type("c");
        desk_.untilFocus("admin", "username");
        album_.take(desk_, "password");
    }

    void openMenu(const QString& letter, const QString& menu)
    {
        desk_.untilKeyboard(desk_.untilOnly("admin").at("admin").window);
        desk_.display->type("&" + letter);
        desk_.until("the menu", [&](const Scene& scene) { return scene.shows(menu); });
    }

    void untilText(const QString& control, const QString& text)
    {
        desk_.until(control.toStdString(),
                    [&](const Scene& scene) { return scene.control("admin", control).text == text; });
    }

    void toRulesEnd()
    {
        desk_.click("userselect", "contestant");
        desk_.click("mainscreen", "Command1");
        desk_.click("rules", "startplay");
    }

    void toFirstQuestion()
    {
        toRulesEnd();
        desk_.enterName("Asha");
        untilQuestion();
    }

    void untilQuestion()
    {
        desk_.until("a question", [](const Scene& scene) {
            return scene.control("orv", "question").text.endsWith('?') &&
                   !scene.control("orv", "cmdok").visible;
        });
    }

    void untilHeSpeaks()
    {
        constexpr int someWords = 24;
        desk_.until("words of the host", [](const Scene& scene) {
            return scene.control("host", "balloon").text.size() > someWords;
        });
    }

    void choose(int option)
    {
        desk_.click("orv", QString("option%1").arg(option));
        desk_.box();
    }

    void win()
    {
        choose(rightOption);
        desk_.answer("Yes");
        desk_.untilFocus("orv", "cmdok");
    }

    void next()
    {
        desk_.click("orv", "cmdok");
        untilQuestion();
    }

    [[nodiscard]] Panels panels()
    {
        constexpr QSize closed(602, 434);
        const QSize size = desk_.display->place(desk_.windowOf("orv")).size() / album_.scale();
        return {.lifelines = size.height() > closed.height(), .ladder = size.width() > closed.width()};
    }

    /// A prompt of the host may open a panel at any moment.
    void setPanels(const Panels& wanted)
    {
        while (true) {
            QRect place;
            desk_.untilStays("the form at rest", [&](const Scene& scene) {
                const QRect former = std::exchange(place, desk_.display->place(scene.at("orv").window));
                return place == former;
            });
            const Panels now = panels();
            if (now == wanted)
                return;
            const bool wrongLifelines = now.lifelines != wanted.lifelines;
            if (wrongLifelines && !desk_.look().control("orv", "LL").enabled)
                throw LifelinesInTheWay();
            desk_.click("orv", wrongLifelines ? "LL" : "mws");
        }
    }

    void take(const QString& name, const Panels& wanted)
    {
        QImage picture;
        do {
            setPanels(wanted);
            picture = Album::atRest(desk_);
        } while (panels() != wanted);
        album_.add(name, picture);
    }

    Album& album_;
    QTemporaryDir folder_;
    desk::Desk desk_;
};

/// Begins anew where a prompt of the host gets in the way.
void run(Album& album, const std::function<void(Tour&)>& part)
{
    while (true) {
        try {
            Tour tour(album);
            return part(tour);
        } catch (const LifelinesInTheWay&) {
            continue;
        }
    }
}

} // namespace

void tour(Album& album)
{
    run(album, [](Tour& game) {
        game.pictureShell();
        game.pictureFirstQuestion();
        game.pictureLifelines();
        game.pictureLadderAndTop();
    });
    run(album, &Tour::pictureWrongAnswer);
    run(album, &Tour::pictureConsole);
}

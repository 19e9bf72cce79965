// Prints what the first window of the game costs in time and memory, what a game without its host holds, and
// what a bank of a million questions changes, as ratios to a bare program of the same libraries in the same
// run; and how it stands beside other games that teach, where they are installed.

#include "display.h"

#include "bench/figure.h"
#include "bench/measure.h"
#include "bench/server.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <random>
#include <set>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace std::chrono_literals;
using desk::Process;
using start::Display;

constexpr int runs = 41;
constexpr int looks = 5; // at memory, which hardly varies
constexpr int runsBesideOthers = 9;

struct Subject
{
    QString program;
    QString directory;
};

struct Series
{
    std::vector<double> milliseconds; // to the first painting
    std::vector<double> settled;      // MiB a second later
    std::vector<double> inGame;       // MiB a second after the first question has come
};

void waitFor(const std::string& what, const std::function<bool()>& condition)
{
    const auto deadline = std::chrono::steady_clock::now() + 60s;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline)
            throw std::runtime_error(what + " has not come");
        std::this_thread::sleep_for(500us);
    }
}

/// An X server with a window manager, for this process and what it starts.
class Desktop
{
public:
    Desktop()
    {
        waitFor("the window manager", [this] { return display_.isManaged(); });
    }

    [[nodiscard]] Display& display() { return display_; }

private:
    bench::Server server_;
    Process manager_{"openbox", {}, QProcessEnvironment::systemEnvironment()};
    Display display_{server_.name()};
};

/// The newest window called `title`, once `count` of that name have come that are not among `known`.
xcb_window_t newWindow(Display& display, const std::string& title, const std::set<xcb_window_t>& known,
                       int count = 1)
{
    xcb_window_t newest = XCB_NONE;
    const auto come = [&] {
        int found = 0;
        for (const xcb_window_t window : display.windows()) {
            if (!known.contains(window) && display.title(window) == title) {
                newest = window;
                ++found;
            }
        }
        return found == count;
    };
    waitFor("the window " + title, come);
    return newest;
}

/// A program on a desktop that was empty and had come to rest.
class Run
{
public:
    Run(Display& display, const Subject& subject) : Run(display, subject, atRest(display)) {}

    /// The first window, once it is painted.
    xcb_window_t firstPaint()
    {
        const auto isPainted = [this] {
            const auto windows = display_.windows();
            return !windows.empty() && display_.isPainted(windows.front());
        };
        waitFor("the first painting", isPainted);
        return display_.windows().front();
    }
    [[nodiscard]] double milliseconds() const
    {
        return bench::milliseconds(std::chrono::steady_clock::now() - start_);
    }
    /// In MiB, a second from now.
    [[nodiscard]] double settledMemory() const
    {
        std::this_thread::sleep_for(1s);
        return bench::mebibytes("Rss", std::to_string(process_.processId()));
    }

private:
    using Time = std::chrono::steady_clock::time_point;

    Run(Display& display, const Subject& subject, Time start)
        : display_(display),
          start_(start),
          process_(subject.program, {}, QProcessEnvironment::systemEnvironment(), subject.directory)
    {
    }

    static Time atRest(Display& display)
    {
        waitFor("an empty desktop", [&] { return display.windows().empty(); });
        std::this_thread::sleep_for(50ms);
        return std::chrono::steady_clock::now();
    }

    Display& display_;
    Time start_;
    Process process_;
};

/// Presses Return in the window; what was on the desktop just before.
std::set<xcb_window_t> confirm(Display& display, xcb_window_t window)
{
    waitFor("the keyboard", [&] { return display.focused() == window; });
    std::this_thread::sleep_for(200ms);
    const auto known = display.windows();
    display.type("\r");
    return {known.begin(), known.end()};
}

void measureStart(Display& display, const Subject& subject, Series& series)
{
    Run run(display, subject);
    run.firstPaint();
    series.milliseconds.push_back(run.milliseconds());
}

void measureSettled(Display& display, const Subject& subject, Series& series)
{
    Run run(display, subject);
    run.firstPaint();
    series.settled.push_back(run.settledMemory());
}

void measureGame(Display& display, const Subject& subject, Series& series)
{
    Run run(display, subject);
    xcb_window_t window = run.firstPaint();
    window = newWindow(display, "Orvanta", confirm(display, window));
    window = newWindow(display, "Orvanta : Rules", confirm(display, window));
    // The backdrop, the game and, over both, the prompt for the name.
    const xcb_window_t prompt = newWindow(display, "Orvanta", confirm(display, window), 3);
    confirm(display, prompt);
    waitFor("the first question", [&] { return !std::ranges::count(display.windows(), prompt); });
    series.inGame.push_back(run.settledMemory());
}

/// The starts of each subject. What follows another program is slower than what follows itself, so the order
/// changes.
std::vector<Series> measureStarts(Display& display, const std::vector<Subject>& subjects, int rounds)
{
    std::vector<Series> series(subjects.size());
    std::minstd_rand random;
    std::vector<std::size_t> order;
    for (const Subject& subject : subjects) {
        Series warmUp;
        measureStart(display, subject, warmUp);
        order.push_back(order.size());
    }
    for (int round = 0; round < rounds; ++round) {
        std::ranges::shuffle(order, random);
        for (const std::size_t i : order)
            measureStart(display, subjects[i], series[i]);
    }
    for (int look = 0; look < looks; ++look)
        for (const std::size_t i : order)
            measureSettled(display, subjects[i], series[i]);
    return series;
}

void compareWithFloor(Display& display, const Subject& small, const Subject& large)
{
    auto series = measureStarts(display, {{START_FLOOR, small.directory}, small, large}, runs);
    Series& floor = series[0];
    Series& game = series[1];
    Series& largeGame = series[2];
    for (int look = 0; look < looks; ++look) {
        measureGame(display, small, game);
        measureGame(display, large, largeGame);
    }
    const auto print = [](const char* what, const char* unit, const std::vector<double>& values,
                          const std::vector<double>& floors, double atMost) {
        bench::print({what, values, unit, floors, atMost});
    };
    print("start to the first painted window, against a bare program", "ms", game.milliseconds,
          floor.milliseconds, 1.2);
    print("memory at the first screen, against the same", "MiB", game.settled, floor.settled, 1.3);
    print("memory in a game without its host, against the same", "MiB", game.inGame, floor.settled, 1.6);
    print("start on 1,000,000 questions, against 300", "ms", largeGame.milliseconds, game.milliseconds, 1.1);
    print("memory in a game on 1,000,000 questions, against 300", "MiB", largeGame.inGame, game.inGame, 1.2);
}

void compareWithOthers(Display& display, const Subject& game)
{
    for (const char* other : {"kbruch", "kgeography", "klettres"}) {
        std::vector<Series> series(2);
        if (!QStandardPaths::findExecutable(other).isEmpty())
            series = measureStarts(display, {game, {other, game.directory}}, runsBesideOthers);
        bench::print({std::string("start, against ") + other, series[0].milliseconds, "ms",
                      series[1].milliseconds, 1});
        bench::print({std::string("memory at the first screen, against ") + other, series[0].settled, "MiB",
                      series[1].settled, 1});
    }
}

void measure(const QTemporaryDir& directory)
{
    const auto subject = [&](int questions) {
        const Subject game{START_PROGRAM, directory.filePath(QString::number(questions))};
        QDir().mkdir(game.directory);
        bench::makeBank(game.directory + "/orv.orv", questions);
        return game;
    };
    const Subject small = subject(bench::few);
    const Subject large = subject(bench::many);
    Desktop desktop;
    bench::printHeading("bench_start");
    compareWithFloor(desktop.display(), small, large);
    compareWithOthers(desktop.display(), small);
}

} // namespace

int main(int argc, char** argv)
{
    try {
        const QCoreApplication application(argc, argv);
        const QTemporaryDir directory;
        for (const char* name : {"HOME", "XDG_RUNTIME_DIR"})
            qputenv(name, directory.path().toUtf8());
        qputenv("LC_ALL", "C.UTF-8");
        qputenv("ALSA_CONFIG_PATH", "/dev/null");         // nobody wants to hear it
        qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:"); // nor wait for what others start
        qputenv("QT_SCALE_FACTOR", "1");                  // the game would grow to the screen, others not
        for (const char* name : {"WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            qunsetenv(name);
        measure(directory);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "bench_start: %s\n", failure.what());
        return 1;
    }
    return 0;
}

// Prints what the first window of the game costs in time and memory, what a game without its host holds, and
// what a bank of a million questions changes, as ratios to a bare program of the same libraries in the same
// run.

#include "display.h"

#include "bench/measure.h"
#include "bench/program.h"
#include "bench/server.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <random>
#include <set>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace std::chrono_literals;
using bench::Program;
using start::Display;

constexpr int runs = 41;
constexpr int looks = 5;                 // at memory, which hardly varies
constexpr std::uint32_t navy = 0x000080; // the ground of both first windows

struct Subject
{
    const char* program;
    const char* title;
    std::filesystem::path directory;
};

struct Series
{
    std::vector<double> milliseconds; // to the first painting
    std::vector<double> atFirst;      // MiB at that moment
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
    Desktop() : manager_({"openbox"})
    {
        waitFor("the window manager", [this] { return display_.isManaged(); });
    }

    [[nodiscard]] Display& display() { return display_; }

private:
    bench::Server server_;
    Program manager_;
    Display display_{QByteArray::fromStdString(server_.name())};
};

/// The newest window called `title`, once `count` of that name have come that are not among `known`.
xcb_window_t newWindow(Display& display, const std::string& title, const std::set<xcb_window_t>& known = {},
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

xcb_window_t firstPaint(Display& display, const Subject& subject)
{
    const xcb_window_t window = newWindow(display, subject.title);
    waitFor("the first painting", [&] { return display.ground(window) == navy; });
    return window;
}

/// Starts the program on an empty desktop that has come to rest.
Program launch(Display& display, const Subject& subject)
{
    waitFor("an empty desktop", [&] { return display.windows().empty(); });
    std::this_thread::sleep_for(50ms);
    return Program({subject.program}, subject.directory);
}

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
    const Program program = launch(display, subject);
    firstPaint(display, subject);
    const std::chrono::duration<double, std::milli> taken =
        std::chrono::steady_clock::now() - program.started();
    series.milliseconds.push_back(taken.count());
    series.atFirst.push_back(program.resident());
}

void measureSettled(Display& display, const Subject& subject, Series& series)
{
    const Program program = launch(display, subject);
    firstPaint(display, subject);
    std::this_thread::sleep_for(1s);
    series.settled.push_back(program.resident());
}

void measureGame(Display& display, const Subject& subject, Series& series)
{
    const Program program = launch(display, subject);
    xcb_window_t window = firstPaint(display, subject);
    window = newWindow(display, "Orvanta", confirm(display, window));
    window = newWindow(display, "Orvanta : Rules", confirm(display, window));
    // The window of the game and, over it, the prompt for the name.
    const xcb_window_t prompt = newWindow(display, "Orvanta", confirm(display, window), 2);
    confirm(display, prompt);
    waitFor("the first question", [&] { return !std::ranges::count(display.windows(), prompt); });
    std::this_thread::sleep_for(1s);
    series.inGame.push_back(program.resident());
}

void print(const Series& floor, const Series& game, const Series& largeGame)
{
    struct Line
    {
        const char* what;
        const std::vector<double>& values;
        const std::vector<double>& floor;
        const char* bound;
        const char* unit;
    };
    const Line lines[] = {
        {"start to the first painted window", game.milliseconds, floor.milliseconds, "1.2", "ms"},
        {"memory at that moment", game.atFirst, floor.atFirst, "1.3", "MiB"},
        {"memory at the first screen, settled", game.settled, floor.settled, "1.3", "MiB"},
        {"memory in a game without its host", game.inGame, floor.settled, "1.6", "MiB"},
        {"start, bank of 1,000,000 beside 300", largeGame.milliseconds, game.milliseconds, "1.0 +- noise",
         "ms"},
        {"memory settled, 1,000,000 beside 300", largeGame.settled, game.settled, "1.0 +- noise", "MiB"},
        {"memory in a game, 1,000,000 beside 300", largeGame.inGame, game.inGame, "", "MiB"},
    };
    std::printf("%s build, medians of %d starts and of %d looks at memory\n", START_BUILD, runs, looks);
    std::printf("%-40s %6s   %-12s   %s\n", "", "ratio", "bound", "value / floor");
    for (const auto& [what, values, base, bound, unit] : lines) {
        const double value = bench::median(values);
        const double beside = bench::median(base);
        std::printf("%-40s %6.2f   %-12s   %.1f / %.1f %s\n", what, value / beside, bound, value, beside,
                    unit);
    }
}

void measure(const std::filesystem::path& directory)
{
    const auto small = directory / "300";
    const auto large = directory / "1000000";
    for (const auto& [folder, questions] : {std::pair(small, bench::few), {large, bench::many}}) {
        std::filesystem::create_directory(folder);
        bench::makeBank(QString::fromStdString(folder / "orv.orv"), questions);
    }
    Desktop desktop;
    Display& display = desktop.display();

    const Subject subjects[] = {{START_FLOOR, "Floor", small},
                                {START_PROGRAM, "Welcome to Orvanta", small},
                                {START_PROGRAM, "Welcome to Orvanta", large}};
    Series series[std::size(subjects)];
    for (const Subject& subject : subjects) {
        Series warmUp;
        measureStart(display, subject, warmUp);
    }
    // What follows another program is slower than what follows itself, so the order changes.
    std::minstd_rand random;
    std::vector<std::size_t> order = {0, 1, 2};
    for (int run = 0; run < runs; ++run) {
        std::ranges::shuffle(order, random);
        for (const std::size_t i : order)
            measureStart(display, subjects[i], series[i]);
    }
    for (int look = 0; look < looks; ++look) {
        for (const std::size_t i : order)
            measureSettled(display, subjects[i], series[i]);
        measureGame(display, subjects[1], series[1]);
        measureGame(display, subjects[2], series[2]);
    }
    print(series[0], series[1], series[2]);
}

} // namespace

int main()
{
    try {
        const bench::PrivateDirectory directory;
        setenv("XDG_RUNTIME_DIR", directory.path().c_str(), 1);
        setenv("LC_ALL", "C.UTF-8", 1);
        setenv("ALSA_CONFIG_PATH", "/dev/null", 1); // nobody wants to hear it
        for (const char* name : {"WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "QT_SCALE_FACTOR"})
            unsetenv(name);
        measure(directory.path());
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "bench_start: %s\n", failure.what());
    }
    return 0;
}

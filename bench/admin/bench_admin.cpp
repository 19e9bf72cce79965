// Prints what the question editor costs on a bank of a million questions beside a small one: opening it, the
// moves, and a save with the durable write that belongs to it.

#include "admin/add_questions.h"
#include "bench/figure.h"
#include "bench/measure.h"
#include "toolkit/desktop.h"
#include "toolkit/desktop_services.h"
#include "toolkit/screens.h"

#include <QApplication>
#include <QDir>

#include <algorithm>
#include <cstdio>
#include <map>

namespace {

using namespace bench;

constexpr int rounds = 25;

class NoDialogs final : public toolkit::Dialogs
{
public:
    void notice(QWidget*, const QString& title, const QString& text, Icon icon) override
    {
        if (icon == Icon::Exclamation)
            std::printf("%s: %s\n", qPrintable(title), qPrintable(text));
    }
    [[nodiscard]] bool confirm(QWidget*, const QString&, const QString&) override { return false; }
    [[nodiscard]] QString input(QWidget*, const QString&, const QString&, const QString&) override
    {
        return {};
    }
};

class NoRandom final : public toolkit::Random
{
public:
    void reseed() override {}
    float next() override { return 0; }
};

/// The times in milliseconds by what was done.
std::map<std::string, std::vector<double>> measure(toolkit::Services services, const QString& bank)
{
    QDir::setCurrent(QFileInfo(bank).path());
    QFile::remove("orv.orv");
    QFile::rename(bank, "orv.orv");
    std::map<std::string, std::vector<double>> times;
    for (int round = 0; round < rounds; ++round) {
        times["open"].push_back(milliseconds([&] { services.screens.show("addquestions"); }));
        toolkit::Form& form = *services.screens.find("addquestions");
        const auto press = [&](const char* what, const char* button) {
            auto* control = form.findChild<toolkit::Button*>(button);
            times[what].push_back(milliseconds([&] {
                control->click();
                QApplication::processEvents();
            }));
        };
        press("last", "cmdlast");
        press("previous", "cmdprevious");
        press("next", "cmdnext");
        form.findChild<toolkit::TextBox*>("question")->setText(QString("Changed %1").arg(round));
        press("update", "cmdupdate");
        press("first", "cmdfirst");
        form.findChild<toolkit::Button*>("cmdadd")->click();
        for (const char* box : {"question", "answer1", "answer2", "answer3", "answer4"})
            form.findChild<toolkit::TextBox*>(box)->setText(box);
        for (const char* list : {"correctanswer", "level"})
            form.findChild<toolkit::ChoiceList*>(list)->setCurrentIndex(2);
        press("save", "cmdsave");
        services.screens.close("addquestions");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return times;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    toolkit::silenceLibraryWarnings();
    const QApplication application(argc, argv);
    NoDialogs dialogs;
    NoRandom random;
    toolkit::DesktopBrowser browser;
    toolkit::DesktopBeeper beeper;
    toolkit::SystemClock clock;
    toolkit::Screens screens;
    const toolkit::Services services{screens, dialogs, random, browser, beeper, clock};
    screens.add("addquestions", [&] { return std::make_unique<admin::AddQuestions>(services); });

    const QTemporaryDir directory;
    const auto small = measure(services, makeBank(directory.filePath("few"), few));
    const double memory = mebibytes();
    const auto large = measure(services, makeBank(directory.filePath("many"), many));
    printHeading("bench_admin");
    double slowest = 0;
    for (const auto& [what, values] : large) {
        print({"question editor on 1,000,000, against 300: " + what, values, "ms", small.at(what), 1.5});
        slowest = std::max(slowest, median(values));
    }
    print({"its slowest step on 1,000,000", {slowest}, "ms", {}, 50});
    print({"its memory on 1,000,000, against 300", {mebibytes()}, "MiB", {memory}, 1.2});
    return 0;
}

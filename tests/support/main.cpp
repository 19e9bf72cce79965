#include "support/seed.h"
#include "toolkit/desktop.h"

#include <QApplication>
#include <QDeadlineTimer>

#include <gtest/gtest.h>

#include <cstdio>
#include <optional>
#include <random>

namespace {

std::optional<int> wantedSeed;

} // namespace

int support::seed(int usual)
{
    return wantedSeed.value_or(usual);
}

int main(int argc, char** argv)
{
    toolkit::silenceLibraryWarnings();
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleTest(&argc, argv);
    const QStringList words = QApplication::arguments();
    const auto number = [&words](const char* option) {
        return words.value(words.indexOf(option) + 1).toInt();
    };
    if (words.contains("--seed"))
        wantedSeed = number("--seed");
    const QDeadlineTimer end(std::chrono::minutes(number("--minutes")));
    if (end.hasExpired())
        return RUN_ALL_TESTS();
    GTEST_FLAG_SET(filter, "Random*");
    int result = 0;
    for (std::random_device seeds; result == 0 && !end.hasExpired(); result = RUN_ALL_TESTS()) {
        wantedSeed = static_cast<int>(seeds() % 1'000'000);
        std::printf("--seed %d\n", *wantedSeed);
    }
    return result;
}

#include "owner.h"

#include <csignal>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

namespace admin {

namespace {

/// Adds question after question and changes each one, writing a byte for every confirmation; never returns.
[[noreturn]] void work(Owner& owner, int confirmed)
{
    owner.open({"addquestions"});
    owner.dialogs.answer = [confirmed](const auto&) -> QString {
        if (write(confirmed, "", 1) != 1)
            _exit(1);
        return {};
    };
    for (;;)
        owner.run(
            "cmdadd; question=new; answer1=a; answer2=b; answer3=c; answer4=d; correctanswer#0; level#1; "
            "cmdsave; question=changed; answer4=z; correctanswer#3; cmdupdate; cmdfirst",
            "addquestions");
}

/// How many writes the questions hold that were added, and how many of those are not whole.
constexpr const char* added = "select sum(1 + (question = 'changed')) || ' ' || sum(question || answer4 || "
                              "correct_answer || Level || a || d"
                              " not in ('newda111', 'changedzz111')) from questions where question_id > 7";

} // namespace

TEST(Killed, WhileSavingNothingIsHalfThereAndWhatWasConfirmedIs)
{
    std::mt19937 random(20);
    for (int kill = 0; kill < 100; ++kill) {
        Owner owner;
        int pipes[2];
        ASSERT_EQ(pipe(pipes), 0);
        const pid_t child = fork();
        if (child == 0)
            work(owner, pipes[1]);
        close(pipes[1]);
        int confirmed = 0;
        char sign = 0;
        for (; confirmed <= kill % 6; ++confirmed)
            ASSERT_EQ(read(pipes[0], &sign, 1), 1);
        usleep(std::uniform_int_distribution(0, 20000)(random));
        ::kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        for (; read(pipes[0], &sign, 1) == 1; ++confirmed) {
        }
        close(pipes[0]);

        EXPECT_EQ(owner.bank.value("pragma integrity_check"), "ok");
        const std::string writes = owner.bank.value(added);
        EXPECT_TRUE(writes == std::to_string(confirmed) + " 0" ||
                    writes == std::to_string(confirmed + 1) + " 0")
            << writes << ", confirmed " << confirmed;
    }
}

} // namespace admin

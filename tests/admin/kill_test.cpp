#include "owner.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <csignal>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

namespace admin {

namespace {

constexpr int kills = 100;

/// Adds question after question and changes each one, writing a byte for every confirmation; never returns.
[[noreturn]] void work(Owner& owner, int confirmed)
{
    owner.open({"addquestions"});
    owner.dialogs.onBox = [confirmed](const QString& text) {
        const char sign = text == "Successfully Saved" ? 's' : text == "Record Updated" ? 'u' : '!';
        if (write(confirmed, &sign, 1) != 1)
            _exit(1);
    };
    for (;;) {
        owner.run("addquestions",
                  "cmdadd; question=new; answer1=a; answer2=b; answer3=c; answer4=d; correctanswer#0;"
                  " level#1; cmdsave");
        owner.run("addquestions", "question=changed; answer4=z; correctanswer#3; cmdupdate; cmdfirst");
    }
}

std::string readAll(int from)
{
    std::string text;
    char sign = 0;
    while (read(from, &sign, 1) == 1)
        text += sign;
    return text;
}

} // namespace

TEST(Killed, WhileSavingNothingIsHalfThereAndWhatWasConfirmedIs)
{
    std::mt19937 random(20);
    for (int kill = 0; kill < kills; ++kill) {
        Owner owner;
        int pipes[2];
        ASSERT_EQ(pipe(pipes), 0);
        const pid_t child = fork();
        if (child == 0)
            work(owner, pipes[1]);
        close(pipes[1]);
        std::string confirmed;
        for (char sign = 0; static_cast<int>(confirmed.size()) <= kill % 6; confirmed += sign)
            ASSERT_EQ(read(pipes[0], &sign, 1), 1);
        usleep(std::uniform_int_distribution(0, 20000)(random));
        ::kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        confirmed += readAll(pipes[0]);
        close(pipes[0]);

        SQLite::Database file(owner.bank.path().toStdString(), SQLite::OPEN_READWRITE);
        const auto count = [&file](const char* condition) {
            return file
                .execAndGet(std::string("select count(*) from questions where question_id > 7 and ") +
                            condition)
                .getInt();
        };
        EXPECT_EQ(file.execAndGet("pragma integrity_check").getString(), "ok");
        const int added =
            count("question || answer1 || answer2 || answer3 || answer4 || correct_answer || Level"
                  " || a || b || c || d = 'newabcda11111'");
        const int changed =
            count("question || answer1 || answer2 || answer3 || answer4 || correct_answer || Level"
                  " || a || b || c || d = 'changedabczz11111'");
        EXPECT_EQ(count("true"), added + changed) << "half a row";
        const auto told = [&confirmed](char sign) { return std::ranges::count(confirmed, sign); };
        EXPECT_EQ(told('!'), 0);
        EXPECT_GE(changed, told('u'));
        EXPECT_LE(changed, told('u') + 1);
        EXPECT_GE(added + changed, told('s'));
        EXPECT_LE(added + changed, told('s') + 1);
    }
}

} // namespace admin

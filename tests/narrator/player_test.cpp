#include "narrator/player.h"
#include "support/sample.h"
#include "support/scripted_speaker.h"

#include <gtest/gtest.h>

using namespace narrator;
using namespace std::chrono_literals;
using Milliseconds = std::chrono::milliseconds;

constexpr auto middle = [] { return 0.5; };

TEST(Player, CarriesRequestsOutOneAfterAnotherUntilStopped)
{
    // In a script "!" stops, "/" skips, a number speaks a text of that length, of which the log has what is
    // said, "+" and "@" watch for and leap to milliseconds, and the rest are gestures. They take a second,
    // the hand is open from 100 ms to 900 ms.
    const struct
    {
        Milliseconds delay, length; ///< of the voice; no length for the silent one
        const char* script;
        const char* log; ///< when something else was to be seen
    } table[]{
        {0ms, 0ms, "Greet 5 unknown 0 60 think think +9000",
         " 0:- 100:gesture 900:- 1000:5 2500:60 6500:- 6600:gesture 7400:- 7600:gesture 8400:- 8700:idle"},
        {0ms, 200ms, "5 4 +4000 7 +1600", " 0:5 1500:4 3000:idle 4000:7 5500:idle"},
        {700ms, 900ms, "5 4 +9000", " 0:0 700:5 2200:0 2900:4 4400:idle"}, // counted from the first word
        {100ms, 3900ms, "5 4 +9000", " 0:0 100:5 4000:0 4100:4 8000:idle"},
        {0ms, 1h, "! 60 Greet 11 +1000 ! +5000 Greet +300 ! Greet +2000",
         " 0:60 1000:idle 6000:- 6100:gesture 7200:- 7500:idle"},
        {0ms, 1h, "60 Greet 11 +1000 / +300 / +1000 / / +500", // not the gesture
         " 0:60 1000:- 1100:gesture 1900:- 2000:11 2300:idle"},
        {0ms, 0ms, "5 4 @1600 / +500", " 1600:idle"}, // the second, which has begun by then
        {0ms, 0ms, "Greet 60 Greet 60 Greet @9000 +3000 60 think 60 @3600000 +100", // catches up
         " 9000:60 10000:- 10100:gesture 10900:- 11200:idle"},
    };
    const rig::Rig rig = sample::rig();
    for (const auto& row : table) {
        support::ScriptedSpeaker speaker;
        speaker.script.opens = row.delay;
        speaker.speech = {{{0ms, 100}}, {}, row.length};
        voice::Voice voice(row.length > 0ms ? &speaker : nullptr);
        Player player(rig, voice, middle, 0ms);
        Milliseconds now{0};
        std::string log;
        for (const QString& step : QString::fromLatin1(row.script).split(u' ')) {
            const Milliseconds span(step.mid(1).toInt());
            if (step[0] == u'!')
                player.stop(now);
            else if (step[0] == u'/')
                player.skip(now);
            else if (step[0].isDigit())
                player.speak(QString(step.toInt(), u'x'), now);
            else if (step[0].isLetter())
                player.play(step, now);
            else if (step[0] == u'@')
                now = span;
            for (const auto end = now + span; step[0] == u'+' && now < end; now += 50ms) {
                speaker.now = now;
                const Frame frame = player.frame(now);
                const bool moving = frame.pose.switches != rig.rest.switches;
                const std::string seen = !frame.text.isEmpty()
                                             ? std::to_string(frame.text.left(frame.said).size())
                                         : moving           ? "gesture"
                                         : player.idle(now) ? "idle"
                                                            : "-";
                if (!log.ends_with(":" + seen))
                    log += " " + std::to_string(now.count()) + ":" + seen;
            }
        }
        EXPECT_EQ(log, row.log);
        EXPECT_TRUE(player.idle(now));
        EXPECT_FALSE(speaker.speaking);
    }
}

TEST(Player, KeepsStillButForThePoseOfEachGesture)
{
    const rig::Rig rig = sample::rig();
    voice::Voice voice(nullptr);
    Player player(rig, voice, middle, 0ms);
    player.keepStill(true);
    player.play("Greet", 1s);
    for (const Milliseconds now : {1000ms, 1500ms, 1990ms})
        EXPECT_EQ(player.frame(now).pose, rig::poseAt(rig, {rig.gesture("Greet"), rig.rest}, 500));
    player.speak("Well", 2s);
    for (const Milliseconds now : {2000ms, 2150ms, 4000ms})
        EXPECT_EQ(player.frame(now).pose, rig.rest);
    player.keepStill(false);
    EXPECT_NE(player.frame(5s).pose, rig.rest);
}

TEST(Player, GivesEveryTextItsReadingTime)
{
    for (const auto& [text, time] : {std::pair(QString(",,"), 0ms),
                                     {QString(22, u'?'), 1500ms},
                                     {QString(23, u'a'), 1534ms},
                                     {QString(1'000'000, u'a'), 66'666'667ms}})
        EXPECT_EQ(readingTime(text), time);
}

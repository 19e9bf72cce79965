#include "support/scripted_speaker.h"
#include "voice/voice.h"

#include <gtest/gtest.h>

#include <array>

using namespace voice;
using namespace std::chrono_literals;
using Milliseconds = std::chrono::milliseconds;

TEST(Voice, KeepsTimeWithEveryKindOfSound)
{
    constexpr Milliseconds never = 1h;
    const struct
    {
        const char* sound;
        support::ScriptedSpeaker::Script script;
        std::array<Milliseconds, 3> marks; ///< when the words begin, and when all is over
        Milliseconds away = never;         ///< for a minute nobody looks
    } table[]{
        {"plays", {60ms, 60ms, 100ms, never}, {100ms, 560ms, 1100ms}},
        {"is not there", {60ms, 60ms, never, 0ms}, {60ms, 520ms, 1060ms}},
        {"arrives late", {60ms, 60ms, 3s, never}, {3s, 3460ms, 4s}},
        {"dies", {60ms, 60ms, 100ms, 400ms}, {100ms, 570ms, 1110ms}},
        {"is slow", {60ms, 60ms, 100ms, never, 50}, {100ms, 1020ms, 2100ms}},
        {"misses the rest", {60ms, never, 100ms, never}, {100ms, 560ms, 3100ms}},
        {"misses the rest for a while", {60ms, 62s, 100ms, never}, {100ms, 560ms, 62s}, 1200ms},
        {"comes late, but is made", {900ms, 900ms, 950ms, never}, {950ms, 1410ms, 1950ms}},
        {"is never made", {never, never, never, never}, {2010ms, 2240ms, 2480ms}}, // read instead
    };
    for (const auto& row : table) {
        support::ScriptedSpeaker speaker;
        speaker.speech = {{{0ms, 3}, {500ms, 7}}, {{0ms, mouth::Shape::A}, {500ms, mouth::Shape::O}}, 1s};
        speaker.script = row.script;
        Voice voice(&speaker);
        voice.say("One two", 0ms);
        std::array<Milliseconds, 3> marks{never, never, never};
        Moment moment;
        for (Milliseconds now{0}; now < 65s; now += now == row.away ? 60s : 10ms) {
            speaker.now = now;
            moment = voice.at(now);
            const bool reached[]{moment.said >= 3, moment.said == 7, moment.over.has_value()};
            for (std::size_t i = 0; i < marks.size(); ++i)
                marks.at(i) = reached[i] ? std::min(marks.at(i), now) : never;
            EXPECT_EQ(moment.said > 0, moment.begun.has_value()) << row.sound;
            if (moment.said == 3 && row.script.made < never)
                EXPECT_EQ(moment.mouth, mouth::Shape::A); // which moves with the word
        }
        EXPECT_EQ(marks, row.marks) << row.sound;
        EXPECT_NEAR(static_cast<double>((moment.begun.value() - row.marks[0]).count()), 0, 10) << row.sound;
        EXPECT_EQ(moment.mouth, mouth::Shape::Rest);
    }
}

TEST(Voice, CatchesUpInSilence)
{
    support::ScriptedSpeaker speaker;
    Voice voice(&speaker);
    voice.say("One two", 1s);
    EXPECT_EQ(voice.at(60s).over, 1467ms); // read by then
    EXPECT_FALSE(speaker.speaking);
    voice.hush();
    EXPECT_EQ(voice.at(60s).said, 0);
}

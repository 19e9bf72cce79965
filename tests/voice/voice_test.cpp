#include "voice/voice.h"

#include <gtest/gtest.h>

using namespace voice;
using namespace std::chrono_literals;
using Milliseconds = std::chrono::milliseconds;

namespace {

/// Makes a second of speech, half for each of two words, as its times say.
struct ScriptedSpeaker final : Speaker
{
    Ticket start(std::vector<SpokenPiece>) override
    {
        begun = now;
        return ++tickets;
    }
    void stop(Ticket) override { ++stops; }
    void giveUpSound(Ticket) override { opens = dies = Milliseconds::min(); }
    Progress progress(Ticket, std::size_t known, Milliseconds) override
    {
        const Milliseconds time = now - begun;
        const bool fresh = time >= made && known == 0;
        Progress progress{{}, time >= whole, time >= dies ? Sound::Lost : Sound::Waiting, 0ms};
        if (fresh)
            progress.fresh = {{{{0ms, 3}, {500ms, 7}}, {{0ms, MouthShape::A}, {500ms, MouthShape::O}}, 1s}};
        if (time >= opens && time < dies) {
            progress.sound = Sound::Playing;
            progress.played = std::min<Milliseconds>(1s, (time - opens) * percent / 100);
        }
        return progress;
    }
    void setMuted(bool) override {}
    [[nodiscard]] bool muted() const override { return false; }

    Milliseconds now{0}, begun{0};
    Milliseconds made{0};  ///< times since the text was begun
    Milliseconds whole{0}; ///< when it turns out that no more will be made
    Milliseconds opens{0}, dies{0};
    int percent = 100; ///< of the right speed
    Ticket tickets = 0;
    int stops = 0;
};

} // namespace

TEST(Voice, KeepsTimeWithEveryKindOfSound)
{
    constexpr Milliseconds never = 1h;
    const struct
    {
        const char* sound;
        Milliseconds made, whole, opens, dies;
        int percent;
        Milliseconds first, second, last; ///< when the words begin, and when all is over
    } table[]{
        {"plays", 60ms, 60ms, 100ms, never, 100, 100ms, 560ms, 1100ms},
        {"is not there", 60ms, 60ms, never, 0ms, 100, 60ms, 520ms, 1060ms},
        {"never opens", 60ms, 60ms, never, never, 100, 560ms, 1020ms, 1560ms},
        {"dies", 60ms, 60ms, 100ms, 400ms, 100, 100ms, 570ms, 1110ms},
        {"is slow", 60ms, 60ms, 100ms, never, 50, 100ms, 1020ms, 2100ms},
        {"misses the rest", 60ms, never, 100ms, never, 100, 100ms, 560ms, 3100ms},
        {"comes late, but is made", 900ms, 900ms, 950ms, never, 100, 950ms, 1410ms, 1950ms},
        {"is never made", never, never, never, never, 100, 2010ms, 2240ms, 2480ms}, // read instead
    };
    for (const auto& row : table) {
        ScriptedSpeaker speaker;
        speaker.made = row.made;
        speaker.whole = row.whole;
        speaker.opens = row.opens;
        speaker.dies = row.dies;
        speaker.percent = row.percent;
        SpeakingVoice voice(&speaker);
        voice.say("One two", 0ms);
        Milliseconds seen[3]{never, never, never};
        for (Milliseconds now{0}; now < 5s; now += 10ms) {
            speaker.now = now;
            const qsizetype said = voice.said(now);
            const bool marks[]{said >= 3, said == 7, voice.lastWord(now).has_value()};
            for (std::size_t i = 0; i < std::size(marks); ++i)
                seen[i] = marks[i] ? std::min(seen[i], now) : seen[i];
            EXPECT_EQ(said > 0, voice.firstWord(now).has_value()) << row.sound;
        }
        EXPECT_EQ(seen[0], row.first) << row.sound;
        EXPECT_EQ(seen[1], row.second) << row.sound;
        EXPECT_EQ(seen[2], row.last) << row.sound;
        EXPECT_NEAR(static_cast<double>((voice.firstWord(5s).value() - row.first).count()), 0, 10)
            << row.sound;
        EXPECT_EQ(voice.mouth(5s), MouthShape::Rest);
    }
}

TEST(Voice, MovesTheLipsAheadAndCatchesUpInSilence)
{
    ScriptedSpeaker speaker;
    speaker.dies = 1h;
    SpeakingVoice voice(&speaker);
    voice.say("One two", 0ms);
    speaker.now = 455ms;
    EXPECT_EQ(voice.mouth(455ms), MouthShape::A);
    speaker.now = 465ms;
    EXPECT_EQ(voice.mouth(465ms), MouthShape::O);
    voice.hush();
    EXPECT_EQ(voice.mouth(465ms), MouthShape::Rest);
    EXPECT_EQ(speaker.stops, 1);
    voice.say("One two", 1s);
    EXPECT_EQ(voice.lastWord(60s), 1467ms); // read by then
    EXPECT_EQ(speaker.stops, 2);
}

#include "narrator/player.h"
#include "sample.h"

#include <gtest/gtest.h>

using namespace narrator;
using namespace std::chrono_literals;

namespace {

/// Says each text with a delay before the first word, at a pace of its own.
class SlowVoice final : public Voice
{
public:
    void say(const QString&, std::chrono::milliseconds now) override { start_ = now; }
    void hush() override { ++hushed; }
    std::optional<std::chrono::milliseconds> firstWord(std::chrono::milliseconds now) override
    {
        return now >= start_ + delay ? std::optional(start_ + delay) : std::nullopt;
    }
    std::optional<std::chrono::milliseconds> lastWord(std::chrono::milliseconds now) override
    {
        return now >= start_ + length ? std::optional(start_ + length) : std::nullopt;
    }
    MouthShape mouth(std::chrono::milliseconds) override { return MouthShape::A; }

    std::chrono::milliseconds delay{0};
    std::chrono::milliseconds length{0};
    int hushed = 0;

private:
    std::chrono::milliseconds start_{0};
};

/// A player with its clock, and what was seen of it: a line whenever that changed.
class Stagehand
{
public:
    explicit Stagehand(Voice& voice)
        : player(
              rig_, voice, [] { return 0.5; }, 0ms)
    {
    }

    void play(const char* name) { player.play(QString::fromLatin1(name), now); }
    void speak(const QString& text) { player.speak(text, now); }
    void stop() { player.stop(now); }

    void watch(std::chrono::milliseconds span, std::chrono::milliseconds step = 50ms)
    {
        for (const auto end = now + span; now < end; now += step) {
            const Frame frame = player.frame(now);
            const bool moving = frame.pose.slots != rig_.rest.slots && frame.said.isEmpty();
            const std::string doing = moving ? "gesture" : frame.said.left(12).toStdString();
            if (doing != last_) {
                log += std::to_string(now.count()) + (doing.empty() ? "" : " ") + doing + "\n";
            }
            last_ = doing;
        }
    }

    const Rig rig_ = sample::rig();
    Player player;
    std::chrono::milliseconds now{0};
    std::string log;

private:
    std::string last_;
};

const QString sixtyCharacters =
    QStringLiteral("Sixty characters take four seconds to read, that is for sure");

} // namespace

TEST(Player, carries_requests_out_one_after_another)
{
    SilentVoice voice;
    Stagehand stage(voice);
    stage.play("Greet");
    stage.speak(QStringLiteral("short"));
    stage.play("no such gesture");
    stage.speak(QString());
    stage.speak(QStringLiteral(" ,,, ,"));
    stage.speak(sixtyCharacters);
    stage.play("think");
    stage.play("think");
    stage.watch(9s);
    // The hand opens 100 ms into the gesture and closes 100 ms before its end.
    EXPECT_EQ(
        stage.log,
        "100 gesture\n900\n1000 short\n2500 Sixty charac\n6500\n6600 gesture\n7400\n7600 gesture\n8400\n");
    EXPECT_TRUE(stage.player.idle(stage.now));
    stage.speak(QStringLiteral("at once"));
    EXPECT_FALSE(stage.player.idle(stage.now));
    stage.watch(1600ms);
    EXPECT_EQ(stage.log.substr(stage.log.find("8400\n") + 5), "9000 at once\n10500\n");
}

TEST(Player, stops_everything_at_once)
{
    SlowVoice voice;
    voice.length = 1h;
    Stagehand stage(voice);
    stage.stop();
    stage.speak(sixtyCharacters);
    stage.play("Greet");
    stage.speak(QStringLiteral("never heard"));
    stage.watch(1s);
    stage.stop();
    EXPECT_EQ(voice.hushed, 1);
    stage.watch(5s);
    stage.play("Greet");
    stage.watch(300ms);
    stage.stop();
    stage.play("Greet");
    stage.watch(2s);
    EXPECT_EQ(stage.log, "0 Sixty charac\n1000\n6100 gesture\n7200\n");
    EXPECT_TRUE(stage.player.idle(stage.now));
}

TEST(Player, waits_for_the_voice_as_well_as_for_the_reader)
{
    const struct
    {
        std::chrono::milliseconds delay, length;
        const char* log;
    } table[]{
        {0ms, 200ms, "0 Hello\n1500 done\n3000\n"},
        {700ms, 900ms, "0 Hello\n2200 done\n4400\n"}, // counted from the first word
        {100ms, 4s, "0 Hello\n4000 done\n8000\n"},
    };
    for (const auto& row : table) {
        SlowVoice voice;
        voice.delay = row.delay;
        voice.length = row.length;
        Stagehand stage(voice);
        stage.speak(QStringLiteral("Hello"));
        stage.speak(QStringLiteral("done"));
        stage.watch(9s);
        EXPECT_EQ(stage.log, row.log);
    }
}

TEST(Player, catches_up_with_time_that_nobody_watched)
{
    SilentVoice voice;
    Stagehand stage(voice);
    for (int i = 0; i < 20; ++i) {
        stage.play("Greet");
        stage.speak(sixtyCharacters);
    }
    stage.now = 52s; // each pair takes five seconds
    stage.watch(4s, 500ms);
    EXPECT_EQ(stage.log, "52000 Sixty charac\n55000\n55500 gesture\n");
    stage.now = 1h;
    stage.watch(100ms);
    EXPECT_TRUE(stage.player.idle(stage.now));
}

TEST(Player, follows_the_reading_and_takes_any_text)
{
    SilentVoice voice;
    Stagehand stage(voice);
    stage.speak(sixtyCharacters);
    EXPECT_DOUBLE_EQ(stage.player.frame(1s).read, 0.25);
    EXPECT_DOUBLE_EQ(stage.player.frame(3999ms).read, 0.99975);
    stage.now = 4s;
    stage.speak(QString(1'000'000, u'x'));
    EXPECT_DOUBLE_EQ(stage.player.frame(stage.now + 33'333'500ms).read, 33'333.5 / 66'666.667);
    const std::pair<QString, std::chrono::milliseconds> times[]{{QString(22, u'a'), 1500ms},
                                                                {QString(23, u'a'), 1534ms},
                                                                {QStringLiteral("?"), 1500ms},
                                                                {QStringLiteral(",,"), 0ms}};
    for (const auto& [text, time] : times) {
        EXPECT_EQ(readingTime(text), time) << text.toStdString();
    }
}

TEST(Player, blinks_now_and_then)
{
    SilentVoice voice;
    Stagehand stage(voice);
    std::string shut;
    for (auto now = 0ms; now < 9s; now += 20ms) {
        if (stage.player.frame(now).pose.bones[1][4] == 0.5) {
            shut += std::to_string(now.count()) + " ";
        }
    }
    EXPECT_EQ(shut, "2060 2080 2100 6240 6260 6280 ");
}

TEST(Mouth, is_guessed_from_the_letters)
{
    const std::pair<const char*, const char*> table[]{
        {"bath", "MATT"}, {"Ship", "SSEM"}, {"photo", "FFOTO"}, {"good", "EUUT"},
        {"a, b", "A..M"}, {"seen", "SEET"}, {"5 %", "E.."},     {"found", "FUUTT"},
    };
    const char* names = ".MFTSEAOU";
    for (const auto& [text, shapes] : table) {
        const QString words = QString::fromLatin1(text);
        std::string seen;
        for (qsizetype i = 0; i < words.size(); ++i) {
            seen += names[static_cast<std::size_t>(mouthShape(words, i))];
        }
        EXPECT_EQ(seen, shapes) << text;
    }
    EXPECT_EQ(mouthShape(u"a", 1), MouthShape::Rest);
}

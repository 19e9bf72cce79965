#include "voice/speaker.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>
#include <thread>

using namespace voice;
using namespace std::chrono_literals;
using Milliseconds = std::chrono::milliseconds;
using Sound = Speaker::Sound;

namespace {

/// What a sound device does and what has happened to it; outlives the threads that use it.
struct Room
{
    enum class Kind { Good, Missing, NeverOpens, Dies, Stuck };

    void sleepForEver()
    {
        std::unique_lock lock(mutex);
        over.wait(lock, [this] { return ended; });
    }

    Kind kind = Kind::Good;
    std::mutex mutex;
    std::condition_variable over;
    bool ended = false;
    std::vector<std::int16_t> heard; ///< all that was written
    std::chrono::steady_clock::time_point dropped;
};

/// Plays in real time.
struct FakeDevice final : SoundDevice
{
    explicit FakeDevice(std::shared_ptr<Room> given) : room(std::move(given)) {}

    bool write(std::span<const std::int16_t> samples) override
    {
        std::this_thread::sleep_for(Milliseconds(samples.size() * 1000 / sampleRate));
        if (room->kind == Room::Kind::Stuck)
            room->sleepForEver();
        const std::lock_guard lock(room->mutex);
        room->heard.insert(room->heard.end(), samples.begin(), samples.end());
        return room->kind != Room::Kind::Dies;
    }
    Milliseconds delay() override { return 0ms; }
    void drop() override
    {
        const std::lock_guard lock(room->mutex);
        room->dropped = std::chrono::steady_clock::now();
    }
    void drain() override {}

    std::shared_ptr<Room> room;
};

/// Takes 300 ms of sound for every piece.
struct FakeSynthesiser final : Synthesiser
{
    Speech synthesise(const SpokenPiece& piece, const std::function<bool()>&) override
    {
        const auto level = static_cast<std::int16_t>(piece.words.front().end);
        return {{{{0ms, piece.words.back().end}}, {}, 300ms},
                std::vector<std::int16_t>(300 * sampleRate / 1000, level)};
    }
};

struct Talk
{
    explicit Talk(Room::Kind kind)
    {
        room->kind = kind;
        speaker = makeSpeaker([] { return std::make_unique<FakeSynthesiser>(); },
                              [given = room]() -> std::unique_ptr<SoundDevice> {
                                  if (given->kind == Room::Kind::NeverOpens)
                                      given->sleepForEver();
                                  const bool missing = given->kind == Room::Kind::Missing;
                                  return missing ? nullptr : std::make_unique<FakeDevice>(given);
                              });
    }

    /// Lets go the threads that hang.
    ~Talk()
    {
        speaker.reset();
        const std::lock_guard lock(room->mutex);
        room->ended = true;
        room->over.notify_all();
    }
    Talk(const Talk&) = delete;
    Talk& operator=(const Talk&) = delete;

    /// Levels 1 to `pieces` of sound, 300 ms each.
    void start(int pieces)
    {
        std::vector<SpokenPiece> given;
        for (int i = 1; i <= pieces; ++i)
            given.push_back({{{"word", i, Pause::End}}});
        ticket = speaker->start(std::move(given));
    }

    /// How long it takes until `done` says so, at most three seconds.
    template <typename Done>
    Milliseconds until(Done done)
    {
        const auto start = std::chrono::steady_clock::now();
        const auto elapsed = [start] {
            return std::chrono::duration_cast<Milliseconds>(std::chrono::steady_clock::now() - start);
        };
        while (elapsed() < 3s && !done(speaker->progress(ticket, 0, 0ms)))
            std::this_thread::sleep_for(2ms);
        return elapsed();
    }

    std::vector<std::int16_t> heard()
    {
        const std::lock_guard lock(room->mutex);
        return std::exchange(room->heard, {});
    }

    std::shared_ptr<Room> room = std::make_shared<Room>();
    std::unique_ptr<Speaker> speaker;
    Speaker::Ticket ticket = 0;
};

} // namespace

TEST(Speaker, PlaysAllPiecesOnceAndInOrder)
{
    Talk talk(Room::Kind::Good);
    talk.start(3);
    const auto time = talk.until([](const auto& progress) { return progress.played == 900ms; });
    EXPECT_NEAR(static_cast<double>(time.count()), 900, 250);
    std::vector<std::int16_t> heard = talk.heard();
    EXPECT_EQ(heard.size(), 900 * sampleRate / 1000);
    EXPECT_TRUE(std::ranges::is_sorted(heard));
    EXPECT_EQ(heard.back(), 3);
    EXPECT_EQ(talk.speaker->progress(talk.ticket, 1, 900ms).fresh.size(), 2);
}

TEST(Speaker, FallsSilentAtOnce)
{
    for (const char how : {'s', 'm', 'n', 'g'}) { // stopped, muted, overtaken by the next text, given up
        Talk talk(Room::Kind::Good);
        talk.start(2);
        talk.until([](const auto& progress) { return progress.played > 100ms; });
        const auto called = std::chrono::steady_clock::now();
        if (how == 'm')
            talk.speaker->setMuted(true);
        else if (how == 'n')
            talk.start(0);
        else
            how == 's' ? talk.speaker->stop(talk.ticket) : talk.speaker->giveUpSound(talk.ticket);
        EXPECT_LT(std::chrono::steady_clock::now() - called, 20ms);
        std::this_thread::sleep_for(100ms);
        {
            const std::lock_guard lock(talk.room->mutex);
            EXPECT_GT(talk.room->dropped, called);
            EXPECT_LT(talk.room->dropped - called, 50ms) << how;
        }
        talk.heard();
        std::this_thread::sleep_for(100ms);
        const std::vector<std::int16_t> later = talk.heard();
        EXPECT_EQ(later.empty(), how != 'm');
        EXPECT_TRUE(std::ranges::all_of(later, [](std::int16_t sample) { return sample == 0; }));
        if (how == 'm') {
            talk.speaker->setMuted(false);
            std::this_thread::sleep_for(100ms);
            EXPECT_NE(talk.heard().back(), 0);
        }
    }
}

TEST(Speaker, MakesDoWithoutSound)
{
    for (const auto kind :
         {Room::Kind::Missing, Room::Kind::NeverOpens, Room::Kind::Dies, Room::Kind::Stuck}) {
        const auto begun = std::chrono::steady_clock::now();
        {
            Talk talk(kind);
            for (int text = 0; text < 2; ++text) {
                talk.start(2);
                const auto time =
                    talk.until([](const auto& progress) { return progress.sound == Sound::Lost; });
                EXPECT_LT(time, 700ms) << static_cast<int>(kind);
                talk.until([](const auto& progress) { return progress.complete; });
                EXPECT_EQ(talk.speaker->progress(talk.ticket, 0, 0ms).fresh.size(), 2);
            }
        }
        EXPECT_LT(std::chrono::steady_clock::now() - begun, 2s);
    }
}

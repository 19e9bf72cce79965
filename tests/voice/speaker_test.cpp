#include "voice/speaker.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <deque>
#include <latch>
#include <mutex>
#include <thread>

#include <pthread.h>

using namespace voice;
using namespace std::chrono_literals;
using Milliseconds = std::chrono::milliseconds;
using SteadyClock = std::chrono::steady_clock;
using Sound = Speaker::Sound;

namespace {

enum class Manner { Works, Fails, Hangs, Throws };

/// What a sound device does and what has happened to it; outlives the threads that use it.
struct Room
{
    bool answers(Manner manner) const
    {
        if (manner == Manner::Hangs)
            over.wait();
        if (manner == Manner::Throws)
            throw std::bad_alloc();
        return manner != Manner::Fails;
    }

    Manner opening = Manner::Works;
    Manner writing = Manner::Works;
    Milliseconds latency{0};
    std::atomic<int> opened = 0;
    std::atomic<int> closed = 0;
    std::mutex mutex;
    std::latch over{1};                                                   ///< lets go the threads that hang
    std::deque<std::pair<SteadyClock::time_point, std::int16_t>> written; ///< and when it is heard
};

/// Plays in real time, each sample `latency` after it was written.
struct FakeDevice final : SoundDevice
{
    explicit FakeDevice(std::shared_ptr<Room> given) : room(std::move(given)) { ++room->opened; }
    ~FakeDevice() override
    {
        drop();
        ++room->closed;
    }

    bool write(std::span<const std::int16_t> samples) override
    {
        next = std::max(next, SteadyClock::now() + room->latency) + spanOf(samples.size());
        std::this_thread::sleep_until(next - room->latency - 60ms);
        const bool taken = room->answers(room->writing);
        const std::lock_guard lock(room->mutex);
        for (const std::int16_t sample : samples)
            room->written.emplace_back(next, sample);
        return taken;
    }
    Milliseconds delay() override
    {
        return std::max(std::chrono::duration_cast<Milliseconds>(next - SteadyClock::now()), room->latency);
    }
    void drop() override
    {
        const std::lock_guard lock(room->mutex);
        next = SteadyClock::now();
        std::erase_if(room->written, [this](const auto& sample) { return sample.first > next; });
    }

    std::shared_ptr<Room> room;
    SteadyClock::time_point next; ///< when what is written next will be heard
};

/// Takes 300 ms of sound for every piece, as loud as the number of characters said with it.
Speech hum(const SpokenPiece& piece, const std::function<bool()>&)
{
    if (piece.front().text == "fail")
        throw std::bad_alloc();
    const auto level = static_cast<std::int16_t>(piece.front().end);
    return {{{{0ms, level}}, {}, 300ms}, std::vector<std::int16_t>(samplesIn(300ms), level)};
}

struct Talk
{
    explicit Talk(Milliseconds latency = 0ms, Manner opening = Manner::Works, Manner writing = Manner::Works)
    {
        room->latency = latency;
        room->opening = opening;
        room->writing = writing;
    }

    ~Talk()
    {
        speaker.reset();
        room->over.count_down();
    }

    /// 300 ms of sound for each sentence.
    void start(const char* text) { ticket = speaker->start(text); }

    Speaker::Progress progress() { return speaker->progress(ticket, 0, 0ms); }

    /// All that has been heard since the last call.
    std::vector<std::int16_t> heard()
    {
        const std::lock_guard lock(room->mutex);
        std::vector<std::int16_t> heard;
        auto& written = room->written;
        for (; !written.empty() && written.front().first <= SteadyClock::now(); written.pop_front())
            heard.push_back(written.front().second);
        return heard;
    }

    std::shared_ptr<Room> room = std::make_shared<Room>();
    std::unique_ptr<Speaker> speaker = makeSpeaker(
        hum,
        [given = room] {
            return given->answers(given->opening) ? std::make_unique<FakeDevice>(given) : nullptr;
        },
        30ms);
    Speaker::Ticket ticket = 0;
};

/// Waits until `done` says so, ten seconds at most.
bool until(const std::function<bool()>& done)
{
    for (const auto start = SteadyClock::now(); SteadyClock::now() - start < 10s;
         std::this_thread::sleep_for(1ms))
        if (done())
            return true;
    return false;
}

constexpr auto isSound = [](std::int16_t sample) { return sample != 0; };

} // namespace

TEST(Speaker, HandsOverEverySampleOnceAndInOrderHoweverLateItIsHeard)
{
    std::deque<Talk> talks;
    for (const auto latency : {0ms, 100ms, 3000ms})
        talks.emplace_back(latency).start("one. two. three. fail. five.");
    for (Talk& talk : talks) {
        EXPECT_TRUE(until([&] { return talk.progress().sound != Sound::Waiting; }));
        EXPECT_EQ(talk.progress().sound, Sound::Playing) << talk.room->latency.count();
        EXPECT_TRUE(until([&] { return talk.progress().played == 900ms; }));
        EXPECT_TRUE(until([&] { return talk.room->closed == 1; })); // as nothing follows
        std::vector<std::int16_t> heard = talk.heard();
        std::erase(heard, 0);
        EXPECT_EQ(heard.size(), samplesIn(900ms)) << talk.room->latency.count();
        EXPECT_TRUE(std::ranges::is_sorted(heard));
        EXPECT_EQ(talk.progress().fresh.size(), 3);
        EXPECT_EQ(talk.progress().sound, Sound::Playing);
    }
    talks[0].start("four");
    EXPECT_TRUE(until([&] { return std::ranges::any_of(talks[0].heard(), isSound); }));
    EXPECT_EQ(talks[0].room->opened, 2);
}

TEST(Speaker, FallsSilentAtOnce)
{
    for (const char how : {'s', 'm', 'n', 'g'}) { // stopped, muted, overtaken by the next text, given up
        Talk talk(how == 'm' ? 1s : 0s);          // of sound to be taken back
        talk.start("one. two. three. four. five. six. seven. eight. nine. ten.");
        EXPECT_TRUE(until([&] { return talk.progress().played > 100ms; }));
        if (how == 'm')
            talk.speaker->setMuted(true);
        else if (how == 'n')
            talk.start("");
        else
            how == 's' ? talk.speaker->stop(talk.ticket) : talk.speaker->giveUpSound(talk.ticket);
        EXPECT_TRUE(
            until([&] { return how == 'm' ? talk.progress().played > 1500ms : talk.room->closed == 1; }));
        const std::vector<std::int16_t> heard = talk.heard();
        EXPECT_LT(std::ranges::count_if(heard, isSound), sampleRate) << how; // of three seconds
        EXPECT_TRUE(std::ranges::is_partitioned(heard, isSound));
        EXPECT_EQ(std::ranges::all_of(heard, isSound), how != 'm'); // whose silence takes its time
        talk.speaker->setMuted(false);
        EXPECT_TRUE(how != 'm' || until([&] { return std::ranges::any_of(talk.heard(), isSound); }));
    }
}

TEST(Speaker, MakesDoWithoutSound)
{
    using enum Manner;
    for (const auto& [opening, writing] : {std::pair(Fails, Works),
                                           {Hangs, Works},
                                           {Throws, Works},
                                           {Works, Fails},
                                           {Works, Hangs},
                                           {Works, Throws}}) {
        Talk talk(0ms, opening, writing); // which does not wait for those who hang when it goes
        for (int text = 0; text < 2; ++text) {
            talk.start("one. two.");
            EXPECT_TRUE(until([&] { return talk.progress().sound == Sound::Lost; })) << int(opening);
            EXPECT_TRUE(until([&] { return talk.progress().complete; }));
            EXPECT_EQ(talk.progress().fresh.size(), 2);
        }
    }
}

TEST(Speaker, MakesDoWithoutThreads)
{
    pthread_attr_t usual;
    pthread_getattr_default_np(&usual);
    pthread_attr_t huge = usual;
    pthread_attr_setstacksize(&huge, std::size_t{1} << 46);
    pthread_setattr_default_np(&huge);
    EXPECT_EQ(makeSpeaker(), nullptr);
    pthread_setattr_default_np(&usual);
}

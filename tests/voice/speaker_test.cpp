#include "voice/speaker.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

#include <pthread.h>

using namespace voice;
using namespace std::chrono_literals;
using Milliseconds = std::chrono::milliseconds;
using SteadyClock = std::chrono::steady_clock;
using Sound = Speaker::Sound;

namespace {

enum class Trouble { None, Missing, NeverOpens, ThrowsOnOpening, Dies, Stuck, Throws };

/// What a sound device does and what has happened to it; outlives the threads that use it.
struct Room
{
    void sleepForEver()
    {
        std::unique_lock lock(mutex);
        over.wait(lock, [this] { return ended; });
    }

    Trouble trouble = Trouble::None;
    Milliseconds latency{0};
    std::mutex mutex;
    std::condition_variable over;
    bool ended = false;
    int opened = 0;
    int closed = 0;
    std::deque<std::pair<SteadyClock::time_point, std::vector<std::int16_t>>> flying; ///< and when they land
    std::vector<std::int16_t> heard;
};

/// Plays in real time, each sample `latency` after it was written.
struct FakeDevice final : SoundDevice
{
    explicit FakeDevice(std::shared_ptr<Room> given) : room(std::move(given)) { ++room->opened; }
    ~FakeDevice() override
    {
        drop();
        const std::lock_guard lock(room->mutex);
        ++room->closed;
    }

    bool write(std::span<const std::int16_t> samples) override
    {
        if (room->trouble == Trouble::Stuck)
            room->sleepForEver();
        if (room->trouble == Trouble::Throws)
            throw std::bad_alloc();
        next = std::max(next, SteadyClock::now() + room->latency) +
               Milliseconds(samples.size() * 1000 / sampleRate);
        std::this_thread::sleep_until(next - room->latency - 60ms);
        const std::lock_guard lock(room->mutex);
        room->flying.emplace_back(next, std::vector(samples.begin(), samples.end()));
        return room->trouble != Trouble::Dies;
    }
    Milliseconds delay() override
    {
        const auto left = std::chrono::duration_cast<Milliseconds>(next - SteadyClock::now());
        return std::max(left, room->latency);
    }
    void drop() override
    {
        const std::lock_guard lock(room->mutex);
        land(*room);
        room->flying.clear();
        next = SteadyClock::now();
    }
    static void land(Room& room)
    {
        for (; !room.flying.empty() && room.flying.front().first <= SteadyClock::now();
             room.flying.pop_front())
            room.heard.insert(room.heard.end(), room.flying.front().second.begin(),
                              room.flying.front().second.end());
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
    return {{{{0ms, level}}, {}, 300ms}, std::vector<std::int16_t>(300 * sampleRate / 1000, level)};
}

struct Talk
{
    explicit Talk(Trouble trouble, Milliseconds latency = 0ms)
    {
        room->trouble = trouble;
        room->latency = latency;
        speaker = makeSpeaker(
            hum,
            [given = room]() -> std::unique_ptr<SoundDevice> {
                if (given->trouble == Trouble::NeverOpens)
                    given->sleepForEver();
                if (given->trouble == Trouble::ThrowsOnOpening)
                    throw std::bad_alloc();
                const bool missing = given->trouble == Trouble::Missing;
                return missing ? nullptr : std::make_unique<FakeDevice>(given);
            },
            30ms);
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

    /// 300 ms of sound for each sentence.
    void start(const char* text) { ticket = speaker->start(text); }

    Speaker::Progress progress() { return speaker->progress(ticket, 0, 0ms); }

    /// All that has been heard since the last call.
    std::vector<std::int16_t> heard()
    {
        const std::lock_guard lock(room->mutex);
        FakeDevice::land(*room);
        return std::exchange(room->heard, {});
    }

    int seen(int Room::*member)
    {
        const std::lock_guard lock(room->mutex);
        return (*room).*member;
    }

    std::shared_ptr<Room> room = std::make_shared<Room>();
    std::unique_ptr<Speaker> speaker;
    Speaker::Ticket ticket = 0;
};

/// Waits until `done` says so, ten seconds at most.
template <typename Done>
bool until(Done done)
{
    for (const auto start = SteadyClock::now(); SteadyClock::now() - start < 10s;
         std::this_thread::sleep_for(1ms))
        if (done())
            return true;
    return false;
}

bool isSound(std::int16_t sample)
{
    return sample != 0;
}

} // namespace

TEST(Speaker, HandsOverEverySampleOnceAndInOrderHoweverLateItIsHeard)
{
    std::deque<Talk> talks;
    for (const auto latency : {0ms, 100ms, 1500ms})
        talks.emplace_back(Trouble::None, latency).start("one. two. three.");
    for (Talk& talk : talks) {
        EXPECT_TRUE(until([&] { return talk.progress().sound != Sound::Waiting; }));
        EXPECT_EQ(talk.progress().sound, Sound::Playing) << talk.room->latency.count();
        EXPECT_TRUE(until([&] { return talk.progress().played == 900ms; }));
        std::vector<std::int16_t> heard;
        EXPECT_TRUE(until([&] {
            std::ranges::copy_if(talk.heard(), std::back_inserter(heard), isSound);
            return talk.seen(&Room::closed) == 1; // as nothing follows
        }));
        EXPECT_EQ(heard.size(), 900 * sampleRate / 1000) << talk.room->latency.count();
        EXPECT_TRUE(std::ranges::is_sorted(heard));
        EXPECT_EQ(talk.progress().fresh.size(), 3);
        EXPECT_EQ(talk.progress().sound, Sound::Playing);
    }
    talks[0].start("four");
    EXPECT_TRUE(until([&] { return std::ranges::any_of(talks[0].heard(), isSound); }));
    EXPECT_EQ(talks[0].seen(&Room::opened), 2);
}

TEST(Speaker, FallsSilentAtOnce)
{
    for (const char how : {'s', 'm', 'n', 'g'}) { // stopped, muted, overtaken by the next text, given up
        Talk talk(Trouble::None);
        talk.start("one. two. three. four. five. six. seven. eight. nine. ten.");
        EXPECT_TRUE(until([&] { return talk.progress().played > 100ms; }));
        if (how == 'm')
            talk.speaker->setMuted(true);
        else if (how == 'n')
            talk.start("");
        else
            how == 's' ? talk.speaker->stop(talk.ticket) : talk.speaker->giveUpSound(talk.ticket);
        EXPECT_TRUE(until(
            [&] { return how == 'm' ? talk.progress().played > 1500ms : talk.seen(&Room::closed) == 1; }));
        const std::vector<std::int16_t> heard = talk.heard();
        EXPECT_LT(std::ranges::count_if(heard, isSound), sampleRate) << how; // of three seconds
        EXPECT_TRUE(std::ranges::is_partitioned(heard, isSound));
        EXPECT_EQ(std::ranges::all_of(heard, isSound), how != 'm'); // whose silence takes its time
        if (how == 'm') {
            talk.speaker->setMuted(false);
            EXPECT_TRUE(until([&] { return std::ranges::any_of(talk.heard(), isSound); }));
        }
    }
}

TEST(Speaker, MakesDoWithoutSound)
{
    for (const auto trouble : {Trouble::Missing, Trouble::NeverOpens, Trouble::ThrowsOnOpening, Trouble::Dies,
                               Trouble::Stuck, Trouble::Throws}) {
        Talk talk(trouble); // which does not wait for those who hang when it goes
        for (int text = 0; text < 2; ++text) {
            talk.start("one. two.");
            EXPECT_TRUE(until([&] { return talk.progress().sound == Sound::Lost; }))
                << static_cast<int>(trouble);
            EXPECT_TRUE(until([&] { return talk.progress().complete; }));
            EXPECT_EQ(talk.progress().fresh.size(), 2);
        }
    }
}

TEST(Speaker, MakesDoWithoutVoiceOrThreads)
{
    Talk talk(Trouble::None);
    talk.start("one. fail. three.");
    until([&] { return talk.progress().complete; });
    EXPECT_EQ(talk.progress().fresh.size(), 1);
    until([&] { return talk.progress().played == 300ms; });
    EXPECT_EQ(talk.progress().sound, Sound::Playing);

    pthread_attr_t usual;
    pthread_getattr_default_np(&usual);
    pthread_attr_t huge = usual;
    pthread_attr_setstacksize(&huge, std::size_t{1} << 46);
    pthread_setattr_default_np(&huge);
    EXPECT_EQ(makeSpeaker(), nullptr);
    pthread_setattr_default_np(&usual);
}

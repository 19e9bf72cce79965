#include "voice/loudspeaker.h"

#include "voice/synthesiser.h"

#include <algorithm>
#include <array>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

namespace voice {

using namespace std::chrono_literals;
using Milliseconds = std::chrono::milliseconds;
using SteadyClock = std::chrono::steady_clock;

namespace {

constexpr std::size_t chunkSamples = sampleRate / 50; // 20 ms
constexpr auto patience = 500ms;                      ///< with a call of the device
constexpr auto mostAhead = 120ms; ///< of real time: some devices swallow whatever they are given

Milliseconds spanOf(std::size_t samples)
{
    return Milliseconds(samples * 1000 / sampleRate);
}

Milliseconds since(SteadyClock::time_point start)
{
    return std::chrono::duration_cast<Milliseconds>(SteadyClock::now() - start);
}

} // namespace

/// What the thread and its users both see, under the mutex. That is never held during a call of the device.
struct Loudspeaker::Shared
{
    mutable std::mutex mutex;
    std::condition_variable changed;
    SoundDeviceFactory open;
    bool ended = false;
    bool muted = false;

    Text text = 0;
    bool wanted = false; ///< the text is to be heard
    bool complete = false;
    std::deque<std::vector<std::int16_t>> samples; ///< still to be played
    std::size_t used = 0;                          ///< of the first of them

    std::optional<SteadyClock::time_point> calling; ///< since when the thread is in a call of the device
    bool playing = false;                           ///< this text, as follows
    bool finished = false;                          ///< all of it has been heard
    Milliseconds played{0};
    Milliseconds written{0};
    SteadyClock::time_point seen; ///< when `played` was right
};

class Loudspeaker::Thread
{
public:
    explicit Thread(std::shared_ptr<Shared> shared) : shared_(std::move(shared)), lock_(shared_->mutex) {}

    void run()
    {
        while (!shared_->ended) {
            if (!shared_->wanted || shared_->samples.empty()) {
                shared_->changed.wait(lock_);
                continue;
            }
            const Text text = shared_->text;
            if (!device_)
                call([this] { device_ = shared_->open(); });
            const bool whole = device_ && play(text);
            if (!whole && text == shared_->text)
                shared_->wanted = false;
        }
    }

private:
    /// Runs something that may take for ever, with the mutex free.
    template <typename Work>
    void call(Work work)
    {
        shared_->calling = SteadyClock::now();
        lock_.unlock();
        work();
        lock_.lock();
        shared_->calling.reset();
    }

    [[nodiscard]] bool current(Text text) const
    {
        return !shared_->ended && shared_->wanted && shared_->text == text;
    }

    /// Plays until the text is over or given up; returns whether the device has done its part.
    bool play(Text text)
    {
        text_ = 0;
        all_ = 0;
        padding_ = 0;
        start_ = SteadyClock::now();
        silent_ = shared_->muted;
        while (current(text)) {
            if (shared_->muted != silent_) {
                turnMute();
            } else if (padding_ == 0 && shared_->samples.empty()) {
                if (shared_->complete) {
                    call([this] { device_->drain(); });
                    if (current(text)) {
                        shared_->finished = true;
                        shared_->wanted = false;
                    }
                    return true;
                }
                shared_->changed.wait(lock_);
            } else if (spanOf(all_) > since(start_) + mostAhead) {
                shared_->changed.wait_for(lock_, 20ms);
            } else if (!writeChunk(text)) {
                call([this] { device_.reset(); });
                return false;
            }
        }
        call([this] { device_->drop(); });
        return true;
    }

    bool writeChunk(Text text)
    {
        std::array<std::int16_t, chunkSamples> chunk{};
        const bool pad = padding_ > 0;
        const std::size_t count = pad ? std::min(padding_, chunkSamples) : take(chunk);
        bool done = false;
        Milliseconds delay{0};
        call([&] {
            done = device_->write(std::span(chunk).first(count));
            delay = done ? device_->delay() : 0ms;
        });
        all_ += count;
        (pad ? padding_ : text_) += pad ? -count : count;
        if (done && current(text)) {
            shared_->playing = true;
            shared_->written = spanOf(text_);
            shared_->played = std::min(shared_->written - delay, since(start_));
            shared_->seen = SteadyClock::now();
        }
        return done;
    }

    std::size_t take(std::array<std::int16_t, chunkSamples>& chunk)
    {
        const std::vector<std::int16_t>& first = shared_->samples.front();
        const std::size_t count = std::min(chunk.size(), first.size() - shared_->used);
        if (!silent_)
            std::copy_n(first.begin() + static_cast<std::ptrdiff_t>(shared_->used), count, chunk.begin());
        shared_->used += count;
        if (shared_->used == first.size()) {
            shared_->samples.pop_front();
            shared_->used = 0;
        }
        return count;
    }

    /// Takes back what the device has not played yet, and lets silence take its time.
    void turnMute()
    {
        silent_ = shared_->muted;
        if (!silent_ || all_ == 0)
            return;
        Milliseconds lost{0};
        call([&] {
            lost = device_->delay();
            device_->drop();
        });
        padding_ += static_cast<std::size_t>(lost.count()) * sampleRate / 1000;
    }

    std::shared_ptr<Shared> shared_;
    std::unique_lock<std::mutex> lock_;
    std::unique_ptr<SoundDevice> device_;
    std::size_t text_ = 0;    ///< samples of the text that have been written
    std::size_t all_ = 0;     ///< the same with the silence in between
    std::size_t padding_ = 0; ///< silence still to be written
    SteadyClock::time_point start_;
    bool silent_ = false;
};

Loudspeaker::Loudspeaker(SoundDeviceFactory open) : shared_(std::make_shared<Shared>())
{
    shared_->open = std::move(open);
    std::thread([shared = shared_] { Thread(shared).run(); }).detach();
}

Loudspeaker::~Loudspeaker()
{
    const std::lock_guard lock(shared_->mutex);
    shared_->ended = true;
    shared_->changed.notify_all();
}

void Loudspeaker::begin(Text text)
{
    const std::lock_guard lock(shared_->mutex);
    shared_->text = text;
    shared_->wanted = true;
    shared_->complete = false;
    shared_->playing = false;
    shared_->finished = false;
    shared_->samples.clear();
    shared_->used = 0;
    shared_->changed.notify_all();
}

void Loudspeaker::add(Text text, std::vector<std::int16_t> samples)
{
    const std::lock_guard lock(shared_->mutex);
    if (text == shared_->text && shared_->wanted && !samples.empty()) {
        shared_->samples.push_back(std::move(samples));
        shared_->changed.notify_all();
    }
}

void Loudspeaker::complete(Text text)
{
    const std::lock_guard lock(shared_->mutex);
    if (text == shared_->text) {
        shared_->complete = true;
        shared_->changed.notify_all();
    }
}

void Loudspeaker::stop(Text text)
{
    const std::lock_guard lock(shared_->mutex);
    if (text == shared_->text) {
        shared_->wanted = false;
        shared_->samples.clear();
        shared_->used = 0;
        shared_->changed.notify_all();
    }
}

Loudspeaker::Status Loudspeaker::status(Text text) const
{
    const std::lock_guard lock(shared_->mutex);
    if (text != shared_->text)
        return {State::Lost};
    const bool stuck = shared_->calling && since(*shared_->calling) > patience;
    const bool lost = !shared_->finished && (stuck || !shared_->wanted);
    if (shared_->playing) {
        const Milliseconds played = std::min(shared_->written, shared_->played + since(shared_->seen));
        return {lost ? State::Lost : played < 0ms ? State::Waiting : State::Playing, played};
    }
    return {lost ? State::Lost : State::Waiting};
}

void Loudspeaker::setMuted(bool muted)
{
    const std::lock_guard lock(shared_->mutex);
    shared_->muted = muted;
    shared_->changed.notify_all();
}

bool Loudspeaker::muted() const
{
    const std::lock_guard lock(shared_->mutex);
    return shared_->muted;
}

} // namespace voice

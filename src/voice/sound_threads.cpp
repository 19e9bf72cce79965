#include "voice/sound_threads.h"

#include <algorithm>
#include <array>
#include <utility>

#include <malloc.h>

namespace voice {

using namespace std::chrono_literals;
using Milliseconds = std::chrono::milliseconds;
using SteadyClock = std::chrono::steady_clock;

namespace {

constexpr auto mostMade = 8s;       ///< of what has been heard or seen, lest a long text fill the memory
constexpr auto mostWritten = 120ms; ///< of real time: some devices swallow whatever they are given
constexpr auto mostLatency = 5s;
constexpr auto tail = 100ms; ///< of silence behind a text, since devices tell their delay roughly
constexpr std::size_t chunkSamples = sampleRate / 50; // 20 ms

/// Plays one text after another on a device that is open as long as there are any.
class Playing
{
public:
    explicit Playing(SoundState& state) : state_(state), lock_(state.mutex) {}

    void run()
    {
        while (!state_.ended)
            if (state_.playable())
                playText();
            else if (!device_)
                state_.changed.wait(lock_);
            else if (state_.changed.wait_for(lock_, state_.keepDevice) == std::cv_status::timeout)
                call([this] { device_.reset(); });
        call([this] { device_.reset(); });
    }

private:
    /// Runs something that may take for ever, with the mutex free; false if it failed.
    template <typename Work>
    bool call(Work work)
    {
        state_.calling = SteadyClock::now();
        lock_.unlock();
        bool done = true;
        try {
            work();
        } catch (...) {
            done = false;
        }
        lock_.lock();
        state_.calling.reset();
        return done;
    }

    [[nodiscard]] bool current() const
    {
        return !state_.ended && state_.current == ticket_ && state_.text.audible;
    }

    void playText()
    {
        ticket_ = state_.current;
        if (!device_)
            call([this] { device_ = state_.openDevice(); });
        if (!device_ || !play() || !call([this] { device_->drop(); })) {
            call([this] { device_.reset(); });
            if (current())
                state_.text.audible = false;
        }
    }

    /// Plays until the text is over or not wanted; false if the device fails.
    bool play()
    {
        silent_ = state_.muted;
        written_ = text_ = padding_ = 0;
        position_ = 0ms;
        start_ = SteadyClock::now();
        while (current()) {
            SpokenText& text = state_.text;
            if (state_.muted != silent_) {
                if (!turnMute())
                    return false;
            } else if (spanOf(written_) > since(start_) + mostWritten) {
                state_.changed.wait_for(lock_, 20ms);
            } else if (padding_ == 0 && text.samples.empty() && !text.complete) {
                state_.changed.wait(lock_);
            } else if (text.samples.empty() && position_ >= spanOf(text_) + tail) {
                text.heard = true;
                text.audible = false;
            } else if (!writeChunk()) {
                return false;
            }
        }
        return true;
    }

    bool writeChunk()
    {
        std::array<std::int16_t, chunkSamples> chunk{};
        std::size_t count = chunkSamples;
        if (padding_ > 0)
            padding_ -= count = std::min(padding_, chunkSamples);
        else if (state_.playable())
            text_ += count = take(chunk);
        written_ += count;
        std::optional<Milliseconds> delay;
        call([&] {
            if (device_->write(std::span(chunk).first(count)))
                delay = device_->delay();
        });
        if (delay)
            publish(std::min<Milliseconds>(*delay, mostLatency));
        return delay.has_value();
    }

    void publish(Milliseconds delay)
    {
        position_ = std::min(spanOf(written_) - delay, since(start_));
        if (!current())
            return;
        SpokenText& text = state_.text;
        text.taken = true;
        text.written = spanOf(text_);
        text.played = std::min(position_, text.written);
        text.seen = SteadyClock::now();
        if (state_.due())
            state_.changed.notify_all();
    }

    std::size_t take(std::array<std::int16_t, chunkSamples>& chunk)
    {
        std::deque<std::int16_t>& samples = state_.text.samples;
        const auto count = std::min<std::ptrdiff_t>(chunk.size(), std::ssize(samples));
        if (!silent_)
            std::copy_n(samples.begin(), count, chunk.begin());
        samples.erase(samples.begin(), samples.begin() + count);
        return count;
    }

    /// Takes back what the device has not played yet, and lets silence take its time.
    bool turnMute()
    {
        silent_ = state_.muted;
        if (!silent_ || written_ == 0)
            return true;
        Milliseconds lost{0};
        const bool done = call([&] {
            lost = device_->delay();
            device_->drop();
        });
        const std::size_t samples = std::min(samplesIn(lost), written_);
        padding_ += samples;
        written_ -= samples;
        return done;
    }

    SoundState& state_;
    std::unique_lock<std::mutex> lock_;
    std::unique_ptr<SoundDevice> device_;
    Speaker::Ticket ticket_ = 0;
    SteadyClock::time_point start_; ///< of the text, as all that follows
    bool silent_ = false;
    std::size_t written_ = 0;  ///< samples in all,
    std::size_t text_ = 0;     ///< and those of them that the text has
    std::size_t padding_ = 0;  ///< silence still to be written in the midst of it
    Milliseconds position_{0}; ///< what is heard now
};

} // namespace

bool SoundState::due() const
{
    return !text.complete && text.madeLength - std::max(text.reached, text.played) < mostMade;
}

void makeSpeech(const std::shared_ptr<SoundState>& state)
{
    std::unique_lock lock(state->mutex);
    for (;;) {
        if (!state->due()) {
            lock.unlock();
            malloc_trim(0); // a piece of speech takes megabytes while it is made
            lock.lock();
        }
        state->changed.wait(lock, [&] { return state->ended || state->due(); });
        if (state->ended)
            return;
        SpokenText& text = state->text;
        const Speaker::Ticket ticket = state->current;
        const QString uncut = std::exchange(text.text, {});
        std::deque<SpokenPiece> pieces = std::move(text.pieces);
        lock.unlock();
        Speech speech;
        bool made = false;
        try {
            if (pieces.empty())
                pieces = spokenPieces(spokenWords(uncut));
            if (!pieces.empty()) {
                speech = state->synthesiser(pieces.front(), [&] { return state->current != ticket; });
                pieces.pop_front();
                made = true;
            }
        } catch (...) {
            pieces.clear();
        }
        lock.lock();
        if (state->current != ticket)
            continue;
        text.complete = pieces.empty();
        text.pieces = std::move(pieces);
        if (made) {
            text.madeLength += speech.times.length;
            text.samples.insert(text.samples.end(), speech.samples.begin(), speech.samples.end());
            text.made.push_back(std::move(speech.times));
        }
        state->changed.notify_all();
    }
}

void playSpeech(const std::shared_ptr<SoundState>& state)
{
    Playing(*state).run();
}

} // namespace voice

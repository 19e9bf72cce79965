#include "voice/sound_threads.h"

#include "voice/text_reader.h"

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

Milliseconds spanOf(std::size_t samples)
{
    return Milliseconds(samples * 1000 / sampleRate);
}

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
        written_ = text_ = padding_ = tail_ = 0;
        position_ = 0ms;
        start_ = SteadyClock::now();
        while (current()) {
            SpokenText& text = state_.text;
            const bool rest = text.piece < text.made.size();
            if (state_.muted != silent_) {
                if (!turnMute())
                    return false;
            } else if (spanOf(written_) > elapsed() + mostWritten) {
                state_.changed.wait_for(lock_, 20ms);
            } else if (padding_ == 0 && !rest && !text.complete()) {
                state_.changed.wait(lock_);
            } else if (!rest && position_ >= spanOf(text_) + tail) {
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
        else
            tail_ += count;
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
        position_ = std::min(spanOf(text_ + tail_) - spanOf(padding_) - delay, elapsed());
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
        SpokenText& text = state_.text;
        std::vector<std::int16_t>& samples = text.made[text.piece].samples;
        const std::size_t count = std::min(chunk.size(), samples.size() - text.sample);
        if (!silent_)
            std::copy_n(samples.begin() + text.sample, count, chunk.begin());
        text.sample += count;
        if (text.sample == samples.size()) {
            std::vector<std::int16_t>().swap(samples);
            ++text.piece;
            text.sample = 0;
        }
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

    [[nodiscard]] Milliseconds elapsed() const
    {
        return std::chrono::duration_cast<Milliseconds>(SteadyClock::now() - start_);
    }

    SoundState& state_;
    std::unique_lock<std::mutex> lock_;
    std::unique_ptr<SoundDevice> device_;
    Ticket ticket_ = 0;
    SteadyClock::time_point start_; ///< of the text, as all that follows
    bool silent_ = false;
    std::size_t written_ = 0;  ///< samples in all, which are
    std::size_t text_ = 0;     ///< samples of the text and
    std::size_t tail_ = 0;     ///< silence behind it
    std::size_t padding_ = 0;  ///< silence still to be written in the midst of it
    Milliseconds position_{0}; ///< what is heard now
};

} // namespace

bool SoundState::due() const
{
    return !text.complete() && text.madeLength - std::max(text.reached, text.played) < mostMade;
}

void makeSpeech(const std::shared_ptr<SoundState>& state)
{
    std::unique_lock lock(state->mutex);
    std::unique_ptr<TextReader> reader;
    std::unique_ptr<Synthesiser> synthesiser;
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
        const Ticket ticket = state->current;
        std::vector<SpokenPiece> pieces;
        if (text.cut)
            pieces.push_back(std::move(text.pieces[text.made.size()]));
        const QString words = std::move(text.text);
        lock.unlock();
        std::optional<Speech> speech;
        try {
            if (!synthesiser) {
                synthesiser = state->makeSynthesiser();
                reader = std::make_unique<TextReader>();
            }
            if (pieces.empty())
                pieces = spokenPieces(reader->words(words));
            if (!pieces.empty())
                speech = synthesiser->synthesise(pieces.front(), [&] { return state->current != ticket; });
        } catch (...) {
            speech.reset();
        }
        lock.lock();
        if (state->current != ticket)
            continue;
        if (!std::exchange(text.cut, true))
            text.pieces = std::move(pieces);
        if (speech) {
            text.madeLength += speech->times.length;
            text.made.push_back(std::move(*speech));
        } else {
            text.pieces.resize(text.made.size());
        }
        state->changed.notify_all();
    }
}

void playSpeech(const std::shared_ptr<SoundState>& state)
{
    Playing(*state).run();
}

} // namespace voice

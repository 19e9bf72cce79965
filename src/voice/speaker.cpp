#include "voice/speaker.h"

#include "voice/sound_threads.h"

#include <algorithm>
#include <system_error>
#include <thread>
#include <utility>

namespace voice {

using namespace std::chrono_literals;
using Milliseconds = std::chrono::milliseconds;
using SteadyClock = std::chrono::steady_clock;

namespace {

constexpr auto patience = 500ms;   ///< with a call of a device that has taken nothing of the text yet,
constexpr auto endurance = 5000ms; ///< and with one that has: it may have much of it still to play

class ThreadedSpeaker final : public Speaker
{
public:
    ThreadedSpeaker(Synthesiser synthesiser, SoundDeviceFactory device, Milliseconds keepDevice)
        : state_(std::make_shared<SoundState>())
    {
        state_->synthesiser = std::move(synthesiser);
        state_->openDevice = std::move(device);
        state_->keepDevice = keepDevice;
    }

    ~ThreadedSpeaker() override
    {
        const std::lock_guard lock(state_->mutex);
        renew({});
        state_->ended = true;
    }

    /// Nobody ever waits for the threads: a sound server may never answer.
    void startThreads()
    {
        std::thread([state = state_] { makeSpeech(state); }).detach();
        std::thread([state = state_] { playSpeech(state); }).detach();
    }

    Ticket start(const QString& text) override
    {
        const std::lock_guard lock(state_->mutex);
        SpokenText spoken;
        spoken.text = QString(text.constData(), text.size()); // shares nothing with this thread
        spoken.complete = false;
        return renew(std::move(spoken));
    }

    void stop(Ticket ticket) override
    {
        const std::lock_guard lock(state_->mutex);
        if (ticket == state_->current)
            renew({});
    }

    void giveUpSound(Ticket ticket) override
    {
        const std::lock_guard lock(state_->mutex);
        if (ticket == state_->current) {
            state_->text.audible = false;
            state_->changed.notify_all();
        }
    }

    Progress progress(Ticket ticket, std::size_t known, Milliseconds reached) override
    {
        const std::lock_guard lock(state_->mutex);
        if (ticket != state_->current)
            return {{}, true};
        SpokenText& text = state_->text;
        text.reached = reached;
        if (state_->due())
            state_->changed.notify_all();
        const auto fresh = text.made.begin() + std::min(known, text.made.size());
        Progress progress{{fresh, text.made.end()}, text.complete, Sound::Waiting};
        const bool stuck = state_->calling && since(*state_->calling) > (text.taken ? endurance : patience);
        const Milliseconds played = std::min(text.written, text.played + since(text.seen));
        if (!text.heard && (stuck || !text.audible)) {
            progress.sound = Sound::Lost;
        } else if (text.taken && played >= 0ms) {
            progress.sound = Sound::Playing;
            progress.played = played;
        }
        return progress;
    }

    void setMuted(bool muted) override
    {
        const std::lock_guard lock(state_->mutex);
        state_->muted = muted;
        state_->changed.notify_all();
    }

    [[nodiscard]] bool muted() const override
    {
        const std::lock_guard lock(state_->mutex);
        return state_->muted;
    }

private:
    /// What is being made or played is for nobody any more.
    Ticket renew(SpokenText text)
    {
        state_->text = std::move(text);
        state_->changed.notify_all();
        return ++state_->current;
    }

    std::shared_ptr<SoundState> state_;
};

} // namespace

std::unique_ptr<Speaker> makeSpeaker(Synthesiser synthesiser, SoundDeviceFactory device,
                                     Milliseconds keepDevice)
{
    auto speaker = std::make_unique<ThreadedSpeaker>(std::move(synthesiser), std::move(device), keepDevice);
    try {
        speaker->startThreads();
    } catch (const std::system_error&) {
        return nullptr;
    }
    return speaker;
}

std::unique_ptr<Speaker> makeSpeaker()
{
    return makeSpeaker(synthesise, openAlsaDevice);
}

} // namespace voice

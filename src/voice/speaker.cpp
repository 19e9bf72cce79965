#include "voice/speaker.h"

#include "voice/alsa_device.h"
#include "voice/flite_synthesiser.h"
#include "voice/loudspeaker.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>

namespace voice {

using namespace std::chrono_literals;
using Milliseconds = std::chrono::milliseconds;

namespace {

constexpr auto mostAhead = 8s; ///< of what has been heard or seen, lest a long text fill the memory

/// What the voice's thread and its users both see, under the mutex but for `current`.
struct Shared
{
    Shared(SynthesiserFactory voice, SoundDeviceFactory device)
        : makeVoice(std::move(voice)), loudspeaker(std::move(device))
    {
    }

    [[nodiscard]] bool due() const { return !pieces.empty() && madeLength - reached < mostAhead; }

    SynthesiserFactory makeVoice;
    Loudspeaker loudspeaker;
    std::mutex mutex;
    std::condition_variable changed;
    std::atomic<Speaker::Ticket> current{0}; ///< changed under the mutex
    bool ended = false;
    std::deque<SpokenPiece> pieces; ///< still to be made
    bool complete = true;
    std::vector<SpeechTimes> made;
    Milliseconds madeLength{0};
    Milliseconds reached{0};
};

void makeSpeech(const std::shared_ptr<Shared>& shared)
{
    std::unique_lock lock(shared->mutex);
    std::unique_ptr<Synthesiser> voice;
    for (;;) {
        shared->changed.wait(lock, [&] { return shared->ended || shared->due(); });
        if (shared->ended)
            return;
        const Speaker::Ticket ticket = shared->current;
        const SpokenPiece piece = std::move(shared->pieces.front());
        shared->pieces.pop_front();
        lock.unlock();
        if (!voice)
            voice = shared->makeVoice();
        Speech speech = voice->synthesise(piece, [&] { return shared->current != ticket; });
        lock.lock();
        if (shared->current != ticket)
            continue;
        shared->madeLength += speech.times.length;
        shared->made.push_back(std::move(speech.times));
        shared->complete = shared->pieces.empty();
        shared->loudspeaker.add(ticket, std::move(speech.samples));
        if (shared->complete)
            shared->loudspeaker.complete(ticket);
    }
}

class ThreadedSpeaker final : public Speaker
{
public:
    ThreadedSpeaker(SynthesiserFactory voice, SoundDeviceFactory device)
        : shared_(std::make_shared<Shared>(std::move(voice), std::move(device)))
    {
        std::thread([shared = shared_] { makeSpeech(shared); }).detach();
    }

    ~ThreadedSpeaker() override
    {
        stop(shared_->current);
        const std::lock_guard lock(shared_->mutex);
        shared_->ended = true;
        shared_->changed.notify_all();
    }

    ThreadedSpeaker(const ThreadedSpeaker&) = delete;
    ThreadedSpeaker& operator=(const ThreadedSpeaker&) = delete;

    Ticket start(std::vector<SpokenPiece> pieces) override
    {
        const std::lock_guard lock(shared_->mutex);
        const Ticket ticket = renew();
        shared_->pieces.assign(std::make_move_iterator(pieces.begin()),
                               std::make_move_iterator(pieces.end()));
        shared_->complete = shared_->pieces.empty();
        shared_->loudspeaker.begin(ticket);
        shared_->changed.notify_all();
        return ticket;
    }

    void stop(Ticket ticket) override
    {
        const std::lock_guard lock(shared_->mutex);
        if (ticket == shared_->current) {
            shared_->loudspeaker.stop(ticket);
            renew();
        }
    }

    void giveUpSound(Ticket ticket) override { shared_->loudspeaker.stop(ticket); }

    Progress progress(Ticket ticket, std::size_t known, Milliseconds reached) override
    {
        const Loudspeaker::Status status = shared_->loudspeaker.status(ticket);
        const std::lock_guard lock(shared_->mutex);
        if (ticket != shared_->current)
            return {{}, true};
        shared_->reached = reached;
        if (shared_->due())
            shared_->changed.notify_all();
        Progress progress{{}, shared_->complete, Sound::Lost, status.played};
        for (std::size_t i = known; i < shared_->made.size(); ++i)
            progress.fresh.push_back(shared_->made[i]);
        if (status.state != Loudspeaker::State::Lost)
            progress.sound = status.state == Loudspeaker::State::Playing ? Sound::Playing : Sound::Waiting;
        return progress;
    }

    void setMuted(bool muted) override { shared_->loudspeaker.setMuted(muted); }
    [[nodiscard]] bool muted() const override { return shared_->loudspeaker.muted(); }

private:
    /// What is being made is for nobody any more.
    Ticket renew()
    {
        shared_->pieces.clear();
        shared_->complete = true;
        shared_->made.clear();
        shared_->madeLength = shared_->reached = 0ms;
        return ++shared_->current;
    }

    std::shared_ptr<Shared> shared_;
};

} // namespace

std::unique_ptr<Speaker> makeSpeaker(SynthesiserFactory voice, SoundDeviceFactory device)
{
    return std::make_unique<ThreadedSpeaker>(std::move(voice), std::move(device));
}

std::unique_ptr<Speaker> makeSpeaker()
{
    return makeSpeaker(makeFliteSynthesiser, openAlsaDevice);
}

} // namespace voice

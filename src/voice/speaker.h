#pragma once

#include "voice/sound_device.h"
#include "voice/synthesiser.h"

#include <QString>

#include <chrono>
#include <cstdint>
#include <memory>
#include <vector>

namespace voice {

/// Makes speech and plays it behind the program's back: no call takes longer than it needs to write
/// down what is wanted. Says one text at a time.
class Speaker
{
public:
    /// Stands for one text; what concerns any but the last does nothing.
    using Ticket = std::uint64_t;

    enum class Sound {
        Waiting, ///< for the synthesiser, or for the first sound to arrive
        Playing,
        Lost ///< there is none, or no longer
    };

    struct Progress
    {
        std::vector<SpeechTimes> fresh; ///< of the pieces made since those that are known
        bool complete = false;          ///< there will be no more pieces
        Sound sound = Sound::Lost;
        std::chrono::milliseconds played{0}; ///< of the text, while it is playing
    };

    Speaker() = default;
    Speaker(const Speaker&) = delete;
    Speaker& operator=(const Speaker&) = delete;
    virtual ~Speaker() = default;

    /// Cuts off the text before.
    virtual Ticket start(const QString& text) = 0;
    /// Silence; nothing more is made of the text.
    virtual void stop(Ticket ticket) = 0;
    /// Silence; what there is to see of the text is still made.
    virtual void giveUpSound(Ticket ticket) = 0;
    /// `known` pieces have been fetched before, and the text has been followed up to `reached`.
    virtual Progress progress(Ticket ticket, std::size_t known, std::chrono::milliseconds reached) = 0;

    /// While muted, texts are played without a sound.
    virtual void setMuted(bool muted) = 0;
    [[nodiscard]] virtual bool muted() const = 0;
};

/// A speaker on two threads, one for the synthesiser and one for the sound device, which they are called on.
/// They are left to themselves when the speaker goes. The device is given back when nothing has been played
/// for `keepDevice`. None if the threads cannot be started.
[[nodiscard]] std::unique_ptr<Speaker>
makeSpeaker(Synthesiser synthesiser, SoundDeviceFactory device,
            std::chrono::milliseconds keepDevice = std::chrono::seconds(3));

/// The host's voice on the machine's sound. There may be one at a time.
[[nodiscard]] std::unique_ptr<Speaker> makeSpeaker();

} // namespace voice

#pragma once

#include "voice/sound_device.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <vector>

namespace voice {

/// The one thread that touches the sound device. Nobody ever waits for it, neither in a call nor at the
/// end of this object: a sound server may never answer. The device is opened when there is something to
/// play for the first time. One text is played at a time; calls that concern an older one do nothing.
class Loudspeaker
{
public:
    using Text = std::uint64_t;

    enum class State {
        Waiting, ///< for samples, or for the device to begin
        Playing,
        Lost ///< the text is not heard, or no longer
    };

    struct Status
    {
        State state = State::Lost;
        std::chrono::milliseconds played{0}; ///< of the text
    };

    explicit Loudspeaker(SoundDeviceFactory open);
    ~Loudspeaker();
    Loudspeaker(const Loudspeaker&) = delete;
    Loudspeaker& operator=(const Loudspeaker&) = delete;

    /// Silences the text before.
    void begin(Text text);
    void add(Text text, std::vector<std::int16_t> samples);
    /// No more samples will be added.
    void complete(Text text);
    void stop(Text text);

    [[nodiscard]] Status status(Text text) const;

    /// While muted, texts are played without a sound.
    void setMuted(bool muted);
    [[nodiscard]] bool muted() const;

private:
    struct Shared;
    class Thread;
    std::shared_ptr<Shared> shared_;
};

} // namespace voice

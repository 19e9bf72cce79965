#pragma once

#include "voice/speaker.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>

namespace voice {

/// A text on its way through both threads.
struct SpokenText
{
    QString text;                   ///< not yet cut into pieces
    std::deque<SpokenPiece> pieces; ///< to be made
    bool complete = true;           ///< all have been made
    std::vector<SpeechTimes> made;
    std::deque<std::int16_t> samples; ///< made and not yet played
    std::chrono::milliseconds madeLength{0};
    std::chrono::milliseconds reached{0}; ///< by those who follow the text

    bool audible = true; ///< is to be heard
    bool heard = false;  ///< to its end
    bool taken = false;  ///< the device has accepted samples
    std::chrono::milliseconds written{0};
    std::chrono::milliseconds played{0};        ///< negative while the first sample is on its way
    std::chrono::steady_clock::time_point seen; ///< when `played` was right
};

/// What the threads and the speaker all see, under the mutex but for `current`. That is never held during a
/// call of the synthesiser or of the device.
struct SoundState
{
    Synthesiser synthesiser;
    SoundDeviceFactory openDevice;
    std::chrono::milliseconds keepDevice{0};

    std::mutex mutex;
    std::condition_variable changed;
    std::atomic<Speaker::Ticket> current{0}; ///< of the text; there is none with the same number
    SpokenText text;
    bool muted = false;
    bool ended = false;
    /// Since when the device's thread is in a call of the device.
    std::optional<std::chrono::steady_clock::time_point> calling;

    /// There is something to be made, and it is not too early for it.
    [[nodiscard]] bool due() const;
    [[nodiscard]] bool playable() const { return text.audible && !text.samples.empty(); }
};

[[nodiscard]] inline std::chrono::milliseconds since(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start);
}

/// The bodies of the two threads, until `ended`.
void makeSpeech(const std::shared_ptr<SoundState>& state);
void playSpeech(const std::shared_ptr<SoundState>& state);

} // namespace voice

#pragma once

#include "voice/sound_device.h"
#include "voice/synthesiser.h"

#include <QString>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace voice {

/// Stands for one text; there is none with the same number.
using Ticket = std::uint64_t;

/// A text on its way through both threads.
struct SpokenText
{
    QString text;
    bool cut = true; ///< into pieces
    std::vector<SpokenPiece> pieces;
    std::vector<Speech> made; ///< of the first of them; their samples go when they have been played
    std::chrono::milliseconds madeLength{0};
    std::chrono::milliseconds reached{0}; ///< by those who follow the text

    bool audible = true;    ///< is to be heard
    bool heard = false;     ///< to its end
    std::size_t piece = 0;  ///< whose samples are written next,
    std::size_t sample = 0; ///< beginning with this one
    bool taken = false;     ///< the device has accepted samples
    std::chrono::milliseconds written{0};
    std::chrono::milliseconds played{0};        ///< negative while the first sample is on its way
    std::chrono::steady_clock::time_point seen; ///< when `played` was right

    [[nodiscard]] bool complete() const { return cut && made.size() == pieces.size(); }
};

/// What the threads and the speaker all see, under the mutex but for `current`. That is never held during a
/// call of the synthesiser or of the device.
struct SoundState
{
    SynthesiserFactory makeSynthesiser;
    SoundDeviceFactory openDevice;
    std::chrono::milliseconds keepDevice{0};

    std::mutex mutex;
    std::condition_variable changed;
    std::atomic<Ticket> current{0}; ///< of the text
    SpokenText text;
    bool muted = false;
    bool ended = false;
    /// Since when the device's thread is in a call of the device.
    std::optional<std::chrono::steady_clock::time_point> calling;

    /// There is something to be made, and it is not too early for it.
    [[nodiscard]] bool due() const;
    [[nodiscard]] bool playable() const { return text.audible && text.piece < text.made.size(); }
};

/// The bodies of the two threads, until `ended`.
void makeSpeech(const std::shared_ptr<SoundState>& state);
void playSpeech(const std::shared_ptr<SoundState>& state);

} // namespace voice

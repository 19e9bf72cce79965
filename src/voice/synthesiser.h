#pragma once

#include "voice/mouths.h"
#include "voice/spoken_pieces.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace voice {

/// Samples a second of all sound, one channel.
inline constexpr int sampleRate = 16'000;

[[nodiscard]] inline std::size_t samplesIn(std::chrono::milliseconds span)
{
    return static_cast<std::size_t>(std::max<std::int64_t>(span.count(), 0)) * sampleRate / 1000;
}

/// When a word begins, and how much of the text is said with it.
struct WordTime
{
    std::chrono::milliseconds start{0};
    qsizetype end = 0;
};

/// What there is to see of a piece of speech; times count from its beginning.
struct SpeechTimes
{
    std::vector<WordTime> words;
    std::vector<MouthTime> mouths;
    std::chrono::milliseconds length{0};
};

struct Speech
{
    SpeechTimes times;
    std::vector<std::int16_t> samples; ///< as long as the times say
};

/// Turns words into sound. Used by one thread only.
class Synthesiser
{
public:
    Synthesiser() = default;
    Synthesiser(const Synthesiser&) = delete;
    Synthesiser& operator=(const Synthesiser&) = delete;
    virtual ~Synthesiser() = default;

    /// May come back early with anything once `dropped` says so.
    virtual Speech synthesise(const SpokenPiece& piece, const std::function<bool()>& dropped) = 0;
};

using SynthesiserFactory = std::function<std::unique_ptr<Synthesiser>()>;

} // namespace voice

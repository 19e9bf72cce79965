#pragma once

#include "voice/mouths.h"
#include "voice/spoken_pieces.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <functional>
#include <vector>

namespace voice {

/// Samples a second of all sound, one channel.
inline constexpr int sampleRate = 16'000;

[[nodiscard]] inline std::size_t samplesIn(std::chrono::milliseconds span)
{
    return static_cast<std::size_t>(std::max<std::int64_t>(span.count(), 0)) * sampleRate / 1000;
}

[[nodiscard]] inline std::chrono::milliseconds spanOf(std::size_t samples)
{
    return std::chrono::milliseconds(samples * 1000 / sampleRate);
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

/// Turns words into sound. Used by one thread only. May come back early with anything once `dropped` says so.
using Synthesiser = std::function<Speech(const SpokenPiece& piece, const std::function<bool()>& dropped)>;

/// libflite with its voice rms. One thread of the program may use it: the library's state is global.
[[nodiscard]] Speech synthesise(const SpokenPiece& piece, const std::function<bool()>& dropped);

/// The sounds that libflite's voice says a word with, in its own names.
[[nodiscard]] std::string soundsOf(const std::string& word);

} // namespace voice

#pragma once

#include <chrono>
#include <optional>
#include <string_view>
#include <vector>

namespace voice {

/// What the mouth shows while something is said; Rest is closed lips.
enum class MouthShape { Rest, M, F, T, S, E, A, O, U };

/// One sound of the voice; it begins where the one before ends.
struct Segment
{
    std::string_view name; ///< of the synthesiser's American English sounds
    std::chrono::milliseconds end{0};
};

/// What the mouth shows from a time on.
struct MouthTime
{
    std::chrono::milliseconds start{0};
    MouthShape shape = MouthShape::Rest;

    bool operator==(const MouthTime&) const = default;
};

/// The shapes of one sound, the second one only where it changes; none for a name that is not
/// known.
struct SoundShapes
{
    MouthShape first = MouthShape::E;
    std::optional<MouthShape> second;
};
[[nodiscard]] std::optional<SoundShapes> shapesOf(std::string_view segment);

/// The shapes of a row of sounds, without repetitions and without those too short to be seen; closed
/// lips are always kept.
[[nodiscard]] std::vector<MouthTime> mouthsOf(const std::vector<Segment>& segments);

} // namespace voice

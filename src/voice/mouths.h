#pragma once

#include "mouth/shape.h"

#include <chrono>
#include <optional>
#include <string_view>
#include <vector>

namespace voice {

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
    mouth::Shape shape = mouth::Shape::Rest;

    bool operator==(const MouthTime&) const = default;
};

/// The shapes of a sound, the second one only where it changes.
struct Phone
{
    std::string_view name;
    mouth::Shape first = mouth::Shape::E;
    std::optional<mouth::Shape> second = std::nullopt;
};
/// Those of an E for a name that is not known.
[[nodiscard]] Phone phoneOf(std::string_view name);

/// The shapes of a row of sounds, without repetitions and without those too short to be seen; closed
/// lips are always kept.
[[nodiscard]] std::vector<MouthTime> mouthsOf(const std::vector<Segment>& segments);

} // namespace voice

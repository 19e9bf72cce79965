#include "toolkit/random.h"

#include <chrono>

namespace toolkit {

ClockSeededRandom::ClockSeededRandom() : engine_(std::random_device{}()) {}

// The clock alone would repeat a seed when asked twice within its resolution, and with it the draw.
void ClockSeededRandom::reseed()
{
    const auto now = static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
    std::seed_seq seed{static_cast<std::uint32_t>(now), static_cast<std::uint32_t>(now >> 32U),
                       static_cast<std::uint32_t>(engine_()), static_cast<std::uint32_t>(engine_())};
    engine_.seed(seed);
}

float ClockSeededRandom::next()
{
    constexpr unsigned spareBits = 8; // a float holds 24 of the 32 bits
    constexpr float step = 1.0F / 16777216.0F;
    return static_cast<float>(engine_() >> spareBits) * step;
}

} // namespace toolkit

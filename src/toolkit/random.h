#pragma once

#include <cmath>

namespace toolkit {

/// Uniform random numbers. Draws that follow one another are independent, also across a reseed.
class Random
{
public:
    virtual ~Random() = default;

    /// Stirs the system clock into the generator.
    virtual void reseed() = 0;

    /// The next number, uniform in [0, 1), in single precision.
    [[nodiscard]] virtual float next() = 0;
};

/// The nearest whole number, an exact half going to the even neighbour.
[[nodiscard]] inline int roundHalfToEven(float value)
{
    return static_cast<int>(std::nearbyint(value));
}

} // namespace toolkit

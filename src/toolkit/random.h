#pragma once

#include <cmath>
#include <cstdint>
#include <random>

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

class ClockSeededRandom final : public Random
{
public:
    ClockSeededRandom();
    void reseed() override;
    [[nodiscard]] float next() override;

private:
    std::mt19937 engine_;
};

/// The nearest whole number, an exact half going to the even neighbour.
[[nodiscard]] inline int roundHalfToEven(float value)
{
    return static_cast<int>(std::nearbyint(value));
}

} // namespace toolkit

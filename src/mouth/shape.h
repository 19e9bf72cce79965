#pragma once

#include <cstddef>

namespace mouth {

/// What the mouth shows while something is said. Rest, closed lips, leaves the expression of a face alone.
enum class Shape { Rest, M, F, T, S, E, A, O, U };
inline constexpr std::size_t shapeCount = 9;

} // namespace mouth

#pragma once

#include <QColor>

namespace stage {

// Of what belongs to the host without being his figure.
inline constexpr QColor edgeColour(0x0b, 0x4d, 0x5f);
inline constexpr QColor paperColour(0xff, 0xfd, 0xf3);
inline constexpr QColor inkColour(0x16, 0x24, 0x33);

} // namespace stage

#pragma once

namespace stage {

/// Top-level windows can be placed and shaped here, which only X11 offers.
[[nodiscard]] bool windowsCanBePlaced();

/// Someone blends windows, so that half-transparent pixels show what is below. Asks the X server.
[[nodiscard]] bool compositorRuns();

} // namespace stage

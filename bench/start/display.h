#pragma once

#include "display/display.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace start {

/// An X display as a bystander sees it: its windows, their pixels, and a keyboard.
class Display : public desk::Display
{
public:
    using desk::Display::Display;

    /// The windows that the window manager looks after, the oldest first.
    [[nodiscard]] std::vector<xcb_window_t> windows() const;
    [[nodiscard]] std::string title(xcb_window_t window) const;
    /// The colour 0xRRGGBB that all four corners of the window have on screen, if they are on screen and have
    /// the same one.
    [[nodiscard]] std::optional<std::uint32_t> ground(xcb_window_t window) const;

private:
    [[nodiscard]] std::string property(xcb_window_t window, const std::string& name) const;
};

} // namespace start

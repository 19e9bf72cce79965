#pragma once

#include "display/display.h"

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
    /// Whether a window shows more than the one or two colours that it has before its program paints it.
    [[nodiscard]] bool isPainted(xcb_window_t window) const;

private:
    [[nodiscard]] std::string property(xcb_window_t window, const std::string& name) const;
};

} // namespace start

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <xcb/xcb.h>

namespace start {

/// An X display as a bystander sees it: its windows, their pixels, and a keyboard.
class Display
{
public:
    /// Connects to the display called `name`; throws std::runtime_error if there is none.
    explicit Display(const std::string& name);
    ~Display();
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    /// Tries for a third of a second whether a window manager takes care of a new window.
    [[nodiscard]] bool isManaged();
    /// The windows that the window manager looks after, the oldest first.
    [[nodiscard]] std::vector<xcb_window_t> windows();
    [[nodiscard]] std::string title(xcb_window_t window);
    /// The colour 0xRRGGBB that all four corners of the window have on screen, if they are on screen and have
    /// the same one.
    [[nodiscard]] std::optional<std::uint32_t> ground(xcb_window_t window);
    [[nodiscard]] bool isActive(xcb_window_t window);
    void pressReturn();

private:
    [[nodiscard]] std::vector<std::uint8_t> property(xcb_window_t window, xcb_atom_t name);
    [[nodiscard]] std::vector<xcb_window_t> windowsIn(xcb_atom_t name);
    [[nodiscard]] xcb_atom_t atom(const std::string& name);

    xcb_connection_t* connection_;
    xcb_window_t root_ = XCB_NONE;
    xcb_atom_t list_ = XCB_NONE;
    xcb_atom_t active_ = XCB_NONE;
    xcb_atom_t title_ = XCB_NONE;
};

} // namespace start

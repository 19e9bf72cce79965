#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QString>

#include <xcb/xcb.h>

#include <cstdint>

namespace desk {

using Window = xcb_window_t;

/// Keys without a letter, for Display::type().
constexpr char16_t endKey = 0xff57;
constexpr char16_t rightKey = 0xff53;
constexpr char16_t downKey = 0xff54;
constexpr char16_t f1Key = 0xffbe; ///< and so on for the next ones

/// The user's side of an X display: hands on mouse and keyboard, eyes on the screen. All positions are in
/// pixels from the screen's top left corner. What cannot be done throws std::runtime_error.
class Display
{
public:
    explicit Display(const QByteArray& name);
    ~Display();
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    /// Moves the mouse to a point and clicks there.
    void click(QPoint point, int times = 1);
    void moveMouse(QPoint point);
    /// Presses and releases one key after another: letters, digits and blanks; "\r" is Enter, "\t" Tab, "\b"
    /// the key that takes back, "\x1b" Escape; "&" holds Alt down for the key that follows.
    void type(const QString& keys);

    /// Where a window stands; an empty rectangle if there is no such window.
    [[nodiscard]] QRect place(Window window) const;
    /// How many other windows of the screen lie below it; -1 while it is not on the screen.
    [[nodiscard]] int height(Window window) const;
    [[nodiscard]] Window focused() const;
    /// Whether a click at `point` would go to `window`.
    [[nodiscard]] bool reaches(QPoint point, Window window) const;
    [[nodiscard]] QImage picture(QRect area) const;
    [[nodiscard]] QRect area() const { return place(root_); }

    /// Whether a window manager takes care of new windows; tries it with one of its own.
    [[nodiscard]] bool isManaged();
    /// Sends a window the message with which a window manager asks it to close.
    void askToClose(Window window);

protected:
    [[nodiscard]] xcb_connection_t* connection() const { return connection_; }
    [[nodiscard]] Window root() const { return root_; }

private:
    void fake(std::uint8_t type, std::uint8_t detail, QPoint point = {});
    /// The window's ancestor that is a child of the root, or the window itself.
    [[nodiscard]] Window frame(Window window) const;

    xcb_connection_t* connection_;
    Window root_ = 0;
};

} // namespace desk

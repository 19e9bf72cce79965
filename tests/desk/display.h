#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QString>

#include <xcb/xcb.h>

#include <cstdint>

namespace desk {

using Window = xcb_window_t;

/// The user's side of an X display: hands on mouse and keyboard, eyes on the screen. All positions are in
/// pixels from the screen's top left corner. What cannot be done throws std::runtime_error.
class Display
{
public:
    explicit Display(const QByteArray& name);
    ~Display();
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    void moveTo(QPoint point);
    void click(QPoint point, int times = 1);
    /// Presses and releases the keys of a text of Latin letters, digits and blanks.
    void type(const QString& text);
    enum Key : std::uint32_t {
        Tab = 0xff09,
        Return = 0xff0d,
        Escape = 0xff1b,
        Down = 0xff54,
        End = 0xff57,
        BackSpace = 0xff08
    };
    void press(Key key) { tap(key); }
    /// Presses a letter while Alt is held down.
    void pressAlt(char letter) { tap(static_cast<std::uint32_t>(letter), alt); }

    /// Where a window stands; an empty rectangle if there is no such window.
    [[nodiscard]] QRect place(Window window) const;
    /// How many other windows of the screen lie below it; -1 while it is not on the screen.
    [[nodiscard]] int height(Window window) const;
    [[nodiscard]] Window focused() const;
    /// Whether a click at `point` would go to `window`.
    [[nodiscard]] bool reaches(QPoint point, Window window) const;
    [[nodiscard]] QImage picture(QRect area) const;
    [[nodiscard]] QRect area() const;

    /// Whether a window manager takes care of new windows; tries it with one of its own.
    [[nodiscard]] bool isManaged();
    /// Sends a window the message with which a window manager asks it to close.
    void askToClose(Window window);
    /// Has the window manager close a window, as its close button does.
    void closeByManager(Window window);

private:
    void fake(std::uint8_t type, std::uint8_t detail, QPoint point = {});
    static constexpr std::uint32_t alt = 0xffe9;
    void tap(std::uint32_t symbol, std::uint32_t held = 0);
    void send(Window receiver, Window subject, const char* message, std::uint32_t value, std::uint32_t mask);
    [[nodiscard]] xcb_atom_t atom(const char* name) const;
    /// The window's ancestor that is a child of the root, or the window itself.
    [[nodiscard]] Window frame(Window window) const;

    xcb_connection_t* connection_;
    Window root_ = 0;
};

} // namespace desk

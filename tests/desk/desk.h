#pragma once

#include "scene.h"

#include "display/process.h"

#include <QLocalSocket>
#include <QTemporaryDir>

#include <functional>
#include <stdexcept>

namespace desk {

struct DeskSettings
{
    QSize screen = {1024, 768};
    QString manager = "openbox";
    QString scale = {};  ///< the factor that the user asks Qt programs to grow by
    bool reader = false; ///< a screen reader on the accessibility bus of the tests looks at the program
};

/// A desk of its own for one test: an X display, a window manager, and the program in a directory of its
/// own. What the program shows is only looked at; all that is done to it comes from mouse and keyboard.
class Desk
{
public:
    explicit Desk(const DeskSettings& settings = {});

    /// Starts the program in `directory` and waits for its first window.
    void start(const QString& directory);

    [[nodiscard]] Scene look();
    /// Looks until `holds`; throws std::runtime_error if it does not within the deadline.
    Scene until(const std::string& what, const std::function<bool(const Scene&)>& holds);
    /// The same, and that it has held for a moment.
    Scene untilStays(const std::string& what, const std::function<bool(const Scene&)>& holds);
    Scene untilFocus(const QString& screen, const QString& control);
    /// Waits until these windows are shown and no other.
    Scene untilOnly(const std::string& names);

    /// Waits until a click on the middle of the control would reach its window; returns that point.
    QPoint aim(const QString& screen, const QString& control);
    QPoint aim(Window window, const QString& control);
    void click(const QString& screen, const QString& control, int times = 1);
    /// A window manager may move the focus to and fro while windows come and go.
    void untilKeyboard(Window window);
    /// Waits for a box, which must be the only one.
    ShownWindow box();
    /// Presses a button of the box that is open, or else these keys, and waits until that box is gone;
    /// returns it.
    ShownWindow answer(const QString& buttonOrKeys);
    /// Waits until the name prompt takes text; then types over what stands in it and presses Enter, or
    /// cancels it for an empty name.
    void enterName(const QString& name);

    /// Waits for the program's end; its exit code.
    int exitCode();
    /// All that the program has printed since the last call.
    [[nodiscard]] QByteArray printed() { return program_ ? program_->printed() : QByteArray(); }
    /// The addresses that the program had opened, one a line.
    [[nodiscard]] QByteArray opened() const;
    /// From now on nothing opens an address.
    void openNoMore();
    [[nodiscard]] Window windowOf(const QString& screen) { return look().at(screen).window; }

    /// The environment of programs on this desk.
    [[nodiscard]] QProcessEnvironment environment() const;

private:
    QTemporaryDir room_; ///< sockets and notes; nothing of the program's
    DeskSettings settings_;
    QByteArray displayName_;
    std::unique_ptr<Server> server_;
    std::unique_ptr<Process> manager_;
    std::unique_ptr<Process> program_;
    QLocalSocket inspector_;

public:
    std::unique_ptr<Display> display;
};

} // namespace desk

#include "desk.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>

#include <algorithm>
#include <chrono>
#include <thread>

namespace desk {

using namespace std::chrono_literals;

namespace {

// Long enough for a busy machine; a condition that holds is seen at once.
constexpr std::chrono::duration<int, std::milli> deadline = 20s;
constexpr std::chrono::milliseconds glance = 8ms;

template <typename Condition>
bool holdsInTime(const Condition& condition)
{
    const auto end = std::chrono::steady_clock::now() + deadline;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(glance);
    }
    return true;
}

} // namespace

Desk::Desk(const DeskSettings& settings) : settings_(settings)
{
    server_ = std::make_unique<Server>(settings.screen, environment());
    displayName_ = server_->name();
    display = std::make_unique<Display>(displayName_);
    manager_ = std::make_unique<Process>(settings.manager, QStringList(), environment());
    if (!holdsInTime([this] { return display->isManaged(); }))
        throw std::runtime_error("no window manager: " + manager_->printed().toStdString());
}

// Nothing of the desktop on which the tests happen to run gets through.
QProcessEnvironment Desk::environment() const
{
    QProcessEnvironment result;
    result.insert("PATH", QString(DESK_TOOLS ":") + qEnvironmentVariable("PATH"));
    result.insert("HOME", room_.path());
    result.insert("XDG_RUNTIME_DIR", room_.path());
    result.insert("ALSA_CONFIG_PATH", "/dev/null"); // nobody wants to hear the tests
    result.insert("LANG", "C.UTF-8");
    result.insert("DISPLAY", displayName_);
    return result;
}

void Desk::start(const QString& directory)
{
    const QString socket = room_.filePath("inspector");
    QProcessEnvironment variables = environment();
    variables.insert("QT_PLUGIN_PATH", DESK_PLUGINS);
    variables.insert("QT_QPA_GENERIC_PLUGINS", "orvantainspector");
    variables.insert("DESK_INSPECTOR", socket);
    variables.insert("DESK_OPENED", room_.filePath("opened"));
    variables.insert("QT_SCALE_FACTOR", settings_.scale);
    if (settings_.reader) {
        variables.insert("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
        variables.insert("DBUS_SESSION_BUS_ADDRESS", qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"));
    }
    program_ = std::make_unique<Process>(DESK_PROGRAM, QStringList(), variables, directory);
    const bool connected = holdsInTime([&] {
        inspector_.connectToServer(socket);
        return inspector_.waitForConnected(0) || program_->waitForFinished(0);
    });
    if (!connected || program_->state() == QProcess::NotRunning)
        throw std::runtime_error("the program does not start: " + printed().toStdString());
    until("the first window", [](const Scene& scene) { return !scene.windows.empty(); });
}

Scene Desk::look()
{
    inspector_.write("look\n");
    const bool answers = holdsInTime([this] {
        return inspector_.canReadLine() || inspector_.state() != QLocalSocket::ConnectedState ||
               (inspector_.waitForReadyRead(100) && inspector_.canReadLine());
    });
    if (!answers)
        throw std::runtime_error("the program does not answer any more");
    return Scene(QJsonDocument::fromJson(inspector_.readLine()).array());
}

Scene Desk::until(const std::string& what, const std::function<bool(const Scene&)>& holds)
{
    Scene scene;
    const auto met = [&] {
        scene = look();
        return holds(scene);
    };
    if (!holdsInTime(met))
        throw std::runtime_error("waited in vain for " + what + "; there is: " + scene.description());
    return scene;
}

Scene Desk::untilStays(const std::string& what, const std::function<bool(const Scene&)>& holds)
{
    int looks = 0;
    return until(what, [&](const Scene& scene) {
        looks = holds(scene) ? looks + 1 : 0;
        return looks > 7;
    });
}

Scene Desk::untilFocus(const QString& screen, const QString& control)
{
    return until("the focus in " + control.toStdString(),
                 [&](const Scene& scene) { return scene.control(screen, control).focus; });
}

Scene Desk::untilOnly(const std::string& names)
{
    return until(names + " alone", [&](const Scene& scene) { return scene.names() == names; });
}

QPoint Desk::aim(Window window, const QString& control)
{
    display->moveMouse({}); // which takes away a tool tip that would be in the way
    QPoint point;
    until(control.toStdString() + " in reach", [&](const Scene& scene) {
        const auto shown = std::ranges::find(scene.windows, window, &ShownWindow::window);
        if (shown == scene.windows.end())
            return false;
        const Control& target = shown->controls.at(control);
        const QPoint now = display->place(window).topLeft() + target.place.center();
        const bool still = now == std::exchange(point, now);
        // The host hands on what is clicked through it.
        const ShownWindow* host = scene.find("host");
        const bool reached = display->reaches(now, window) ||
                             (host != nullptr && shown->name == "orv" && display->reaches(now, host->window));
        return still && target.visible && target.enabled && reached;
    });
    return point;
}

QPoint Desk::aim(const QString& screen, const QString& control)
{
    const Scene scene = until(screen.toStdString(), [&](const Scene& now) { return now.shows(screen); });
    return aim(scene.at(screen).window, control);
}

void Desk::click(const QString& screen, const QString& control, int times)
{
    display->click(aim(screen, control), times);
}

void Desk::untilKeyboard(Window window)
{
    untilStays("the keyboard", [&](const Scene&) { return display->focused() == window; });
}

ShownWindow Desk::box()
{
    const Scene scene = until("a box", [](const Scene& now) { return now.shows("box"); });
    if (std::ranges::count(scene.windows, "box", &ShownWindow::name) != 1)
        throw std::runtime_error("more than one box: " + scene.description());
    return scene.at("box");
}

ShownWindow Desk::answer(const QString& buttonOrKeys)
{
    const ShownWindow open = box();
    if (open.controls.contains(buttonOrKeys)) {
        display->click(aim(open.window, buttonOrKeys));
    } else {
        untilKeyboard(open.window);
        display->type(buttonOrKeys);
    }
    until("the end of: " + open.summary(), [&](const Scene& scene) {
        return !std::ranges::count(scene.windows, open.window, &ShownWindow::window);
    });
    return open;
}

void Desk::enterName(const QString& name)
{
    untilKeyboard(untilFocus("prompt", "entry").at("prompt").window);
    display->type(name.isEmpty() ? "\x1b" : name);
    if (!name.isEmpty()) {
        until("the name in the prompt",
              [&](const Scene& now) { return now.control("prompt", "entry").text == name; });
        display->type("\r");
    }
    until("the end of the name prompt", [](const Scene& now) { return !now.shows("prompt"); });
}

int Desk::exitCode()
{
    if (!program_->waitForFinished(deadline.count()) && program_->state() != QProcess::NotRunning)
        throw std::runtime_error("the program does not end; there is: " + look().description());
    return program_->exitStatus() == QProcess::NormalExit ? program_->exitCode() : -1;
}

QByteArray Desk::opened() const
{
    QFile file(room_.filePath("opened"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void Desk::openNoMore()
{
    QFile::remove(room_.filePath("opened"));
    QDir(room_.path()).mkdir("opened");
}

} // namespace desk

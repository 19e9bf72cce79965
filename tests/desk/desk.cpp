#include "desk.h"

#include <QFile>
#include <QJsonDocument>

#include <algorithm>
#include <thread>

namespace desk {

using namespace std::chrono_literals;

namespace {

// Long enough for a busy machine; a condition that holds is seen at once.
constexpr std::chrono::milliseconds deadline = 20s;
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

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

Desk::Desk(const DeskSettings& settings) : scale_(settings.scale)
{
    startDisplay(settings);
    startManager(settings);
}

// Nothing of the desktop on which the tests happen to run gets through.
QProcessEnvironment Desk::environment() const
{
    QProcessEnvironment result;
    result.insert("PATH", QStringLiteral(DESK_TOOLS ":") + qEnvironmentVariable("PATH"));
    result.insert("HOME", room_.path());
    result.insert("XDG_RUNTIME_DIR", room_.path());
    result.insert("ALSA_CONFIG_PATH", "/dev/null"); // nobody wants to hear the tests
    result.insert("LANG", "C.UTF-8");
    result.insert("DISPLAY", displayName_);
    return result;
}

void Desk::startDisplay(const DeskSettings& settings)
{
    const QString size =
        QStringLiteral("%1x%2x24").arg(settings.screen.width()).arg(settings.screen.height());
    server_ = std::make_unique<Process>(
        Command{.program = "Xvfb",
                .arguments = {"-displayfd", "1", "-screen", "0", size, "-nolisten", "tcp", "-noreset"},
                .environment = environment()});
    displayName_ = ":" + server_->firstLine(deadline).trimmed();
    display = std::make_unique<Display>(displayName_);
}

void Desk::startManager(const DeskSettings& settings)
{
    manager_ = std::make_unique<Process>(Command{
        .program = settings.manager, .environment = environment(), .log = room_.filePath("manager.log")});
    if (!holdsInTime([this] { return display->isManaged(); }))
        throw std::runtime_error("no window manager: " +
                                 contents(room_.filePath("manager.log")).toStdString());
}

void Desk::start(const QString& directory)
{
    const QString socket = room_.filePath("inspector");
    QProcessEnvironment variables = environment();
    variables.insert("QT_PLUGIN_PATH", DESK_PLUGINS);
    variables.insert("QT_QPA_GENERIC_PLUGINS", "orvantainspector");
    variables.insert("DESK_INSPECTOR", socket);
    variables.insert("DESK_OPENED", room_.filePath("opened"));
    if (!scale_.isEmpty())
        variables.insert("QT_SCALE_FACTOR", scale_);
    program_ = std::make_unique<Process>(
        Command{.program = DESK_PROGRAM, .environment = variables, .directory = directory});
    const bool connected = holdsInTime([&] {
        inspector_.connectToServer(socket);
        return inspector_.waitForConnected(0) || program_->ended();
    });
    if (!connected || program_->ended())
        throw std::runtime_error("the program does not start: " + printed().toStdString());
    until("the first window", [](const Scene& scene) { return !scene.windows.empty(); });
}

Scene Desk::look()
{
    inspector_.write("look\n");
    const auto end = std::chrono::steady_clock::now() + deadline;
    while (!inspector_.canReadLine()) {
        inspector_.waitForReadyRead(100);
        if (inspector_.state() != QLocalSocket::ConnectedState && !inspector_.canReadLine()) {
            Scene none;
            none.ended = true;
            return none;
        }
        if (std::chrono::steady_clock::now() > end)
            throw std::runtime_error("the program does not answer any more");
    }
    return Scene(QJsonDocument::fromJson(inspector_.readLine()).object());
}

Scene Desk::until(const std::string& what, const std::function<bool(const Scene&)>& holds)
{
    Scene scene;
    const auto met = [&] {
        scene = look();
        return holds(scene) || scene.ended;
    };
    if (!holdsInTime(met) || (scene.ended && !holds(scene)))
        throw std::runtime_error("waited in vain for " + what + "; there is: " + scene.description());
    return scene;
}

QPoint Desk::aimAt(const std::string& what, const std::function<const ShownWindow*(const Scene&)>& pick,
                   const QString& control)
{
    QPoint point;
    until(what, [&](const Scene& scene) {
        const ShownWindow* window = pick(scene);
        if (window == nullptr)
            return false;
        const Control& target = window->control(control);
        const QPoint corner = display->place(window->window).topLeft();
        const QPoint now = corner + target.place.center();
        const bool still = now == std::exchange(point, now);
        // The host hands on what is clicked through it.
        const ShownWindow* host = scene.find("host");
        const bool reached =
            display->reaches(now, window->window) ||
            (host != nullptr && window->name == "orv" && display->reaches(now, host->window));
        return still && target.visible && target.enabled && reached;
    });
    return point;
}

QPoint Desk::aim(const QString& screen, const QString& control)
{
    return aimAt((control + " of " + screen + " in reach").toStdString(),
                 [&](const Scene& scene) { return scene.find(screen); }, control);
}

void Desk::click(const QString& screen, const QString& control, int times)
{
    display->click(aim(screen, control), times);
}

bool Desk::hasKeyboard(Window window)
{
    for (int look = 0; look < 6; ++look) {
        if (display->focused() != window) {
            return false;
        }
        std::this_thread::sleep_for(glance);
    }
    return true;
}

Box Desk::box()
{
    const Scene scene = until("a box", [](const Scene& now) { return !now.boxes.empty(); });
    if (scene.boxes.size() != 1)
        throw std::runtime_error("more than one box: " + scene.description());
    return scene.boxes.front();
}

Box Desk::answer(const QString& button, const Box& open)
{
    const auto pick = [&](const Scene& scene) -> const ShownWindow* {
        const auto found = std::ranges::find(scene.boxes, open.window, &Box::window);
        return found == scene.boxes.end() ? nullptr : &*found;
    };
    display->click(aimAt("the button " + button.toStdString(), pick, button));
    until("the end of the box \"" + open.text.toStdString() + "\"",
          [&](const Scene& scene) { return pick(scene) == nullptr; });
    return open;
}

Prompt Desk::enterName(const QString& name)
{
    const Scene scene = until("the name prompt", [this](const Scene& now) {
        return now.prompt && now.prompt->ready && hasKeyboard(now.prompt->window);
    });
    if (name.isEmpty()) {
        display->press(Display::Escape);
    } else {
        display->type(name);
        until("the name in the prompt",
              [&](const Scene& now) { return now.prompt && now.prompt->value == name; });
        display->press(Display::Return);
    }
    until("the end of the name prompt", [](const Scene& now) { return !now.prompt; });
    return *scene.prompt;
}

int Desk::exitCode()
{
    if (!program_->ended(deadline))
        throw std::runtime_error("the program does not end; there is: " + look().description());
    return program_->exitCode();
}

QByteArray Desk::printed()
{
    return program_ ? program_->standardOutput() + program_->standardError() : QByteArray();
}

QByteArray Desk::opened() const
{
    return contents(room_.filePath("opened"));
}

} // namespace desk

#include "toolkit/desktop.h"

#include <QApplication>
#include <QByteArray>
#include <QColor>
#include <QSize>
#include <QStyle>
#include <QWindow>
#include <QtEndian>

#include <xcb/randr.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace toolkit {

namespace {

/// The connection to the X server; none where there is another window system.
xcb_connection_t* connection()
{
    // The platform without a screen offers the interface too, with nothing behind it.
    if (QGuiApplication::platformName() != "xcb")
        return nullptr;
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

struct Free
{
    void operator()(void* reply) const { std::free(reply); } // NOLINT(*-no-malloc): xcb allocates so
};

template <typename Reply>
using Owned = std::unique_ptr<Reply, Free>;

xcb_atom_t atomNamed(xcb_connection_t* x11, const QByteArray& name)
{
    const auto request = xcb_intern_atom(x11, 0, static_cast<std::uint16_t>(name.size()), name.constData());
    const Owned<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(x11, request, nullptr));
    return atom ? atom->atom : xcb_atom_t{XCB_ATOM_NONE};
}

QByteArray property(xcb_connection_t* x11, xcb_window_t window, xcb_atom_t name)
{
    constexpr std::uint32_t mostWords = 1 << 16;
    const auto request = xcb_get_property(x11, 0, window, name, XCB_ATOM_ANY, 0, mostWords);
    const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(x11, request, nullptr));
    if (!reply)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            xcb_get_property_value_length(reply.get())};
}

/// The window that owns the selection `name` of the screen the program is on; none if nobody does.
xcb_window_t ownerOf(xcb_connection_t* x11, const QByteArray& name)
{
    char* host = nullptr;
    int display = 0;
    int screen = 0;
    const bool parsed = xcb_parse_display(nullptr, &host, &display, &screen);
    const Owned<char> hostName(host);
    const xcb_atom_t selection = atomNamed(x11, name + QByteArray::number(parsed ? screen : 0));
    const Owned<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(x11, xcb_get_selection_owner(x11, selection), nullptr));
    return owner ? owner->owner : xcb_window_t{XCB_WINDOW_NONE};
}

/// A number among the settings that the desktop hands to its programs, as the XSETTINGS protocol packs them.
std::optional<int> desktopSetting(xcb_connection_t* x11, const QByteArray& name)
{
    const xcb_window_t owner = ownerOf(x11, "_XSETTINGS_S");
    if (owner == XCB_WINDOW_NONE)
        return std::nullopt;
    const QByteArray settings = property(x11, owner, atomNamed(x11, "_XSETTINGS_SETTINGS"));
    // Behind the name, which is filled up to a multiple of four bytes, stand as many of a serial number.
    const qsizetype value = settings.indexOf(name) + (name.size() + 3) / 4 * 4 + 4;
    if (!settings.contains(name) || value + 4 > settings.size())
        return std::nullopt;
    constexpr char littleEndian = 0;
    const char* const bytes = settings.constData() + value;
    return settings.front() == littleEndian ? qFromLittleEndian<qint32>(bytes)
                                            : qFromBigEndian<qint32>(bytes);
}

/// The pixels of the monitor on which programs start.
QSize screenSize(xcb_connection_t* x11, const xcb_screen_t& screen)
{
    QSize size(screen.width_in_pixels, screen.height_in_pixels);
    const auto* const randr = xcb_get_extension_data(x11, &xcb_randr_id);
    if (!randr || !randr->present)
        return size;
    const Owned<xcb_randr_get_monitors_reply_t> monitors(
        xcb_randr_get_monitors_reply(x11, xcb_randr_get_monitors(x11, screen.root, 1), nullptr));
    if (!monitors)
        return size;
    const auto first = xcb_randr_get_monitors_monitors_iterator(monitors.get());
    for (auto each = first; each.rem > 0; xcb_randr_monitor_info_next(&each))
        if (each.rem == first.rem || each.data->primary)
            size = {each.data->width, each.data->height};
    return size;
}

/// The factor by which Qt draws larger of itself on this desktop.
double desktopScale(xcb_connection_t* x11, const xcb_screen_t& screen)
{
    const auto atDpi = [](double dpi) { return std::max(1.0, dpi / 96); }; // fewer make nothing smaller
    const QByteArray given = qgetenv("QT_SCREEN_SCALE_FACTORS");
    if (const double factor = given.mid(given.lastIndexOf('=') + 1).toDouble(); factor > 0)
        return factor;
    if (const double dpi = qgetenv("QT_FONT_DPI").toDouble(); dpi > 0)
        return atDpi(dpi);
    constexpr double unit = 1024;
    if (const int dpi = desktopSetting(x11, "Xft/DPI").value_or(0); dpi > 0)
        return atDpi(dpi / unit);
    const QByteArray resources = '\n' + property(x11, screen.root, XCB_ATOM_RESOURCE_MANAGER);
    const QByteArray name("\nXft.dpi:");
    if (const qsizetype place = resources.indexOf(name); place >= 0)
        return atDpi(resources.mid(place + name.size()).split('\n').front().toDouble());
    return 1;
}

} // namespace

bool prepareDesktop()
{
    silenceLibraryWarnings();
    if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        return true;
    if (!qEnvironmentVariableIsEmpty("DISPLAY")) {
        xcb_connection_t* const display = xcb_connect(nullptr, nullptr);
        const bool answers = xcb_connection_has_error(display) == 0;
        xcb_disconnect(display);
        if (answers) {
            // Only X (on a Wayland desktop the X server it brings along) lets windows be put beside others.
            qputenv("QT_QPA_PLATFORM", QByteArrayLiteral("xcb"));
            return true;
        }
    }
    if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        return true;
    std::fputs(
        "Orvanta cannot start: there is no display to show it on. Start it from a graphical desktop.\n",
        stderr);
    return false;
}

double growth(const QSize& largest, const QSize& screen, double desktop)
{
    constexpr double stepsPerUnit = 8;
    const double fitting = std::min(static_cast<double>(screen.width()) / largest.width(),
                                    static_cast<double>(screen.height()) / largest.height());
    return std::max(1.0, std::floor(fitting * stepsPerUnit) / stepsPerUnit / desktop);
}

bool growToScreen(const QSize& largest)
{
    const char* const variable = "QT_SCALE_FACTOR";
    if (!qEnvironmentVariableIsEmpty(variable) || qgetenv("QT_QPA_PLATFORM") != "xcb")
        return false;
    int number = 0;
    const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> x11(xcb_connect(nullptr, &number),
                                                                           &xcb_disconnect);
    if (xcb_connection_has_error(x11.get()) != 0)
        return false;
    auto screen = xcb_setup_roots_iterator(xcb_get_setup(x11.get()));
    for (; number > 0; --number)
        xcb_screen_next(&screen);
    const double factor =
        growth(largest, screenSize(x11.get(), *screen.data), desktopScale(x11.get(), *screen.data));
    return factor > 1 && qputenv(variable, QByteArray::number(factor));
}

void keepAbove(QWindow& window, QWindow& behind)
{
    window.setTransientParent(&behind);
    // Qt tells X of a transient parent only for dialogs and tools, and takes it back when it maps the window.
    if (xcb_connection_t* const x11 = connection()) {
        const auto parent = static_cast<xcb_window_t>(behind.winId());
        xcb_change_property(x11, XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(window.winId()),
                            XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW, 32, 1, &parent);
    }
}

void setGround(QWindow& window, const QColor& colour)
{
    if (xcb_connection_t* const x11 = connection()) {
        const std::uint32_t pixel = colour.rgb() & RGB_MASK;
        xcb_change_window_attributes(x11, static_cast<xcb_window_t>(window.winId()), XCB_CW_BACK_PIXEL,
                                     &pixel);
    }
}

bool windowsCanBePlaced()
{
    return connection() != nullptr;
}

bool compositorRuns()
{
    xcb_connection_t* const x11 = connection();
    return x11 && ownerOf(x11, "_NET_WM_CM_S") != XCB_WINDOW_NONE;
}

bool animationsWanted()
{
    if (QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration) == 0)
        return false;
    xcb_connection_t* const x11 = connection();
    return !x11 || desktopSetting(x11, "Gtk/EnableAnimations") != 0;
}

void silenceLibraryWarnings()
{
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& message) {
        if (type == QtFatalMsg || type == QtCriticalMsg)
            std::fprintf(stderr, "%s\n", qPrintable(message));
    });
}

} // namespace toolkit

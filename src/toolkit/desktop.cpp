#include "toolkit/desktop.h"

#include <QApplication>
#include <QByteArray>
#include <QColor>
#include <QStyle>
#include <QWindow>

#include <xcb/xcb.h>

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

/// The settings that the desktop hands to its programs, as the XSETTINGS protocol packs them.
QByteArray desktopSettings(xcb_connection_t* x11)
{
    const xcb_window_t owner = ownerOf(x11, "_XSETTINGS_S");
    if (owner == XCB_WINDOW_NONE)
        return {};
    constexpr std::uint32_t mostWords = 1 << 16;
    const xcb_atom_t property = atomNamed(x11, "_XSETTINGS_SETTINGS");
    const auto request = xcb_get_property(x11, 0, owner, property, XCB_ATOM_ANY, 0, mostWords);
    const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(x11, request, nullptr));
    if (!reply)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            xcb_get_property_value_length(reply.get())};
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
    const QByteArray settings = x11 ? desktopSettings(x11) : QByteArray();
    // Behind the name stand four bytes of a serial number and the value.
    const QByteArray name("Gtk/EnableAnimations");
    const qsizetype place = settings.indexOf(name);
    return place < 0 || settings.mid(place + name.size() + 4, 4) != QByteArray(4, '\0');
}

void silenceLibraryWarnings()
{
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& message) {
        if (type == QtFatalMsg || type == QtCriticalMsg)
            std::fprintf(stderr, "%s\n", qPrintable(message));
    });
}

} // namespace toolkit

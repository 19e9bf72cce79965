#include "toolkit/desktop.h"

#include <QByteArray>
#include <QColor>
#include <QGuiApplication>
#include <QWindow>

#include <xcb/xcb.h>

#include <cstdio>

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

} // namespace

std::optional<std::string> prepareDesktop()
{
    if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        return std::nullopt;
    if (!qEnvironmentVariableIsEmpty("DISPLAY")) {
        xcb_connection_t* const display = xcb_connect(nullptr, nullptr);
        const bool answers = xcb_connection_has_error(display) == 0;
        xcb_disconnect(display);
        if (answers) {
            // Only X (on a Wayland desktop the X server it brings along) lets windows be put beside others.
            qputenv("QT_QPA_PLATFORM", QByteArrayLiteral("xcb"));
            return std::nullopt;
        }
    }
    if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        return std::nullopt;
    return "there is no display to show it on. Start it from a graphical desktop.";
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

void silenceLibraryWarnings()
{
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& message) {
        if (type == QtFatalMsg || type == QtCriticalMsg)
            std::fprintf(stderr, "%s\n", qPrintable(message));
    });
}

} // namespace toolkit

#include "toolkit/desktop.h"

#include <QByteArray>
#include <QGuiApplication>
#include <QWindow>

#include <xcb/xcb.h>

#include <cstdio>

namespace toolkit {

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
    // The platform without a screen offers the interface too, with nothing behind it.
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || QGuiApplication::platformName() != "xcb")
        return;
    // Qt tells X of a transient parent only for dialogs and tools, and takes it back when it maps the window.
    const auto parent = static_cast<xcb_window_t>(behind.winId());
    xcb_change_property(x11->connection(), XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(window.winId()),
                        XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW, 32, 1, &parent);
}

void silenceLibraryWarnings()
{
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& message) {
        if (type == QtFatalMsg || type == QtCriticalMsg)
            std::fprintf(stderr, "%s\n", qPrintable(message));
    });
}

} // namespace toolkit

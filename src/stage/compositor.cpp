#include "stage/compositor.h"

#include <QByteArray>
#include <QGuiApplication>

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

namespace stage {

namespace {

struct Free
{
    void operator()(void* reply) const { std::free(reply); } // NOLINT(*-no-malloc): xcb allocates so
};

} // namespace

bool windowsCanBePlaced()
{
    return QGuiApplication::platformName() == "xcb";
}

bool compositorRuns()
{
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11)
        return false;
    xcb_connection_t* connection = x11->connection();
    char* host = nullptr;
    int display = 0;
    int screen = 0;
    const bool parsed = xcb_parse_display(nullptr, &host, &display, &screen);
    const std::unique_ptr<char, Free> hostName(host);
    const QByteArray name = "_NET_WM_CM_S" + QByteArray::number(parsed ? screen : 0);

    static const std::unique_ptr<xcb_intern_atom_reply_t, Free> atom(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.constData()),
        nullptr));
    if (!atom)
        return false;
    const std::unique_ptr<xcb_get_selection_owner_reply_t, Free> owner(
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, atom->atom), nullptr));
    return owner && owner->owner != XCB_WINDOW_NONE;
}

} // namespace stage

#include "display.h"

#include <xcb/xtest.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <thread>

namespace start {

namespace {

constexpr std::uint8_t returnKey = 36; // the key's code on every PC keyboard

struct Free
{
    void operator()(void* reply) const { std::free(reply); }
};

// Nothing where the window has gone, or is not on screen, in the meantime.
template <typename Cookie, typename Reply>
std::unique_ptr<Reply, Free> answer(xcb_connection_t* connection, Cookie cookie,
                                    Reply* (*fetch)(xcb_connection_t*, Cookie, xcb_generic_error_t**))
{
    xcb_generic_error_t* error = nullptr;
    std::unique_ptr<Reply, Free> reply(fetch(connection, cookie, &error));
    std::free(error);
    return reply;
}

} // namespace

Display::Display(const std::string& name) : connection_(xcb_connect(name.c_str(), nullptr))
{
    if (xcb_connection_has_error(connection_) != 0) {
        xcb_disconnect(connection_);
        throw std::runtime_error("there is no display " + name);
    }
    root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    list_ = atom("_NET_CLIENT_LIST");
    active_ = atom("_NET_ACTIVE_WINDOW");
    title_ = atom("_NET_WM_NAME");
}

Display::~Display()
{
    xcb_disconnect(connection_);
}

xcb_atom_t Display::atom(const std::string& name)
{
    const auto length = static_cast<std::uint16_t>(name.size());
    const auto reply =
        answer(connection_, xcb_intern_atom(connection_, 0, length, name.c_str()), xcb_intern_atom_reply);
    return reply ? reply->atom : XCB_NONE;
}

std::vector<std::uint8_t> Display::property(xcb_window_t window, xcb_atom_t name)
{
    const auto reply =
        answer(connection_, xcb_get_property(connection_, 0, window, name, XCB_ATOM_ANY, 0, 256),
               xcb_get_property_reply);
    if (!reply)
        return {};
    const auto* bytes = static_cast<const std::uint8_t*>(xcb_get_property_value(reply.get()));
    return {bytes, bytes + xcb_get_property_value_length(reply.get())};
}

std::vector<xcb_window_t> Display::windowsIn(xcb_atom_t name)
{
    const auto bytes = property(root_, name);
    std::vector<xcb_window_t> result(bytes.size() / sizeof(xcb_window_t));
    if (!result.empty())
        std::memcpy(result.data(), bytes.data(), result.size() * sizeof(xcb_window_t));
    return result;
}

// A manager that is still starting up misses windows, even when it has told of itself already.
bool Display::isManaged()
{
    const xcb_window_t probe = xcb_generate_id(connection_);
    xcb_create_window(connection_, XCB_COPY_FROM_PARENT, probe, root_, 0, 0, 64, 64, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_map_window(connection_, probe);
    bool managed = false;
    for (int glance = 0; glance < 30 && !managed; ++glance) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        managed = windows() == std::vector{probe};
    }
    xcb_destroy_window(connection_, probe);
    xcb_flush(connection_);
    return managed;
}

std::vector<xcb_window_t> Display::windows()
{
    return windowsIn(list_);
}

bool Display::isActive(xcb_window_t window)
{
    return windowsIn(active_) == std::vector{window};
}

std::string Display::title(xcb_window_t window)
{
    const auto bytes = property(window, title_);
    return {bytes.begin(), bytes.end()};
}

std::optional<std::uint32_t> Display::ground(xcb_window_t window)
{
    const auto size = answer(connection_, xcb_get_geometry(connection_, window), xcb_get_geometry_reply);
    if (!size)
        return std::nullopt;
    std::optional<std::uint32_t> common;
    for (const int x : {0, size->width - 1}) {
        for (const int y : {0, size->height - 1}) {
            const auto image =
                answer(connection_,
                       xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, window,
                                     static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 1, 1, ~0U),
                       xcb_get_image_reply);
            if (!image)
                return std::nullopt;
            std::uint32_t colour = 0;
            std::memcpy(&colour, xcb_get_image_data(image.get()), sizeof colour);
            colour &= 0xffffffU;
            if (common && *common != colour)
                return std::nullopt;
            common = colour;
        }
    }
    return common;
}

void Display::pressReturn()
{
    for (const int type : {XCB_KEY_PRESS, XCB_KEY_RELEASE})
        xcb_test_fake_input(connection_, static_cast<std::uint8_t>(type), returnKey, XCB_CURRENT_TIME, root_,
                            0, 0, 0);
    xcb_flush(connection_);
}

} // namespace start

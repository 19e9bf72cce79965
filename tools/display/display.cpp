#include "display/display.h"

#include <xcb/xtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <utility>

namespace desk {

namespace {

template <typename Reply>
struct Free
{
    void operator()(Reply* reply) const { std::free(reply); }
};

// An answer is missing where the window in question has gone in the meantime.
template <typename Cookie, typename Reply>
std::unique_ptr<Reply, Free<Reply>> answer(xcb_connection_t* connection, Cookie cookie,
                                           Reply* (*fetch)(xcb_connection_t*, Cookie, xcb_generic_error_t**))
{
    return std::unique_ptr<Reply, Free<Reply>>(fetch(connection, cookie, nullptr));
}

constexpr xcb_keysym_t shiftSymbol = 0xffe1;
constexpr xcb_keysym_t altSymbol = 0xffe9;
constexpr xcb_keysym_t controlSymbols = 0xff00; // those of the keys for control characters follow it

} // namespace

Display::Display(const QByteArray& name) : connection_(xcb_connect(name.constData(), nullptr))
{
    if (xcb_connection_has_error(connection_) != 0) {
        xcb_disconnect(connection_);
        throw std::runtime_error("no X display " + name.toStdString());
    }
    root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
}

Display::~Display()
{
    xcb_disconnect(connection_);
}

void Display::fake(std::uint8_t type, std::uint8_t detail, QPoint point)
{
    xcb_test_fake_input(connection_, type, detail, XCB_CURRENT_TIME, root_,
                        static_cast<std::int16_t>(point.x()), static_cast<std::int16_t>(point.y()), 0);
}

void Display::moveMouse(QPoint point)
{
    fake(XCB_MOTION_NOTIFY, 0, point);
    xcb_flush(connection_);
}

void Display::click(QPoint point, int times)
{
    fake(XCB_MOTION_NOTIFY, 0, point);
    for (int i = 0; i < times; ++i) {
        fake(XCB_BUTTON_PRESS, XCB_BUTTON_INDEX_1);
        fake(XCB_BUTTON_RELEASE, XCB_BUTTON_INDEX_1);
    }
    xcb_flush(connection_);
}

void Display::type(const QString& keys)
{
    const xcb_setup_t* setup = xcb_get_setup(connection_);
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const auto map = answer(connection_, xcb_get_keyboard_mapping(connection_, setup->min_keycode, count),
                            xcb_get_keyboard_mapping_reply);
    const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(map.get());
    const auto keyOf = [&](xcb_keysym_t symbol, int column) {
        int key = 0;
        while (key < count && symbols[key * map->keysyms_per_keycode + column] != symbol)
            ++key;
        return static_cast<std::uint8_t>(key < count ? setup->min_keycode + key : 0);
    };
    std::uint8_t held = 0;
    for (const QChar each : keys) {
        if (each == '&') {
            held = keyOf(altSymbol, 0);
            continue;
        }
        const xcb_keysym_t symbol = each < ' ' ? controlSymbols | each.unicode() : each.unicode();
        std::uint8_t key = keyOf(symbol, 0);
        if (key == 0) {
            key = keyOf(symbol, 1);
            held = keyOf(shiftSymbol, 0);
        }
        if (key == 0)
            throw std::runtime_error("the keyboard has no key for symbol " + std::to_string(symbol));
        if (held != 0)
            fake(XCB_KEY_PRESS, held);
        fake(XCB_KEY_PRESS, key);
        fake(XCB_KEY_RELEASE, key);
        if (held != 0)
            fake(XCB_KEY_RELEASE, std::exchange(held, 0));
    }
    xcb_flush(connection_);
}

QRect Display::place(Window window) const
{
    const auto size = answer(connection_, xcb_get_geometry(connection_, window), xcb_get_geometry_reply);
    const auto corner = answer(connection_, xcb_translate_coordinates(connection_, window, root_, 0, 0),
                               xcb_translate_coordinates_reply);
    if (!size || !corner)
        return {};
    return {corner->dst_x, corner->dst_y, size->width, size->height};
}

Window Display::frame(Window window) const
{
    for (;;) {
        const auto tree = answer(connection_, xcb_query_tree(connection_, window), xcb_query_tree_reply);
        if (!tree || tree->parent == root_ || tree->parent == XCB_NONE)
            return window;
        window = tree->parent;
    }
}

int Display::height(Window window) const
{
    const auto state =
        answer(connection_, xcb_get_window_attributes(connection_, window), xcb_get_window_attributes_reply);
    if (!state || state->map_state != XCB_MAP_STATE_VIEWABLE)
        return -1;
    const auto tree = answer(connection_, xcb_query_tree(connection_, root_), xcb_query_tree_reply);
    const std::span children(xcb_query_tree_children(tree.get()), tree->children_len);
    return static_cast<int>(std::ranges::find(children, frame(window)) - children.begin());
}

Window Display::focused() const
{
    const auto focus = answer(connection_, xcb_get_input_focus(connection_), xcb_get_input_focus_reply);
    return focus ? focus->focus : XCB_NONE;
}

bool Display::reaches(QPoint point, Window window) const
{
    const auto hit =
        answer(connection_,
               xcb_translate_coordinates(connection_, root_, root_, static_cast<std::int16_t>(point.x()),
                                         static_cast<std::int16_t>(point.y())),
               xcb_translate_coordinates_reply);
    return hit && hit->child == frame(window) && place(window).contains(point);
}

QImage Display::picture(QRect area) const
{
    const auto image = answer(
        connection_,
        xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, root_, static_cast<std::int16_t>(area.x()),
                      static_cast<std::int16_t>(area.y()), static_cast<std::uint16_t>(area.width()),
                      static_cast<std::uint16_t>(area.height()), ~0U),
        xcb_get_image_reply);
    if (!image)
        return {};
    return QImage(xcb_get_image_data(image.get()), area.width(), area.height(), QImage::Format_RGB32).copy();
}

bool Display::isManaged()
{
    const Window probe = xcb_generate_id(connection_);
    xcb_create_window(connection_, XCB_COPY_FROM_PARENT, probe, root_, 0, 0, 64, 64, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_map_window(connection_, probe);
    bool managed = false;
    for (int glance = 0; glance < 30 && !managed; ++glance) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        managed = frame(probe) != probe && height(probe) >= 0;
    }
    xcb_destroy_window(connection_, probe);
    xcb_flush(connection_);
    return managed;
}

void Display::askToClose(Window window)
{
    const auto atom = [this](std::string_view name) {
        const auto length = static_cast<std::uint16_t>(name.size());
        const auto cookie = xcb_intern_atom(connection_, 0, length, name.data());
        return answer(connection_, cookie, xcb_intern_atom_reply)->atom;
    };
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom("WM_PROTOCOLS");
    event.data.data32[0] = atom("WM_DELETE_WINDOW");
    xcb_send_event(connection_, 0, window, 0, reinterpret_cast<const char*>(&event));
    xcb_flush(connection_);
}

} // namespace desk

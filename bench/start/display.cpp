#include "display.h"

#include <cstdlib>
#include <cstring>
#include <memory>
#include <set>

namespace start {

/// Nothing where there is no such property, or the window has gone in the meantime.
std::string Display::property(xcb_window_t window, const std::string& name) const
{
    const auto length = static_cast<std::uint16_t>(name.size());
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> atom(
        xcb_intern_atom_reply(connection(), xcb_intern_atom(connection(), 0, length, name.data()), nullptr),
        &std::free);
    const auto cookie = xcb_get_property(connection(), 0, window, atom->atom, XCB_ATOM_ANY, 0, 256);
    const std::unique_ptr<xcb_get_property_reply_t, decltype(&std::free)> value(
        xcb_get_property_reply(connection(), cookie, nullptr), &std::free);
    if (!value)
        return {};
    const auto* bytes = static_cast<const char*>(xcb_get_property_value(value.get()));
    return {bytes, bytes + xcb_get_property_value_length(value.get())};
}

std::vector<xcb_window_t> Display::windows() const
{
    const std::string bytes = property(root(), "_NET_CLIENT_LIST");
    std::vector<xcb_window_t> result(bytes.size() / sizeof(xcb_window_t));
    if (!result.empty())
        std::memcpy(result.data(), bytes.data(), result.size() * sizeof(xcb_window_t));
    return result;
}

std::string Display::title(xcb_window_t window) const
{
    return property(window, "_NET_WM_NAME");
}

std::optional<std::uint32_t> Display::ground(xcb_window_t window) const
{
    const QRect area = place(window);
    std::set<std::uint32_t> colours;
    for (const QPoint corner : {area.topLeft(), area.topRight(), area.bottomLeft(), area.bottomRight()}) {
        const QImage pixel = picture({corner, QSize(1, 1)});
        if (pixel.isNull())
            return std::nullopt;
        colours.insert(pixel.pixel(0, 0) & RGB_MASK);
    }
    return colours.size() == 1 ? std::optional(*colours.begin()) : std::nullopt;
}

} // namespace start

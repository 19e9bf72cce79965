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

bool Display::isPainted(xcb_window_t window) const
{
    constexpr std::size_t blended = 16; // more colours than a frame has; the edges of letters have as many
    const QImage image = picture(place(window) & area());
    std::set<QRgb> colours;
    for (int y = 0; y < image.height() && colours.size() <= blended; ++y) {
        const auto* pixels = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x)
            if (x == 0 || pixels[x] != pixels[x - 1])
                colours.insert(pixels[x]);
    }
    return colours.size() > blended;
}

} // namespace start

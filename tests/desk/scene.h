#pragma once

#include "display/display.h"

#include <QJsonArray>

#include <map>
#include <string>
#include <vector>

namespace desk {

struct Control
{
    QString text;
    bool visible = false;
    bool enabled = false; ///< of a timer: whether it runs
    bool focus = false;
    QRect place; ///< within its window
};

/// A screen, or the prompt for a name, called "prompt", or another box, called "box".
struct ShownWindow
{
    QString name;
    QString title;
    QString text; ///< of a box or the prompt
    int icon = 0;
    Window window = 0;
    std::map<QString, Control> controls; ///< of a box or the prompt: its buttons by their texts, and "entry"

    /// Title, text, icon and buttons in one line: "Orvanta | Hello | information | OK".
    [[nodiscard]] std::string summary() const;
};

/// What the program showed at one moment.
class Scene
{
public:
    explicit Scene(const QJsonArray& scene = {});

    /// The names of the windows, in alphabetical order.
    [[nodiscard]] std::string names() const;
    [[nodiscard]] const ShownWindow* find(const QString& name) const;
    [[nodiscard]] bool shows(const QString& name) const { return find(name) != nullptr; }
    /// Throws std::runtime_error if there is no such window.
    [[nodiscard]] const ShownWindow& at(const QString& name) const;
    /// A control of a window; one that is nowhere while there is none.
    [[nodiscard]] Control control(const QString& window, const QString& name) const;
    [[nodiscard]] std::string description() const;

    std::vector<ShownWindow> windows;
};

} // namespace desk

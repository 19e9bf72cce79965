#pragma once

#include "display.h"

#include <QJsonObject>
#include <QStringList>

#include <map>
#include <optional>

namespace desk {

struct Control
{
    QString text;
    bool visible = false;
    bool enabled = false;
    bool focus = false;
    bool checked = false;
    QString background; ///< its colour while it is opaque, as "#rrggbb"; empty while it is transparent
    QRect place;        ///< within its window
};

struct ShownWindow
{
    QString name;
    QString title;
    Window window = 0;
    std::map<QString, Control> controls; ///< of a box or a prompt: its buttons by their texts
    std::map<QString, bool> timers;      ///< whether they run

    [[nodiscard]] const Control& control(const QString& wanted) const;
    [[nodiscard]] QString textOf(const QString& wanted) const { return control(wanted).text; }
};

struct Box : ShownWindow
{
    enum Icon { NoIcon = 0, Information = 1, Exclamation = 2 };
    QString text;
    int icon = NoIcon;

    /// Title, text, icon and buttons in one line: "Orvanta | Hello | information | OK".
    [[nodiscard]] std::string summary() const;
};

struct Prompt : ShownWindow
{
    QString text;
    QString value;
    bool ready = false; ///< takes typed text
};

/// What the program showed at one moment.
class Scene
{
public:
    Scene() = default;
    explicit Scene(const QJsonObject& scene);

    /// The names of the screens shown, in alphabetical order.
    [[nodiscard]] std::string screens() const;
    [[nodiscard]] const ShownWindow* find(const QString& name) const;
    /// Throws std::runtime_error if the screen is not shown.
    [[nodiscard]] const ShownWindow& at(const QString& name) const;
    [[nodiscard]] bool shows(const QString& name) const { return find(name) != nullptr; }
    /// The text of a control, or nothing while its screen is not shown.
    [[nodiscard]] QString text(const QString& screen, const QString& control) const;

    std::map<QString, ShownWindow> windows;
    std::vector<Box> boxes;
    std::optional<Prompt> prompt;
    bool ended = false; ///< the program has gone

    [[nodiscard]] std::string description() const;
};

} // namespace desk

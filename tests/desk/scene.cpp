#include "scene.h"

#include <QJsonObject>
#include <QStringList>

#include <algorithm>
#include <stdexcept>

namespace desk {

namespace {

Control readControl(const QJsonObject& from)
{
    const QJsonArray place = from["rectangle"].toArray();
    return {.text = from["text"].toString(),
            .visible = from["visible"].toBool(),
            .enabled = from["enabled"].toBool(),
            .focus = from["focus"].toBool(),
            .place = {place[0].toInt(), place[1].toInt(), place[2].toInt(), place[3].toInt()}};
}

ShownWindow readWindow(const QJsonObject& from)
{
    ShownWindow result;
    result.name = from["name"].toString();
    result.title = from["title"].toString();
    result.text = from["text"].toString();
    result.icon = from["icon"].toInt();
    result.window = static_cast<Window>(from["window"].toInteger());
    const QJsonObject controls = from["controls"].toObject();
    for (auto control = controls.begin(); control != controls.end(); ++control)
        result.controls[control.key()] = readControl(control->toObject());
    return result;
}

} // namespace

std::string ShownWindow::summary() const
{
    const QStringList icons{"no icon", "information", "exclamation"};
    QStringList parts{title, text, icons.value(icon, "another icon")};
    for (const auto& [label, button] : controls)
        parts.append(label);
    return parts.join(" | ").toStdString();
}

Scene::Scene(const QJsonArray& scene)
{
    for (const auto& window : scene)
        windows.push_back(readWindow(window.toObject()));
    std::ranges::sort(windows, {}, &ShownWindow::name);
}

std::string Scene::names() const
{
    QStringList names;
    for (const ShownWindow& window : windows)
        names.append(window.name);
    return names.join(' ').toStdString();
}

const ShownWindow* Scene::find(const QString& name) const
{
    const auto found = std::ranges::find(windows, name, &ShownWindow::name);
    return found == windows.end() ? nullptr : &*found;
}

const ShownWindow& Scene::at(const QString& name) const
{
    const ShownWindow* window = find(name);
    if (window == nullptr)
        throw std::runtime_error(name.toStdString() + " is not shown; there is: " + description());
    return *window;
}

Control Scene::control(const QString& window, const QString& name) const
{
    const ShownWindow* shown = find(window);
    return shown != nullptr && shown->controls.contains(name) ? shown->controls.at(name) : Control();
}

std::string Scene::description() const
{
    std::string result = names();
    for (const ShownWindow& window : windows)
        result += window.text.isEmpty() ? "" : "; " + window.summary();
    return result;
}

} // namespace desk

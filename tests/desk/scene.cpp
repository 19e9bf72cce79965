#include "scene.h"

#include <QJsonArray>

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
            .checked = from["checked"].toBool(),
            .background = from["opaque"].toBool() ? from["background"].toString() : QString(),
            .place =
                QRectF(place[0].toDouble(), place[1].toDouble(), place[2].toDouble(), place[3].toDouble())
                    .toRect()};
}

void readWindow(const QJsonObject& from, ShownWindow& to)
{
    to.name = from["name"].toString();
    to.title = from["title"].toString();
    to.window = static_cast<Window>(from["window"].toInteger());
    const QJsonObject controls = from["controls"].toObject();
    for (auto control = controls.begin(); control != controls.end(); ++control)
        to.controls[control.key()] = readControl(control->toObject());
    const QJsonObject timers = from["timers"].toObject();
    for (auto timer = timers.begin(); timer != timers.end(); ++timer)
        to.timers[timer.key()] = timer->toBool();
}

const char* nameOf(int icon)
{
    switch (icon) {
    case Box::NoIcon:
        return "no icon";
    case Box::Information:
        return "information";
    case Box::Exclamation:
        return "exclamation";
    default:
        return "another icon";
    }
}

} // namespace

const Control& ShownWindow::control(const QString& wanted) const
{
    const auto found = controls.find(wanted);
    if (found == controls.end())
        throw std::runtime_error(name.toStdString() + " has no " + wanted.toStdString());
    return found->second;
}

std::string Box::summary() const
{
    QStringList parts{title, text, nameOf(icon)};
    for (const auto& [label, button] : controls)
        parts.append(label);
    return parts.join(" | ").toStdString();
}

Scene::Scene(const QJsonObject& scene)
{
    for (const auto& entry : scene["windows"].toArray()) {
        ShownWindow window;
        readWindow(entry.toObject(), window);
        windows[window.name] = window;
    }
    for (const auto& entry : scene["boxes"].toArray()) {
        Box& box = boxes.emplace_back();
        readWindow(entry.toObject(), box);
        box.text = entry.toObject()["text"].toString();
        box.icon = entry.toObject()["icon"].toInt();
    }
    for (const auto& entry : scene["prompts"].toArray()) {
        readWindow(entry.toObject(), prompt.emplace());
        prompt->text = entry.toObject()["text"].toString();
        prompt->value = entry.toObject()["value"].toString();
        prompt->ready = entry.toObject()["ready"].toBool();
    }
}

std::string Scene::screens() const
{
    QStringList names;
    for (const auto& [name, window] : windows)
        names.append(name);
    return names.join(' ').toStdString();
}

const ShownWindow* Scene::find(const QString& name) const
{
    const auto found = windows.find(name);
    return found == windows.end() ? nullptr : &found->second;
}

const ShownWindow& Scene::at(const QString& name) const
{
    const ShownWindow* window = find(name);
    if (window == nullptr)
        throw std::runtime_error(name.toStdString() + " is not shown; there is: " + description());
    return *window;
}

QString Scene::text(const QString& screen, const QString& control) const
{
    const ShownWindow* window = find(screen);
    return window == nullptr ? QString() : window->textOf(control);
}

std::string Scene::description() const
{
    if (ended)
        return "the program has ended";
    std::string result = "screens: " + screens();
    for (const Box& box : boxes)
        result += "; box: " + box.summary();
    if (prompt)
        result += "; prompt: " + prompt->text.toStdString() + " = " + prompt->value.toStdString();
    return result;
}

} // namespace desk

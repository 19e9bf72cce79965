#include <QAbstractButton>
#include <QApplication>
#include <QGenericPlugin>
#include <QInputDialog>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QLocalServer>
#include <QLocalSocket>
#include <QMessageBox>
#include <QTimer>
#include <QWindow>

namespace {

/// In the pixels of the display, seen from the top left corner of the widget's window.
QJsonArray rectangle(const QWidget& widget)
{
    const double ratio = widget.devicePixelRatioF();
    const QPoint corner = widget.mapTo(widget.window(), QPoint());
    return {corner.x() * ratio, corner.y() * ratio, widget.width() * ratio, widget.height() * ratio};
}

QString shownText(const QWidget& widget)
{
    for (const char* name : {"plainText", "text", "currentText"}) {
        const QVariant text = widget.property(name);
        if (text.isValid())
            return text.toString();
    }
    return {};
}

QJsonObject described(const QWidget& widget)
{
    QString text = shownText(widget);
    if (qobject_cast<const QAbstractButton*>(&widget))
        text.remove('&');
    return {{"text", text},
            {"visible", widget.isVisible()},
            {"enabled", widget.isEnabled()},
            {"focus", widget.hasFocus()},
            {"checked", widget.property("checked").toBool()},
            {"opaque", widget.autoFillBackground()},
            {"background", widget.palette().color(widget.backgroundRole()).name()},
            {"rectangle", rectangle(widget)}};
}

QJsonObject describedWindow(const QWidget& window)
{
    QJsonObject controls;
    for (const QWidget* child : window.findChildren<QWidget*>()) {
        if (child->window() == &window && !child->objectName().isEmpty())
            controls[child->objectName()] = described(*child);
    }
    QJsonObject timers;
    for (const QTimer* timer : window.findChildren<QTimer*>())
        timers[timer->objectName()] = timer->isActive();
    return {{"name", window.objectName()},   {"title", window.windowTitle()},
            {"visible", window.isVisible()}, {"window", static_cast<qint64>(window.effectiveWinId())},
            {"controls", controls},          {"timers", timers}};
}

template <typename Dialog>
QJsonObject describedDialog(const Dialog& dialog)
{
    QJsonObject result = describedWindow(dialog);
    QJsonObject buttons;
    for (const QAbstractButton* button : dialog.template findChildren<QAbstractButton*>()) {
        QJsonObject description = described(*button);
        buttons[description["text"].toString()] = description;
    }
    result["controls"] = buttons;
    return result;
}

QJsonObject describedBox(const QMessageBox& box)
{
    QJsonObject result = describedDialog(box);
    result["text"] = box.text();
    result["icon"] = static_cast<int>(box.icon());
    return result;
}

QJsonObject describedPrompt(const QInputDialog& prompt)
{
    QJsonObject result = describedDialog(prompt);
    result["text"] = prompt.labelText();
    result["value"] = prompt.textValue();
    const auto* entry = prompt.findChild<QLineEdit*>();
    result["ready"] = entry != nullptr && entry->hasFocus();
    return result;
}

/// All that is on the screen of this program, at this moment.
QByteArray scene()
{
    QJsonArray windows;
    QJsonArray boxes;
    QJsonArray prompts;
    for (const QWidget* widget : QApplication::topLevelWidgets()) {
        if (const auto* box = qobject_cast<const QMessageBox*>(widget)) {
            if (box->isVisible())
                boxes.append(describedBox(*box));
        } else if (const auto* prompt = qobject_cast<const QInputDialog*>(widget)) {
            if (prompt->isVisible())
                prompts.append(describedPrompt(*prompt));
        } else if (widget->isVisible() && !widget->objectName().isEmpty()) {
            windows.append(describedWindow(*widget));
        }
    }
    const QJsonObject all{{"windows", windows}, {"boxes", boxes}, {"prompts", prompts}};
    return QJsonDocument(all).toJson(QJsonDocument::Compact) + '\n';
}

/// Answers every line sent to its socket with the scene of the moment.
class Inspector final : public QObject
{
public:
    Inspector()
    {
        connect(&server_, &QLocalServer::newConnection, this, [this] {
            QLocalSocket* const visitor = server_.nextPendingConnection();
            connect(visitor, &QLocalSocket::readyRead, visitor, [visitor] {
                while (visitor->canReadLine()) {
                    visitor->readLine();
                    visitor->write(scene());
                }
            });
        });
        server_.listen(qEnvironmentVariable("DESK_INSPECTOR"));
    }

private:
    QLocalServer server_;
};

/// Brings an inspector into any Qt program whose environment asks for it.
class InspectorPlugin final : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "inspector.json")

public:
    QObject* create(const QString&, const QString&) override { return new Inspector; }
};

} // namespace

#include "inspector.moc"

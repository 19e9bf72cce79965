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

namespace {

/// In the pixels of the display, seen from the top left corner of the widget's window.
QJsonArray rectangle(const QWidget& widget)
{
    const QPoint corner = widget.mapTo(widget.window(), QPoint());
    QJsonArray result;
    for (const int length : {corner.x(), corner.y(), widget.width(), widget.height()})
        result.append(qRound(length * widget.devicePixelRatioF()));
    return result;
}

QString shownText(const QWidget& widget)
{
    for (const char* name : {"plainText", "text", "currentText", "labelText"}) {
        const QVariant text = widget.property(name);
        if (text.isValid())
            return qobject_cast<const QAbstractButton*>(&widget) ? text.toString().remove('&')
                                                                 : text.toString();
    }
    return {};
}

QString nameOf(const QWidget& control)
{
    if (qobject_cast<const QDialog*>(control.window()) == nullptr)
        return control.objectName();
    if (qobject_cast<const QAbstractButton*>(&control))
        return shownText(control);
    return qobject_cast<const QLineEdit*>(&control) ? "entry" : "";
}

QJsonObject described(const QWidget& widget)
{
    return {{"text", shownText(widget)},
            {"visible", widget.isVisible()},
            {"enabled", widget.isEnabled()},
            {"focus", widget.hasFocus()},
            {"rectangle", rectangle(widget)}};
}

QJsonObject describedWindow(const QWidget& window, const QString& name)
{
    QJsonObject controls;
    for (const QWidget* child : window.findChildren<QWidget*>())
        if (child->window() == &window && !nameOf(*child).isEmpty())
            controls[nameOf(*child)] = described(*child);
    for (const QTimer* timer : window.findChildren<QTimer*>())
        if (!timer->objectName().isEmpty())
            controls[timer->objectName()] = QJsonObject{{"enabled", timer->isActive()}};
    return {{"name", name},
            {"title", window.windowTitle()},
            {"text", shownText(window)},
            {"icon", window.property("icon").toInt()},
            {"window", static_cast<qint64>(window.effectiveWinId())},
            {"controls", controls}};
}

/// All that is on the screen of this program, at this moment.
QByteArray scene()
{
    QJsonArray windows;
    for (const QWidget* widget : QApplication::topLevelWidgets()) {
        const QString name = qobject_cast<const QMessageBox*>(widget)    ? "box"
                             : qobject_cast<const QInputDialog*>(widget) ? "prompt"
                                                                         : widget->objectName();
        if (widget->isVisible() && !name.isEmpty() && widget->windowType() != Qt::ToolTip)
            windows.append(describedWindow(*widget, name));
    }
    return QJsonDocument(windows).toJson(QJsonDocument::Compact) + '\n';
}

/// Brings into any Qt program whose environment asks for it a socket that answers every line with the scene
/// of the moment.
class InspectorPlugin final : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "inspector.json")

public:
    QObject* create(const QString&, const QString&) override
    {
        auto* server = new QLocalServer;
        connect(server, &QLocalServer::newConnection, server, [server] {
            QLocalSocket* const visitor = server->nextPendingConnection();
            connect(visitor, &QLocalSocket::readyRead, visitor, [visitor] {
                while (visitor->canReadLine()) {
                    visitor->readLine();
                    visitor->write(scene());
                }
            });
        });
        server->listen(qEnvironmentVariable("DESK_INSPECTOR"));
        return server;
    }
};

} // namespace

#include "inspector.moc"

#include "toolkit/access.h"

#include "toolkit/form.h"
#include "toolkit/reach.h"

#include <QAccessibleWidget>

#include <algorithm>

namespace toolkit {

namespace {

/// A label or a button of ours.
class ControlAccess final : public QAccessibleWidget
{
public:
    ControlAccess(QWidget& control, const Label* label) : QAccessibleWidget(&control), label_(label) {}

    [[nodiscard]] QAccessible::Role role() const override
    {
        return label_ && !label_->onClick ? QAccessible::StaticText : QAccessible::Button;
    }

    [[nodiscard]] QString text(QAccessible::Text what) const override
    {
        if (what == QAccessible::Description && isCovered(*widget()))
            return "covered";
        if (what != QAccessible::Name || !widget()->accessibleName().isEmpty())
            return QAccessibleWidget::text(what);
        return shownText().simplified();
    }

    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.offscreen = !isInView(*widget());
        state.invisible = state.invisible || isCovered(*widget());
        state.disabled = state.disabled || (role() == QAccessible::Button && !offersPress());
        return state;
    }

    [[nodiscard]] QStringList actionNames() const override
    {
        if (!isInReach(*widget()))
            return {};
        return (offersPress() ? QStringList(pressAction()) : QStringList()) +
               QAccessibleWidget::actionNames();
    }

    void doAction(const QString& name) override
    {
        if (name != pressAction()) {
            if (isInReach(*widget()))
                QAccessibleWidget::doAction(name);
            return;
        }
        // Later, because the reader waits for an answer and what is pressed may open a box.
        QMetaObject::invokeMethod(
            widget(),
            [control = widget()] {
                if (auto* const form = dynamic_cast<Form*>(control->parentWidget()))
                    form->press(*control);
            },
            Qt::QueuedConnection);
    }

    [[nodiscard]] QStringList keyBindingsForAction(const QString& name) const override
    {
        return name == pressAction() ? widget()->property(keysProperty).toStringList() : QStringList();
    }

private:
    [[nodiscard]] QString shownText() const
    {
        return label_ ? label_->text() : static_cast<const Button*>(widget())->text().remove('&');
    }
    [[nodiscard]] bool offersPress() const
    {
        const auto* const form = dynamic_cast<const Form*>(widget()->parentWidget());
        return (!label_ || label_->onClick) && !shownText().isEmpty() && form && form->canPress(*widget());
    }

    const Label* label_; ///< null for a button
};

/// What a reader shall not come across: what only decorates, and the inside of a control that scrolls.
class HiddenAccess final : public QAccessibleWidget
{
public:
    using QAccessibleWidget::QAccessibleWidget;
    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.invisible = true;
        return state;
    }
};

bool isDecoration(const QObject* object)
{
    return dynamic_cast<const Shape*>(object) || dynamic_cast<const Line*>(object) ||
           dynamic_cast<const Picture*>(object);
}

/// What is told to the user without being on the screen. Readers speak a notification that shows.
class Announcement final : public QWidget
{
public:
    explicit Announcement(QWidget* parent) : QWidget(parent)
    {
        setObjectName("announcement");
        setGeometry(0, 0, 1, 1);
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }
};

/// A screen. What only decorates it is not among its children, which stand in reading order.
class FormAccess final : public QAccessibleWidget
{
public:
    explicit FormAccess(Form& form)
        : QAccessibleWidget(&form, form.isWindow() ? QAccessible::Window : QAccessible::Pane)
    {
    }

    [[nodiscard]] QString text(QAccessible::Text what) const override
    {
        const QString text = QAccessibleWidget::text(what);
        return what == QAccessible::Name && text.isEmpty() ? widget()->windowTitle() : text;
    }
    [[nodiscard]] int childCount() const override { return static_cast<int>(children().size()); }
    [[nodiscard]] QAccessibleInterface* child(int index) const override
    {
        return QAccessible::queryAccessibleInterface(children().value(index));
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override
    {
        return static_cast<int>(children().indexOf(child ? child->object() : nullptr));
    }

private:
    [[nodiscard]] QObjectList children() const
    {
        QObjectList told;
        for (QObject* child : widget()->children())
            if (isTold(child))
                told << child;
        std::ranges::stable_sort(told, {}, [](const QObject* child) {
            const QPoint place = static_cast<const QWidget*>(child)->pos();
            return std::pair(place.y(), place.x());
        });
        return told;
    }

    static bool isTold(QObject* child)
    {
        const auto* const widget = qobject_cast<QWidget*>(child);
        if (!widget || widget->isWindow())
            return false;
        if (const auto* const label = dynamic_cast<const Label*>(widget))
            return !label->text().isEmpty() || !label->accessibleName().isEmpty();
        return !isDecoration(child);
    }
};

QAccessibleInterface* describe(const QString& className, QObject* object)
{
    auto* const widget = qobject_cast<QWidget*>(object);
    if (!widget)
        return nullptr;
    if (auto* const form = dynamic_cast<Form*>(widget))
        return new FormAccess(*form);
    const auto* const label = dynamic_cast<const Label*>(widget);
    if (label || dynamic_cast<Button*>(widget))
        return new ControlAccess(*widget, label);
    if (dynamic_cast<Announcement*>(widget))
        return new QAccessibleWidget(widget, QAccessible::Notification);
    if (isDecoration(widget) || widget->objectName() == "qt_scrollarea_viewport")
        return new HiddenAccess(widget);
    if (className == "QWidget" && widget->isWindow())
        return new QAccessibleWidget(widget, QAccessible::Window);
    return nullptr;
}

} // namespace

void describeToReaders()
{
    QAccessible::installFactory(describe);
}

void Form::announce(const QString& text)
{
    auto* announcement = findChild<QWidget*>("announcement", Qt::FindDirectChildrenOnly);
    if (!announcement)
        announcement = new Announcement(this);
    announcement->setAccessibleName(text);
    if (announcement->isHidden()) {
        announcement->show();
        return;
    }
    QAccessibleEvent shown(announcement, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&shown);
}

} // namespace toolkit

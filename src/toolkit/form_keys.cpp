#include "toolkit/access.h"
#include "toolkit/form.h"
#include "toolkit/reach.h"

#include <QApplication>
#include <QKeyEvent>
#include <QShortcut>

#include <algorithm>

namespace toolkit {

void Form::addKeys(const std::vector<KeyRow>& rows)
{
    for (const KeyRow& row : rows) {
        const QStringList keys = row.keys.split(' ');
        const QString named = keys.join(" or ");
        keyHelp_ << named + ": " + row.words;
        if (row.control) {
            row.control->setToolTip(QString("%1 (%2)").arg(row.words, named));
            row.control->setProperty(keysProperty, keys);
        }
        if (!row.control && !row.action)
            continue;
        for (const QString& key : keys) {
            auto* shortcut = new QShortcut(QKeySequence(key), this);
            shortcut->setAutoRepeat(false);
            connect(shortcut, &QShortcut::activated, this,
                    [this, row] { row.action ? run(row.action) : press(*row.control); });
        }
    }
}

bool Form::canPress(const QWidget& control) const
{
    return !sliding_ && !closed_ && !QApplication::activeModalWidget() && isInReach(control);
}

void Form::press(QWidget& control)
{
    if (!canPress(control))
        return;
    if (auto* const button = dynamic_cast<Button*>(&control))
        button->press();
    else if (auto* const label = dynamic_cast<Label*>(&control); label && label->onClick)
        label->onClick();
}

void Form::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto* const label = dynamic_cast<Label*>(focusWidget());
    if (!enter && !(label && event->key() == Qt::Key_Space)) {
        QWidget::keyPressEvent(event);
        return;
    }
    if (event->isAutoRepeat())
        return;
    if (label) {
        press(*label);
        return;
    }
    auto* pressed = qobject_cast<QPushButton*>(focusWidget());
    if (!pressed)
        pressed = defaultButton_;
    if (pressed)
        pressed->click();
}

/// Passes over what a click would not reach either.
bool Form::focusNextPrevChild(bool next)
{
    if (tabs_.empty())
        return QWidget::focusNextPrevChild(next);
    const auto count = std::ssize(tabs_);
    const auto focused = std::ranges::find(tabs_, focusWidget(), &std::pair<int, QWidget*>::second);
    const auto start = focused != tabs_.end() ? focused - tabs_.begin() : next ? count - 1 : 0;
    for (std::ptrdiff_t step = 1; step <= count; ++step) {
        QWidget* const control = tabs_[(start + (next ? step : count - step)) % count].second;
        if (isInReach(*control)) {
            control->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return true;
        }
    }
    return false;
}

/// On a ground of the screen's own, where what the desktop shows of the focus is lost.
void Form::mark(const QWidget* control)
{
    mark_.reset();
    if (!settings_.background || !control)
        return;
    const auto* const label = dynamic_cast<const Label*>(control);
    const Shape* const shape = label ? label->backgroundShape() : nullptr;
    const Shape::Kind kind = shape ? Shape::Kind::Hexagon : Shape::Kind::Rectangle;
    const int distance = shape ? 5 : 3;
    mark_ = std::make_unique<Shape>(
        Shape::Style{.kind = kind, .outline = Qt::white, .outlineWidth = shape ? 3 : 2}, this);
    mark_->setGeometry(
        (shape ? shape->geometry() : control->geometry()).adjusted(-distance, -distance, distance, distance) &
        rect());
    mark_->show();
}

} // namespace toolkit

#include "toolkit/choice_list.h"
#include "toolkit/form.h"
#include "toolkit/text_box.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QPlainTextEdit>

#include <algorithm>

namespace toolkit {

template <typename Control>
Control* Form::add(Control* control, const QString& name, const TwipRect& place)
{
    control->setObjectName(name);
    control->setGeometry(pixels(place));
    control->lower();
    return control;
}

void Form::applyLook(QWidget* control, const Look& look)
{
    if (look.font)
        control->setFont(*look.font);
    control->setHidden(look.hidden);
    if (control->focusPolicy() == Qt::NoFocus)
        return;
    // Whatever the pointer lies on, a turn of the wheel takes no focus.
    if (control->focusPolicy() == Qt::WheelFocus)
        control->setFocusPolicy(Qt::StrongFocus);
    tabs_.emplace_back(look.tab, control);
    if (!dynamic_cast<Label*>(control))
        lifted_.push_back(control);
    control->installEventFilter(this);
}

Label* Form::label(const QString& name, const TwipRect& place, const QString& text, const Look& look)
{
    auto* control = add(new Label(this), name, place);
    if (look.tab >= 0)
        control->setFocusPolicy(Qt::TabFocus);
    applyLook(control, look);
    if (look.colour)
        control->setTextColour(*look.colour);
    if (look.background)
        control->setBackground(*look.background);
    control->setOpaque(look.background.has_value());
    control->setAlignment((look.centred        ? Qt::AlignHCenter
                           : look.rightAligned ? Qt::AlignRight
                                               : Qt::AlignLeft) |
                          (look.middle ? Qt::AlignVCenter : Qt::AlignTop));
    control->setBordered(look.bordered);
    control->setText(text);
    if (look.sizedToText)
        control->setSizedToText();
    return control;
}

Button* Form::button(const QString& name, const TwipRect& place, const QString& text, const Look& look)
{
    auto* control = add(new Button(this), name, place);
    applyLook(control, look);
    if (look.background)
        control->setBackground(*look.background);
    control->setText(text);
    return control;
}

QCheckBox* Form::checkBox(const QString& name, const TwipRect& place, const QString& text, const Look& look)
{
    auto* control = add(new QCheckBox(text, this), name, place);
    applyLook(control, look);
    return control;
}

QPlainTextEdit* Form::textArea(const QString& name, const TwipRect& place, const QString& text,
                               const Look& look)
{
    auto* control = add(new TextArea(text, this), name, place);
    applyLook(control, look);
    QPalette colours = control->palette();
    if (look.colour)
        colours.setColor(QPalette::Text, *look.colour);
    if (look.background)
        colours.setColor(QPalette::Base, *look.background);
    control->setPalette(colours);
    control->setTabChangesFocus(true);
    return control;
}

TextBox* Form::textBox(const QString& name, const TwipRect& place, qsizetype limit, const Look& look)
{
    auto* control = add(new TextBox(this), name, place);
    applyLook(control, look);
    control->setLimit(limit);
    return control;
}

ChoiceList* Form::choiceList(const QString& name, const TwipRect& place, const Look& look)
{
    auto* control = add(new ChoiceList(this), name, place);
    applyLook(control, look);
    return control;
}

QGroupBox* Form::frame(const QString& name, const TwipRect& place, const QString& text)
{
    return add(new QGroupBox(text, this), name, place);
}

Picture* Form::picture(const QString& name, const TwipRect& place, const QString& resource)
{
    auto* control = add(new Picture(resource, this), name, place);
    lifted_.push_back(control);
    return control;
}

Shape* Form::shape(const QString& name, const TwipRect& place, const Shape::Style& style, bool hidden)
{
    auto* control = add(new Shape(style, this), name, place);
    control->setHidden(hidden);
    return control;
}

Line* Form::line(const QString& name, TwipPoint from, TwipPoint to, const QColor& colour, int width,
                 bool hidden)
{
    auto* control = new Line(from, to, colour, width, this);
    control->setObjectName(name);
    control->lower();
    control->setHidden(hidden);
    return control;
}

Timer* Form::timer(const QString& name, std::chrono::milliseconds period, bool enabled)
{
    auto* control = new Timer(services_.clock, period, this);
    control->setObjectName(name);
    control->setEnabled(enabled);
    timers_.push_back(control);
    return control;
}

void Form::controlsDone()
{
    std::for_each(lifted_.rbegin(), lifted_.rend(), [](QWidget* control) { control->raise(); });
    std::ranges::stable_sort(tabs_, {}, &std::pair<int, QWidget*>::first);
    for (std::size_t place = 1; place < tabs_.size(); ++place)
        setTabOrder(tabs_[place - 1].second, tabs_[place].second);
    focusFirst();
}

void Form::focusFirst()
{
    if (!tabs_.empty())
        tabs_.front().second->setFocus();
}

void Form::resumeFocus()
{
    if (focused_ && focused_->isEnabled() && focused_->isVisibleTo(this))
        focused_->setFocus(Qt::MouseFocusReason);
    else
        focusFirst();
}

} // namespace toolkit

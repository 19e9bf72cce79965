#include "toolkit/choice_list.h"

#include <QAbstractItemView>
#include <QScopedValueRollback>
#include <QStylePainter>
#include <QWheelEvent>

namespace toolkit {

ChoiceList::ChoiceList(QWidget* parent) : QComboBox(parent)
{
    connect(this, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (index >= 0 && !refilling_ && onChosen)
            onChosen();
    });
}

void ChoiceList::clear()
{
    const QScopedValueRollback refilling(refilling_, true);
    QComboBox::clear();
}

void ChoiceList::append(const QString& text)
{
    const QScopedValueRollback refilling(refilling_, true);
    const bool nothingChosen = currentIndex() < 0;
    int place = count();
    while (sorted_ && place > 0 && itemText(place - 1) > text)
        --place;
    insertItem(place, text);
    // The first entry of a list is chosen without asking.
    if (nothingChosen)
        setCurrentIndex(-1);
}

void ChoiceList::choose(const QString& text)
{
    setCurrentIndex(findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive));
}

void ChoiceList::showPopup()
{
    constexpr int margins = 24;
    view()->setMinimumWidth(view()->sizeHintForColumn(0) + margins);
    QComboBox::showPopup();
}

// The style would cut a long text in the middle of a letter.
void ChoiceList::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QRect field =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    option.currentText = fontMetrics().elidedText(option.currentText, Qt::ElideRight, field.width() - 2);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

// A turn of the wheel while the pointer passes would choose unseen.
void ChoiceList::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

} // namespace toolkit

#include "bank/question.h"

namespace bank {

QString Place::text() const
{
    QString text = file;
    if (id != 0)
        return text + QString(": question %1").arg(id);
    for (const int number : {line, column})
        if (number > 0)
            text += QString(":%1").arg(number);
    return text;
}

QString& Question::at(Field field)
{
    switch (field) {
    case Field::Level:
        return level;
    case Field::Topic:
        return topic;
    case Field::Question:
        return text;
    case Field::Right:
        return right;
    case Field::Why:
        return why;
    default:
        return options.at(static_cast<std::size_t>(field) - static_cast<std::size_t>(Field::A));
    }
}

Place Question::placeOf(Field field) const
{
    const Spot& spot = spots.at(static_cast<std::size_t>(field));
    return spot.line > 0 ? Place{place.file, spot.line, spot.column} : place;
}

int Question::rightIndex() const
{
    const bool isLetter = right.size() == 1 && right.front() >= u'A' && right.front() <= u'D';
    return isLetter ? right.front().unicode() - u'A' : -1;
}

void Question::findRight()
{
    right.clear();
    const QString wanted = key.toLower();
    for (std::size_t i = 0; i < options.size(); ++i) {
        // An option that is the key to the letter goes before one in another case.
        if (options[i] == key || (right.isEmpty() && options[i].toLower() == wanted)) {
            right = nameOf(optionFields.at(i));
            if (options[i] == key)
                return;
        }
    }
}

} // namespace bank

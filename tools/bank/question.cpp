#include "bank/question.h"

#include <algorithm>

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
    return field == Field::Level      ? level
           : field == Field::Topic    ? topic
           : field == Field::Question ? text
           : field == Field::Right    ? right
           : field == Field::Why
               ? why
               : options.at(static_cast<std::size_t>(field) - static_cast<std::size_t>(Field::A));
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
    // An option that is the key to the letter goes before one in another case.
    const auto* found = std::ranges::find(options, key);
    if (found == options.end())
        found =
            std::ranges::find(options, key.toLower(), [](const QString& option) { return option.toLower(); });
    right = found == options.end()
                ? QString()
                : nameOf(optionFields.at(static_cast<std::size_t>(found - options.begin())));
}

} // namespace bank

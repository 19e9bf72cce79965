#include "bank/rules.h"

#include "bank/text.h"

#include <QHash>

#include <algorithm>

namespace bank {
namespace {

constexpr qsizetype maxQuestionLength = 100;
constexpr qsizetype maxOptionLength = 25;
constexpr qsizetype maxPromptLength = 100;
constexpr double leastShare = 0.22;
constexpr double mostShare = 0.28;

bool isOption(Field field)
{
    return field >= Field::A && field <= Field::D;
}

/// The field as a complaint calls it.
const char* title(Field field)
{
    constexpr std::array titles = {"level",    "topic",    "question", "option A", "option B",
                                   "option C", "option D", "right",    "why"};
    return titles.at(static_cast<std::size_t>(field));
}

QString missing(Field field, const Question& question)
{
    if (field == Field::Right && !question.key.isEmpty())
        return QString("the right answer \"%1\" is none of the options").arg(question.key);
    return QString(title(field)) + (isOption(field) ? " is missing, four are needed" : " is missing");
}

QString tooLong(const char* what, const QString& text, qsizetype limit)
{
    const auto points = text.size() <= limit ? 0 : length(text);
    return points <= limit
               ? QString()
               : QString("%1 has %2 characters, at most %3 fit").arg(QString(what)).arg(points).arg(limit);
}

QString notPlain(const char* what, const QString& text)
{
    if (const auto stray = strayCharacter(text)) {
        return *stray == u'\n' || *stray == u'\r'
                   ? QString("%1 holds a line break, but must be one line").arg(QString(what))
                   : QString("%1 holds the control character U+%2")
                         .arg(QString(what))
                         .arg(static_cast<uint>(*stray), 4, 16, QChar(u'0'));
    }
    return !text.isEmpty() && (text.front().isSpace() || text.back().isSpace())
               ? QString("%1 has a blank at an end").arg(QString(what))
               : QString();
}

QString wrongValue(Field field, const Question& question)
{
    const QString& text = question.at(field);
    switch (field) {
    case Field::Level:
        return isLevel(text) ? QString() : QString("level \"%1\" is none of 1, 2, 3").arg(text);
    case Field::Right:
        return question.rightIndex() >= 0 ? QString()
                                          : QString("right \"%1\" is none of A, B, C, D").arg(text);
    case Field::Question:
        return tooLong(title(field), text, maxQuestionLength);
    default:
        return isOption(field) ? tooLong(title(field), text, maxOptionLength) : QString();
    }
}

void addEqualOptions(const Question& question, std::vector<Breach>& found)
{
    std::array<QString, 4> texts;
    std::transform(question.options.begin(), question.options.end(), texts.begin(), folded);
    for (std::size_t later = 1; later < texts.size(); ++later) {
        for (std::size_t earlier = 0; earlier < later; ++earlier) {
            if (!texts.at(later).isEmpty() && texts.at(later) == texts.at(earlier)) {
                found.push_back({optionFields.at(later),
                                 QString("options %1 and %2 are equal")
                                     .arg(nameOf(optionFields.at(earlier)), nameOf(optionFields.at(later)))});
            }
        }
    }
}

template <typename Item>
void complainOfRepeats(const std::vector<Item>& items, QString Item::*text, const QString& what,
                       Complaints& complaints)
{
    QHash<QString, const Item*> seen;
    seen.reserve(static_cast<qsizetype>(items.size()));
    for (const Item& item : items) {
        const QString same = folded(item.*text);
        if (const auto* const first = seen.value(same))
            complaints.add(item.place, QString("the same %1 stands in %2").arg(what, first->place.text()));
        else if (!same.isEmpty())
            seen.insert(same, &item);
    }
}

} // namespace

bool isLevel(const QString& text)
{
    return std::any_of(levels.begin(), levels.end(),
                       [&](const char* level) { return text == QString(level); });
}

std::vector<Breach> breaches(const Question& question, Texts demanded)
{
    std::vector<Breach> found;
    for (std::size_t i = 0; i < fieldNames.size(); ++i) {
        const auto field = static_cast<Field>(i);
        const QString& text = question.at(field);
        const bool optional = demanded == Texts::Played && (field == Field::Topic || field == Field::Why);
        if (text.isEmpty()) {
            if (!optional)
                found.push_back({field, missing(field, question)});
            continue;
        }
        for (QString reason : {wrongValue(field, question), notPlain(title(field), text)})
            if (!reason.isEmpty())
                found.push_back({field, std::move(reason)});
    }
    addEqualOptions(question, found);
    return found;
}

void checkQuestion(const Question& question, Texts demanded, Complaints& complaints)
{
    for (const Breach& breach : breaches(question, demanded))
        complaints.add(question.placeOf(breach.field), breach.reason);
}

void checkPrompt(const Prompt& prompt, Complaints& complaints)
{
    const char* const what = "prompt";
    const QString& text = prompt.message;
    for (const QString& reason : {text.isEmpty() ? "the prompt is empty" : QString(),
                                  tooLong(what, text, maxPromptLength), notPlain(what, text)})
        if (!reason.isEmpty())
            complaints.add(prompt.place, reason);
}

void checkRepeats(const Bank& bank, Complaints& complaints)
{
    complainOfRepeats(bank.questions, &Question::text, "question", complaints);
    complainOfRepeats(bank.prompts, &Prompt::message, "prompt", complaints);
}

void checkEnough(const Bank& bank, const Place& source, Complaints& complaints)
{
    for (const char* const name : levels) {
        const QString level = QString(name);
        const auto count = std::count_if(bank.questions.begin(), bank.questions.end(),
                                         [&](const Question& question) { return question.level == level; });
        if (count < questionsPerLevel) {
            complaints.add(source, QString("level %1 has %2 questions, a game needs %3")
                                       .arg(level)
                                       .arg(count)
                                       .arg(questionsPerLevel));
        }
    }
}

void checkPrompts(const Bank& bank, const Place& source, Complaints& complaints)
{
    if (bank.prompts.empty()) {
        complaints.warn(source, "there is no prompt, the host has nothing to say before an "
                                "answer is locked");
    }
}

void checkBalance(const Bank& bank, const Place& source, Complaints& complaints)
{
    for (const char* const name : levels) {
        const QString level = QString(name);
        std::array<int, 4> counts{};
        int all = 0;
        for (const Question& question : bank.questions) {
            if (question.level == level && question.rightIndex() >= 0) {
                ++counts.at(static_cast<std::size_t>(question.rightIndex()));
                ++all;
            }
        }
        for (std::size_t i = 0; i < counts.size() && all >= balanceFrom; ++i) {
            const double share = static_cast<double>(counts.at(i)) / all;
            if (share < leastShare || share > mostShare) {
                complaints.add(source, QString("level %1: %2 is the right letter of %3 % of %4 questions, "
                                               "22 to 28 % are wanted")
                                           .arg(level, nameOf(optionFields.at(i)))
                                           .arg(100 * share, 0, 'f', 1)
                                           .arg(all));
            }
        }
    }
}

} // namespace bank

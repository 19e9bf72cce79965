#include "bank/rules.h"

#include "bank/html.h"
#include "bank/text.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>
#include <numeric>

namespace bank {
namespace {

namespace schema = db::schema;

constexpr qsizetype maxPromptLength = 100;

/// How often a letter may be right, in a set of so many questions or more. With fewer, one more or less
/// decides.
struct Balance
{
    const char* what;
    int from;
    double least;
    double most;
};

constexpr Balance ofAll = {"questions", 40, 0.22, 0.28};
constexpr Balance ofNumbers = {"questions about numbers", 20, 0.20, 0.30};

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
        return QString("the right answer %1 is none of the options").arg(quoted(question.key));
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
        const QString name = QString(what);
        if (*stray == U'\n' || *stray == U'\r')
            return name + " holds a line break, but must be one line";
        if (*stray == U'\ufffd')
            return name + " holds broken UTF-8; save the text as UTF-8";
        const bool isControl = QChar::category(*stray) != QChar::Other_Format && *stray != U'\u3164';
        return name + (isControl ? " holds the control character " : " holds the invisible character ") +
               codePointName(*stray);
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
        return isLevel(text) ? QString() : QString("level %1 is none of 1, 2, 3").arg(quoted(text));
    case Field::Right:
        return question.rightIndex() >= 0 ? QString()
                                          : QString("right %1 is none of A, B, C, D").arg(quoted(text));
    case Field::Question:
        return tooLong(title(field), text, schema::questionLimit);
    default:
        return isOption(field) ? tooLong(title(field), text, schema::answerLimit) : QString();
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

/// What is to be told of the letters that are right too often or too rarely.
QStringList unbalanced(const char* level, const std::array<int, 4>& counts, const Balance& wanted)
{
    QStringList reasons;
    const int all = std::accumulate(counts.begin(), counts.end(), 0);
    for (std::size_t i = 0; i < counts.size() && all >= wanted.from; ++i) {
        const double share = static_cast<double>(counts.at(i)) / all;
        if (share < wanted.least || share > wanted.most) {
            reasons << QString("level %1: %2 is the right letter of %3 % of %4 %5, %6 to %7 % are wanted")
                           .arg(QString(level), nameOf(optionFields.at(i)))
                           .arg(100 * share, 0, 'f', 1)
                           .arg(all)
                           .arg(wanted.what)
                           .arg(100 * wanted.least)
                           .arg(100 * wanted.most);
        }
    }
    return reasons;
}

/// Complains about every item that repeats an earlier one, and returns which do.
template <typename Item>
std::vector<bool> findRepeats(const std::vector<Item>& items, QString Item::*text, const QString& what,
                              Complaints& complaints)
{
    std::vector<bool> repeats;
    QHash<QString, const Item*> seen;
    seen.reserve(static_cast<qsizetype>(items.size()));
    for (const Item& item : items) {
        const QString same = folded(item.*text);
        const auto* const first = seen.value(same);
        repeats.push_back(first != nullptr);
        if (first)
            complaints.add(item.place, QString("the same %1 stands in %2").arg(what, first->place.text()));
        else if (!same.isEmpty())
            seen.insert(same, &item);
    }
    return repeats;
}

template <typename Item>
void remove(std::vector<Item>& items, const std::vector<bool>& which)
{
    std::size_t index = 0;
    std::erase_if(items, [&](const Item&) { return which[index++]; });
}

} // namespace

bool hasNumericOptions(const Question& question)
{
    static const QRegularExpression number("^[-+]?[0-9][0-9., ]*%?$");
    return std::all_of(question.options.begin(), question.options.end(),
                       [](const QString& option) { return number.match(option).hasMatch(); });
}

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
    for (std::size_t i = 0; i < question.tallies.size(); ++i)
        if (!isCount(question.tallies.at(i)))
            found.push_back({optionFields.at(i), QString("tally %1 is no whole number from 0 to %2")
                                                     .arg(nameOf(optionFields.at(i)))
                                                     .arg(mostChosen)});
    return found;
}

bool checkQuestion(const Question& question, Texts demanded, Complaints& complaints)
{
    for (const Field field : {Field::Question, Field::A, Field::B, Field::C, Field::D})
        if (const QString markup = markupIn(question.at(field)); !markup.isEmpty())
            complaints.warn(
                question.placeOf(field),
                QString("%1 holds %2, which is shown as it stands").arg(title(field), quoted(markup)));
    const auto found = breaches(question, demanded);
    for (const Breach& breach : found)
        complaints.add(question.placeOf(breach.field), breach.reason);
    return found.empty();
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
    findRepeats(bank.questions, &Question::text, "question", complaints);
    findRepeats(bank.prompts, &Prompt::message, "prompt", complaints);
}

void removeRepeats(Bank& bank, Complaints& complaints)
{
    remove(bank.questions, findRepeats(bank.questions, &Question::text, "question", complaints));
    remove(bank.prompts, findRepeats(bank.prompts, &Prompt::message, "prompt", complaints));
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

void checkOptionSets(const Bank& bank, Complaints& complaints)
{
    QHash<QString, std::size_t> numbers;
    std::vector<std::vector<Place>> sets; // in the order of their first questions
    for (const Question& question : bank.questions) {
        QStringList options;
        for (const QString& option : question.options)
            options << folded(option);
        options.sort();
        const QString set = options.join(u'\n');
        const std::size_t number = numbers.value(set, sets.size());
        numbers.insert(set, number);
        sets.resize(std::max(sets.size(), number + 1));
        sets[number].push_back(question.place);
    }
    constexpr qsizetype mostNamed = 3;
    for (const auto& places : sets) {
        QStringList others;
        for (const Place& place : places)
            others << place.text();
        others.removeFirst();
        if (others.empty())
            continue;
        const QString more =
            others.size() > mostNamed ? QString(" and %1 more").arg(others.size() - mostNamed) : "";
        complaints.warn(places.front(),
                        QString("the same four options stand in %1%2")
                            .arg(others.first(std::min(others.size(), mostNamed)).join(", "), more));
    }
}

void checkBalance(const Bank& bank, const Place& source, Complaints& complaints)
{
    for (const char* const name : levels) {
        std::array<int, 4> counts{};
        std::array<int, 4> ofNumericOptions{};
        for (const Question& question : bank.questions) {
            if (question.level != QString(name) || question.rightIndex() < 0)
                continue;
            const auto right = static_cast<std::size_t>(question.rightIndex());
            ++counts.at(right);
            if (hasNumericOptions(question))
                ++ofNumericOptions.at(right);
        }
        for (const QString& reason : unbalanced(name, counts, ofAll))
            complaints.add(source, reason);
        for (const QString& reason : unbalanced(name, ofNumericOptions, ofNumbers))
            complaints.warn(source, reason);
    }
}

} // namespace bank

#include "bank/rules.h"

#include "bank/text.h"
#include "db/likeness.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>
#include <map>
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
    bool onlyNumbers;
    int from;
    double least;
    double most;
};

constexpr Balance balances[] = {{"questions", false, 40, 0.22, 0.28},
                                {"questions about numbers", true, 20, 0.20, 0.30}};

bool isOption(Field field)
{
    return field >= Field::A && field <= Field::D;
}

/// The field as a complaint calls it.
const QString& title(Field field)
{
    static const std::array<QString, 9> titles = {"level",    "topic",    "question", "option A", "option B",
                                                  "option C", "option D", "right",    "why"};
    return titles.at(static_cast<std::size_t>(field));
}

QString missing(Field field, const Question& question)
{
    if (field == Field::Right && !question.key.isEmpty())
        return QString("the right answer %1 is none of the options").arg(quoted(question.key));
    return title(field) + (isOption(field) ? " is missing, four are needed" : " is missing");
}

QString tooLong(const QString& what, const QString& text, qsizetype limit)
{
    const auto points = text.size() <= limit ? 0 : length(text);
    return points <= limit ? QString()
                           : QString("%1 has %2 characters, at most %3 fit").arg(what).arg(points).arg(limit);
}

QString notPlain(const QString& what, const QString& text)
{
    const auto stray = strayCharacter(text);
    if (!stray)
        return text.isEmpty() || !(text.front().isSpace() || text.back().isSpace())
                   ? QString()
                   : what + " has a blank at an end";
    if (*stray == U'\n' || *stray == U'\r')
        return what + " holds a line break, but must be one line";
    if (*stray == U'\ufffd')
        return what + " holds broken UTF-8; save the text as UTF-8";
    const bool isControl = QChar::category(*stray) != QChar::Other_Format && *stray != U'\u3164';
    return what + (isControl ? " holds the control character " : " holds the invisible character ") +
           codePointName(*stray);
}

QString wrongValue(Field field, const Question& question)
{
    const QString& text = question.at(field);
    if (field == Field::Level && !isLevel(text))
        return QString("level %1 is none of 1, 2, 3").arg(quoted(text));
    if (field == Field::Right && question.rightIndex() < 0)
        return QString("right %1 is none of A, B, C, D").arg(quoted(text));
    if (field == Field::Question || isOption(field))
        return tooLong(title(field), text, isOption(field) ? schema::answerLimit : schema::questionLimit);
    return {};
}

void checkTexts(const Question& question, Texts demanded, Complaints& complaints)
{
    for (std::size_t i = 0; i < fieldNames.size(); ++i) {
        const auto field = static_cast<Field>(i);
        const QString& text = question.at(field);
        const bool optional = demanded == Texts::Played && (field == Field::Topic || field == Field::Why);
        if (text.isEmpty() && !optional)
            complaints.add(question.placeOf(field), missing(field, question));
        if (text.isEmpty())
            continue;
        for (const QString& reason : {wrongValue(field, question), notPlain(title(field), text)})
            if (!reason.isEmpty())
                complaints.add(question.placeOf(field), reason);
        if (field != Field::Topic && field != Field::Why)
            if (const QString markup = markupIn(text); !markup.isEmpty())
                complaints.warn(
                    question.placeOf(field),
                    QString("%1 holds %2, which is shown as it stands").arg(title(field), quoted(markup)));
    }
}

void checkEqualOptions(const Question& question, Complaints& complaints)
{
    const auto& options = question.options;
    for (std::size_t later = 1; later < options.size(); ++later)
        for (std::size_t earlier = 0; earlier < later; ++earlier)
            if (!options.at(later).isEmpty() && db::isSame(options.at(earlier), options.at(later)))
                complaints.add(question.placeOf(optionFields.at(later)),
                               QString("options %1 and %2 are equal")
                                   .arg(nameOf(optionFields.at(earlier)), nameOf(optionFields.at(later))));
}

/// What is to be told of the letters that are right too often or too rarely.
QStringList unbalanced(const char* level, const std::array<int, 4>& counts, const Balance& wanted)
{
    QStringList reasons;
    const int all = std::accumulate(counts.begin(), counts.end(), 0);
    for (std::size_t i = 0; i < counts.size() && all >= wanted.from; ++i) {
        const double share = static_cast<double>(counts.at(i)) / all;
        if (share < wanted.least || share > wanted.most) {
            reasons << QString("level %1: %2 is the right letter of %3 % of %4 %5, "
                               "%6 to %7 % are wanted")
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

template <typename Item>
void removeRepeatsOf(QString Item::*text, const QString& what, std::vector<Item>& items,
                     Complaints& complaints)
{
    QHash<QString, Place> seen;
    seen.reserve(static_cast<qsizetype>(items.size()));
    std::erase_if(items, [&](const Item& item) {
        const QString same = db::folded(item.*text);
        const bool repeats = seen.contains(same);
        if (repeats)
            complaints.add(item.place, QString("the same %1 stands in %2").arg(what, seen[same].text()));
        else if (!same.isEmpty())
            seen.insert(same, item.place);
        return repeats;
    });
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
    return std::ranges::count(levels, text) > 0;
}

bool checkQuestion(const Question& question, Texts demanded, Complaints& complaints)
{
    const auto before = complaints.count();
    checkTexts(question, demanded, complaints);
    checkEqualOptions(question, complaints);
    for (std::size_t i = 0; i < question.tallies.size(); ++i)
        if (const Field option = optionFields.at(i); !isCount(question.tallies.at(i)))
            complaints.add(
                question.placeOf(option),
                QString("tally %1 is no whole number from 0 to %2").arg(nameOf(option)).arg(mostChosen));
    return complaints.count() == before;
}

void checkPrompt(const Prompt& prompt, Complaints& complaints)
{
    const QString& text = prompt.message;
    for (const QString& reason : {text.isEmpty() ? "the prompt is empty" : QString(),
                                  tooLong("prompt", text, maxPromptLength), notPlain("prompt", text)})
        if (!reason.isEmpty())
            complaints.add(prompt.place, reason);
}

void removeRepeats(Bank& bank, Complaints& complaints)
{
    removeRepeatsOf(&Question::text, "question", bank.questions, complaints);
    removeRepeatsOf(&Prompt::message, "prompt", bank.prompts, complaints);
}

void checkEnough(const Bank& bank, const Place& source, Complaints& complaints)
{
    for (const char* const name : levels) {
        const QString level = name;
        const auto count = std::ranges::count(bank.questions, level, &Question::level);
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
    std::map<QString, std::size_t> numbers;
    std::vector<std::vector<Place>> sets; // in the order of their first questions
    for (const Question& question : bank.questions) {
        QStringList options;
        std::ranges::transform(question.options, std::back_inserter(options), &db::folded);
        options.sort();
        const auto [number, isNew] = numbers.try_emplace(options.join(u'\n'), sets.size());
        if (isNew)
            sets.emplace_back();
        sets[number->second].push_back(question.place);
    }
    constexpr std::size_t mostNamed = 3;
    for (const auto& places : sets) {
        QStringList others;
        for (std::size_t i = 1; i < places.size() && i <= mostNamed; ++i)
            others << places[i].text();
        if (places.size() > mostNamed + 1)
            others.back() += QString(" and %1 more").arg(places.size() - 1 - mostNamed);
        if (!others.empty())
            complaints.warn(places.front(), "the same four options stand in " + others.join(", "));
    }
}

void checkBalance(const Bank& bank, const Place& source, Complaints& complaints)
{
    for (const char* const level : levels)
        for (const Balance& wanted : balances) {
            std::array<int, 4> counts{};
            for (const Question& question : bank.questions)
                if (question.level == level && question.rightIndex() >= 0 &&
                    (!wanted.onlyNumbers || hasNumericOptions(question)))
                    ++counts.at(static_cast<std::size_t>(question.rightIndex()));
            for (const QString& reason : unbalanced(level, counts, wanted))
                wanted.onlyNumbers ? complaints.warn(source, reason) : complaints.add(source, reason);
        }
}

} // namespace bank

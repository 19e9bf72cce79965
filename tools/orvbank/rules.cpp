#include "bank/rules.h"

#include <algorithm>
#include <iterator>
#include <map>

namespace bank {
namespace {

constexpr qsizetype maxQuestionLength = 100;
constexpr qsizetype maxOptionLength = 25;
constexpr qsizetype maxPromptLength = 100;
constexpr qsizetype questionsPerLevel = 5; // as many as one game draws

const QStringList levels{QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")};
const QStringList letters{QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C"), QStringLiteral("D")};

QString folded(const QString& text)
{
    return text.normalized(QString::NormalizationForm_C).simplified().toCaseFolded();
}

QString tooLong(const QString& what, const QString& text, qsizetype limit)
{
    const auto length = text.toUcs4().size();
    return length <= limit
               ? QString()
               : QStringLiteral("%1 has %2 characters, at most %3 fit").arg(what).arg(length).arg(limit);
}

QString choiceReason(const QString& field, const QString& value, const QStringList& choices)
{
    return choices.contains(value) ? QString()
                                   : QStringLiteral("%1 \"%2\" is none of %3")
                                         .arg(field, value, choices.join(QStringLiteral(", ")));
}

void addEqualOptions(const Question& question, std::vector<Breach>& found)
{
    for (qsizetype later = 1; later < letters.size(); ++later) {
        for (qsizetype earlier = 0; earlier < later; ++earlier) {
            const QString text = folded(question.options.at(static_cast<std::size_t>(later)));
            if (!text.isEmpty() && text == folded(question.options.at(static_cast<std::size_t>(earlier)))) {
                found.push_back({letters.at(later), QStringLiteral("options %1 and %2 are equal")
                                                        .arg(letters.at(earlier), letters.at(later))});
            }
        }
    }
}

template <typename Item>
void complainOfRepeats(const std::vector<Item>& items, QString Item::*text, const QString& what,
                       Complaints& complaints)
{
    std::map<QString, Place> seen;
    for (const Item& item : items) {
        const auto [first, isNew] = seen.try_emplace(folded(item.*text), item.place);
        if (!isNew && !first->first.isEmpty()) {
            complaints.add(item.place, QStringLiteral("the same %1 stands in %2:%3")
                                           .arg(what, QString::fromStdString(first->second.file),
                                                QString::number(first->second.line)));
        }
    }
}

} // namespace

std::vector<Breach> breaches(const Question& question)
{
    struct Text
    {
        QString field;
        QString value;
        QString reason;
    };
    std::vector<Text> texts{
        {QStringLiteral("level"), question.level,
         choiceReason(QStringLiteral("level"), question.level, levels)},
        {QStringLiteral("topic"), question.topic, {}},
        {QStringLiteral("question"), question.text,
         tooLong(QStringLiteral("question"), question.text, maxQuestionLength)},
    };
    for (qsizetype i = 0; i < letters.size(); ++i) {
        const QString& option = question.options.at(static_cast<std::size_t>(i));
        texts.push_back({letters.at(i), option,
                         tooLong(QStringLiteral("option ") + letters.at(i), option, maxOptionLength)});
    }
    texts.push_back({QStringLiteral("right"), question.right,
                     choiceReason(QStringLiteral("right"), question.right, letters)});
    texts.push_back({QStringLiteral("why"), question.why, {}});

    std::vector<Breach> found;
    for (const Text& text : texts) {
        const bool isOption = letters.contains(text.field);
        if (text.value.isEmpty()) {
            found.push_back(
                {text.field, isOption
                                 ? QStringLiteral("option %1 is missing, four are needed").arg(text.field)
                                 : QStringLiteral("%1 is missing").arg(text.field)});
        } else if (!text.reason.isEmpty()) {
            found.push_back({text.field, text.reason});
        }
    }
    addEqualOptions(question, found);
    return found;
}

void checkPrompt(const Prompt& prompt, Complaints& complaints)
{
    const QString reason = tooLong(QStringLiteral("prompt"), prompt.message, maxPromptLength);
    if (!reason.isEmpty()) {
        complaints.add(prompt.place, reason);
    }
}

void checkRepeats(const Bank& bank, Complaints& complaints)
{
    complainOfRepeats(bank.questions, &Question::text, QStringLiteral("question"), complaints);
    complainOfRepeats(bank.prompts, &Prompt::message, QStringLiteral("prompt"), complaints);
}

void checkEnough(const Bank& bank, const std::string& source, Complaints& complaints)
{
    for (const QString& level : levels) {
        const auto count = std::count_if(bank.questions.begin(), bank.questions.end(),
                                         [&](const Question& question) { return question.level == level; });
        if (count < questionsPerLevel) {
            complaints.add({source}, QStringLiteral("level %1 has %2 questions, a game needs %3")
                                         .arg(level)
                                         .arg(count)
                                         .arg(questionsPerLevel));
        }
    }
    if (bank.prompts.empty()) {
        complaints.add({source}, QStringLiteral("there is no prompt, a game needs at least one"));
    }
}

} // namespace bank

#include "bank/rows.h"

#include "bank/failure.h"
#include "bank/rules.h"
#include "bank/text.h"

#include <algorithm>
#include <ostream>

namespace bank {
namespace {

bool holdsAll(const Question& question, const QStringList& words)
{
    if (words.empty())
        return true;
    QString all = searchable(question.text);
    for (const QString& option : question.options)
        all += u'\n' + searchable(option);
    return std::ranges::all_of(words, [&](const QString& word) { return all.contains(word); });
}

void setText(Question& question, const QString& assignment)
{
    const auto sign = assignment.indexOf(u'=');
    const QString name = assignment.left(sign).trimmed();
    const auto* const field = std::ranges::find_if(
        playedFields, [&](Field known) { return name.compare(nameOf(known), Qt::CaseInsensitive) == 0; });
    if (sign < 0 || field == playedFields.end())
        throw Failure(
            QString("%1 is not of the form field=text with one of the fields level, question, A, B, C, "
                    "D, right")
                .arg(quoted(assignment)));
    const QString text = assignment.mid(sign + 1).trimmed();
    question.at(*field) = *field == Field::Right ? text.toUpper() : text;
}

} // namespace

std::size_t listQuestions(const std::vector<Question>& questions, const QString& level,
                          const std::vector<std::string>& words, std::ostream& out)
{
    QStringList wanted;
    for (const std::string& word : words)
        wanted << searchable(QString::fromStdString(word)).split(u' ', Qt::SkipEmptyParts);
    std::size_t found = 0;
    for (const Question& question : questions) {
        if ((!level.isEmpty() && question.level != level) || !holdsAll(question, wanted))
            continue;
        ++found;
        out << QString("%1  %2 %3  %4\n")
                   .arg(question.place.id, 6)
                   .arg(shown(question.level), question.right.isEmpty() ? "-" : question.right,
                        shown(question.text))
                   .toStdString();
    }
    return found;
}

void showQuestion(const Question& question, std::ostream& out)
{
    for (const Field field : playedFields) {
        out << nameOf(field).toStdString() << ": " << shown(question.at(field)).toStdString();
        const auto option = std::ranges::find(optionFields, field) - optionFields.begin();
        if (option < std::ssize(optionFields))
            out << "  (chosen " << question.tallies.at(static_cast<std::size_t>(option)) - 1 << " times)";
        out << '\n';
    }
    if (question.right.isEmpty())
        out << "The right answer " << quoted(question.key).toStdString() << " is none of the options.\n";
}

Question questionOfNumber(Store& store, qint64 number)
{
    store.require(db::schema::questions);
    const auto questions = store.questions();
    const auto found =
        std::ranges::find_if(questions, [&](const Question& q) { return q.place.id == number; });
    if (found == questions.end())
        throw Failure(QString("%1 has no question %2").arg(store.file()).arg(number));
    return *found;
}

void setTexts(Store& store, qint64 number, const std::vector<std::string>& texts)
{
    store.require(db::schema::questions);
    store.changing([&] {
        Question question = questionOfNumber(store, number);
        for (const std::string& text : texts)
            setText(question, QString::fromStdString(text));
        Complaints complaints;
        checkQuestion(question, Texts::Played, complaints);
        for (const Question& other : store.questions())
            if (other.place.id != number && folded(other.text) == folded(question.text))
                complaints.add(question.place,
                               QString("the same question stands in %1").arg(other.place.text()));
        complaints.throwIfAny();
        store.changeQuestion(question);
    });
}

} // namespace bank

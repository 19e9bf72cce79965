#include "bank/actions.h"

#include "bank/text.h"
#include "db/likeness.h"

#include <algorithm>
#include <ostream>

namespace bank::actions {
namespace {

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

Question questionOf(Store& store, qint64 number)
{
    store.require(db::schema::questions);
    const auto questions = store.questions();
    const auto found = std::ranges::find(questions, number, [](const Question& q) { return q.place.id; });
    if (found == questions.end())
        throw Failure(QString("%1 has no question %2").arg(store.file()).arg(number));
    return *found;
}

} // namespace

void listOrSearch(Command& command)
{
    QStringList typed;
    for (const std::string& word : command.words)
        typed << QString::fromStdString(word);
    const db::SearchWords words(typed.join(' '));
    bool found = false;
    for (const Question& question : command.questions()) {
        if ((!command.level.empty() && question.level.toStdString() != command.level) ||
            !words.areIn(QStringList(question.options.begin(), question.options.end()) << question.text))
            continue;
        found = true;
        command.out << QString("%1  %2 %3  %4\n")
                           .arg(question.place.id, 6)
                           .arg(shown(question.level), question.right.isEmpty() ? "-" : question.right,
                                shown(question.text))
                           .toStdString();
    }
    if (!found)
        command.err << "There is no such question.\n";
}

void show(Command& command)
{
    Store store(command.file, command.progress);
    const Question question = questionOf(store, command.number);
    command.progress.clear();
    for (const Field field : playedFields) {
        command.out << nameOf(field).toStdString() << ": " << shown(question.at(field)).toStdString();
        const auto option = std::ranges::find(optionFields, field) - optionFields.begin();
        if (option < std::ssize(optionFields))
            command.out << "  (chosen " << question.tallies.at(static_cast<std::size_t>(option)) - 1
                        << " times)";
        command.out << '\n';
    }
    if (question.right.isEmpty())
        command.out << "The right answer " << quoted(question.key).toStdString()
                    << " is none of the options.\n";
}

void set(Command& command)
{
    Store store(command.file, command.progress);
    store.changing([&] {
        Question question = questionOf(store, command.number);
        for (const std::string& text : command.words)
            setText(question, QString::fromStdString(text));
        Complaints complaints;
        checkQuestion(question, Texts::Played, complaints);
        for (const Question& other : store.questions())
            if (other.place.id != command.number && db::isSame(other.text, question.text))
                complaints.add(question.place,
                               QString("the same question stands in %1").arg(other.place.text()));
        complaints.throwIfAny();
        store.changeQuestion(question);
    });
    show(command);
}

void remove(Command& command)
{
    Store store(command.file, command.progress);
    const std::string text = quoted(questionOf(store, command.number).text).toStdString();
    command.progress.clear();
    if (!command.yes)
        throw Failure(QString("%1 is left as it is: --yes would delete question %2, %3")
                          .arg(store.file())
                          .arg(command.number)
                          .arg(QString::fromStdString(text)));
    store.changing([&] { store.remove(db::schema::questions, db::schema::questionId, command.number); });
    command.out << "Question " << command.number << ", " << text << ", was deleted.\n";
}

} // namespace bank::actions

#include "bank/actions.h"

#include "bank/new_file.h"
#include "bank/rules.h"
#include "bank/text.h"

#include <algorithm>
#include <ostream>

namespace bank {
namespace {

void requireSound(const std::vector<Question>& questions)
{
    Complaints complaints;
    for (const Question& question : questions)
        checkQuestion(question, Texts::Played, complaints);
    if (!complaints.empty())
        throw Failure(complaints.lines().join(u'\n') +
                      "\nNothing was exported: only CSV holds questions with such faults");
}

void requireOneLevel(const std::vector<Question>& questions)
{
    const auto differs = [&](const Question& question) { return question.level != questions.front().level; };
    if (std::ranges::any_of(questions, differs))
        throw Failure("Aiken holds no levels: export one at a time with --level");
}

/// Removes the questions whose text Aiken would take for an option or an answer.
void removeMisleading(std::vector<Question>& questions, const Format& format, Complaints& complaints)
{
    std::erase_if(questions, [&](const Question& question) {
        const bool holds = format.holds(question);
        if (!holds)
            complaints.warn(question.place,
                            "is left out, Aiken would take its text for an option or an answer");
        return !holds;
    });
}

/// Whether a spreadsheet may take the text for a formula.
bool isFormula(const QString& text)
{
    bool isNumber = false;
    text.toDouble(&isNumber);
    return !text.isEmpty() && QStringView(u"=+-@").contains(text.front()) && !isNumber;
}

void warnOfFormulas(const std::vector<Question>& questions, Complaints& complaints)
{
    const auto holdsOne = [](const Question& question) {
        return isFormula(question.text) || std::ranges::any_of(question.options, isFormula);
    };
    const auto first = std::ranges::find_if(questions, holdsOne);
    if (first != questions.end())
        complaints.warn(
            first->place,
            QString("a text begins with =, +, - or @, which a spreadsheet may take for a formula; "
                    "so it is in %1 of these questions")
                .arg(std::count_if(first, questions.end(), holdsOne)));
}

void warnOfLosses(const std::vector<Question>& questions, const Place& target, const Format& format,
                  Complaints& complaints)
{
    const auto isPlayed = [](const Question& question) { return question.tallies != Question().tallies; };
    if (!format.holdsAll && std::ranges::any_of(questions, isPlayed))
        complaints.warn(target, "how often the options were chosen is left out, only CSV holds it");
    if (!format.holdsLevels)
        complaints.warn(target, "the level is left out, Aiken does not hold it; import with --level");
    if (!format.holdsAll)
        return;
    for (const Question& question : questions)
        if (question.right.isEmpty())
            complaints.warn(question.place,
                            QString("\"right\" is left empty, the right answer %1 is none of the options")
                                .arg(quoted(question.key)));
    warnOfFormulas(questions, complaints);
}

} // namespace

void Command::write(const QByteArray& content)
{
    if (!isStandard(other))
        return writeNew(other, content, Readers::Everyone);
    out << content.toStdString();
    finish();
}

namespace actions {

void exportBank(Command& command)
{
    if (!command.format && isStandard(command.other))
        throw Failure("give --format, standard output has no name that tells it");
    const Format& format = command.format ? *command.format : formatOf(command.other);
    std::vector<Question> questions = command.questions();
    if (!command.level.empty())
        std::erase_if(questions, [&](const Question& q) { return q.level.toStdString() != command.level; });
    Complaints complaints;
    if (!format.holdsAll)
        requireSound(questions);
    if (!format.holdsLevels)
        requireOneLevel(questions);
    if (format.holds)
        removeMisleading(questions, format, complaints);
    const std::string target = isStandard(command.other) ? "standard output" : command.other;
    warnOfLosses(questions, {QString::fromStdString(target)}, format, complaints);
    command.write(format.write(questions));
    command.tell(complaints.warnings(), command.err);
    std::ostream& notes = isStandard(command.other) ? command.err : command.out;
    notes << counted(questions.size(), "question") << " went into " << target << ".\n";
}

void exportPrompts(Command& command)
{
    QString lines;
    for (const Prompt& prompt : command.store(db::schema::locking).prompts())
        lines += (isStandard(command.other) ? shown(prompt.message) : prompt.message) + u'\n';
    command.write(lines.toUtf8());
}

} // namespace actions
} // namespace bank

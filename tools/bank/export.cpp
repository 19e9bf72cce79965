#include "bank/export.h"

#include "bank/new_file.h"
#include "bank/rules.h"
#include "bank/text.h"

#include <QFile>

#include <algorithm>
#include <ostream>

namespace bank {
namespace {

void requireSound(const std::vector<Question>& questions)
{
    Complaints complaints;
    for (const Question& question : questions)
        checkQuestion(question, Texts::Played, complaints);
    if (!complaints.empty()) {
        throw Failure(complaints.lines().join(u'\n') +
                      "\nNothing was exported: only CSV holds questions with such faults");
    }
}

/// Removes the questions whose text Aiken would take for an option or an answer.
void removeMisleading(std::vector<Question>& questions, const Format& format, Complaints& complaints)
{
    std::erase_if(questions, [&](const Question& question) {
        const bool holds = format.holds(question);
        if (!holds)
            complaints.warn(question.place, "is left out, Aiken would take its text for an option or "
                                            "an answer");
        return !holds;
    });
}

void requireOneLevel(const std::vector<Question>& questions)
{
    const auto differs = [&](const Question& question) { return question.level != questions.front().level; };
    if (std::any_of(questions.begin(), questions.end(), differs))
        throw Failure("Aiken holds no levels: export one at a time with --level");
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
    std::size_t count = 0;
    const Question* first = nullptr;
    for (const Question& question : questions) {
        if (isFormula(question.text) || std::ranges::any_of(question.options, isFormula)) {
            first = first ? first : &question;
            ++count;
        }
    }
    if (first)
        complaints.warn(first->place,
                        QString("a text begins with =, +, - or @, which a spreadsheet may take for a "
                                "formula; so it is in %1 of these questions")
                            .arg(count));
}

void warnOfLosses(const std::vector<Question>& questions, const Place& target, const Format& format,
                  Complaints& complaints)
{
    if (format.holdsAll) {
        for (const Question& question : questions) {
            if (question.right.isEmpty()) {
                complaints.warn(question.place,
                                QString("\"right\" is left empty, the right answer %1 is none of the options")
                                    .arg(quoted(question.key)));
            }
        }
        warnOfFormulas(questions, complaints);
        return;
    }
    const auto isPlayed = [](const Question& question) { return question.tallies != Question().tallies; };
    if (std::any_of(questions.begin(), questions.end(), isPlayed))
        complaints.warn(target, "how often the options were chosen is left out, only CSV holds it");
    if (!format.holdsLevels)
        complaints.warn(target, "the level is left out, Aiken does not hold it; import with --level");
}

} // namespace

Exported exportQuestions(std::vector<Question> questions, const std::filesystem::path& target,
                         const Format& format, std::ostream& out)
{
    Complaints complaints;
    if (!format.holdsAll)
        requireSound(questions);
    if (!format.holdsLevels)
        requireOneLevel(questions);
    if (format.holds)
        removeMisleading(questions, format, complaints);
    warnOfLosses(questions, {isStandard(target) ? QString("standard output") : nameOf(target)}, format,
                 complaints);
    writeNew(target, format.write(questions), out);
    return {questions.size(), complaints.warnings()};
}

void writeNew(const std::filesystem::path& target, const QByteArray& content, std::ostream& out)
{
    if (isStandard(target)) {
        out << content.toStdString() << std::flush;
        return;
    }
    NewFile newFile(target, Readers::Everyone);
    QFile file(newFile.temporary());
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || file.write(content) != content.size())
        throw Failure(QString("%1 cannot be written: %2").arg(nameOf(target), file.errorString()));
    file.close();
    newFile.publish();
}

} // namespace bank

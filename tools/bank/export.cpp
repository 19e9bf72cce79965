#include "bank/export.h"

#include "bank/lines.h"
#include "bank/new_file.h"
#include "bank/rules.h"

#include <QFile>

#include <algorithm>

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

void warnOfLosses(const std::vector<Question>& questions, const Place& target, const Format& format,
                  Complaints& complaints)
{
    if (format.holdsAll) {
        for (const Question& question : questions) {
            if (question.right.isEmpty()) {
                complaints.warn(
                    question.place,
                    QString("\"right\" is left empty, the right answer \"%1\" is none of the options")
                        .arg(question.key));
            }
        }
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
                         const Format& format)
{
    Complaints complaints;
    NewFile newFile(target);
    if (!format.holdsAll)
        requireSound(questions);
    if (!format.holdsLevels)
        requireOneLevel(questions);
    if (format.holds)
        removeMisleading(questions, format, complaints);
    warnOfLosses(questions, {nameOf(target)}, format, complaints);
    QFile file(newFile.temporary());
    const QByteArray content = format.write(questions);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.flush())
        throw Failure(QString("%1 cannot be written: %2").arg(nameOf(target), file.errorString()));
    file.close();
    newFile.publish();
    return {questions.size(), complaints.warnings()};
}

} // namespace bank

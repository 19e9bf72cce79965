#include "admin/entry_checks.h"

#include "toolkit/text.h"

namespace admin {

using toolkit::trimmed;

namespace {

const QString heading = "The Following Errors have occured. Please correct them\n";

} // namespace

QString faultsOf(const QuestionEntry& entry)
{
    QString report;
    const auto check = [&report](bool missing, const QString& fault) {
        if (missing)
            report += fault + "\n";
    };
    check(trimmed(entry.question).isEmpty(), "Question Not Entered");
    for (std::size_t i = 0; i < entry.answers.size(); ++i)
        check(trimmed(entry.answers[i]).isEmpty(), QString("Answer%1 Not Entered").arg(i + 1));
    check(trimmed(entry.correctAnswer).isEmpty(), "Correct Answer Not Selected");
    check(entry.level.isEmpty(), "Level Not Selected");
    return report.isEmpty() ? QString() : heading + report;
}

QString faultsOfMessage(const QString& message)
{
    return trimmed(message).isEmpty() ? heading + "Message Cannot be left Empty" : QString();
}

} // namespace admin

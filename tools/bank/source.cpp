#include "bank/source.h"

#include <QDir>

namespace bank {
const Format& formatOf(const std::filesystem::path& file)
{
    const QString ending = QString::fromStdString(file.extension().string()).toLower();
    for (const Format& format : formats)
        if (QString(format.endings).split(u' ').contains(ending))
            return format;
    throw Failure(
        QString("%1: the name tells no format; end it in .csv, .gift, .aiken or .txt, or give --format")
            .arg(nameOf(file)));
}

void readPrompts(const TextFile& file, Intake& intake)
{
    for (const Line& line : linesOf(file)) {
        if (!line.text.isEmpty() && !line.text.startsWith(u'#')) {
            intake.bank.prompts.push_back({{line.place.file, line.place.line}, line.text});
            checkPrompt(intake.bank.prompts.back(), intake.complaints);
        }
    }
}

void readFolder(const std::filesystem::path& folder, Intake& intake)
{
    const QDir directory(nameOf(folder));
    if (!directory.isReadable())
        throw Failure(QString("%1 cannot be read").arg(nameOf(folder)));
    for (const QString& name : directory.entryList({"questions-*.txt"}, QDir::Files))
        readRecords(readText(folder / name.toStdString(), intake.complaints), intake);
    readPrompts(readText(folder / "prompts.txt", intake.complaints), intake);
    if (intake.bank.questions.empty())
        intake.complaints.add({nameOf(folder)}, "there are no questions in it");
}

void readSource(const std::filesystem::path& source, const Format* format, Intake& intake)
{
    std::error_code ignored;
    if (std::filesystem::is_directory(source, ignored))
        return readFolder(source, intake);
    if (!format && isStandard(source))
        throw Failure("give --format, standard input has no name that tells it");
    const TextFile file = readText(source, intake.complaints);
    if (!format)
        format = &formatOf(source);
    const bool isSavedAsText = format->read == readRecords && isTabSeparated(file);
    (isSavedAsText ? readCsv : format->read)(file, intake);
    if (intake.complaints.empty() && intake.bank.questions.empty())
        intake.complaints.add({file.name}, "there are no questions in it");
}

} // namespace bank

#include "bank/source.h"

#include "bank/lines.h"

#include <algorithm>

namespace bank {
namespace {

void readPrompts(const std::filesystem::path& file, Intake& intake)
{
    for (const Line& line : readLines(file, intake.complaints)) {
        if (!line.text.isEmpty() && !line.text.startsWith(u'#')) {
            intake.bank.prompts.push_back({{line.place.file, line.place.line}, line.text});
            checkPrompt(intake.bank.prompts.back(), intake.complaints);
        }
    }
}

std::vector<std::filesystem::path> questionFiles(const std::filesystem::path& folder)
{
    std::vector<std::filesystem::path> files;
    try {
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            const std::string name = entry.path().filename().string();
            if (name.starts_with("questions-") && name.ends_with(".txt"))
                files.push_back(entry.path());
        }
    } catch (const std::filesystem::filesystem_error& error) {
        throw Failure(QString("%1 cannot be read: %2")
                          .arg(nameOf(folder), QString::fromStdString(error.code().message())));
    }
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace

void readFolder(const std::filesystem::path& folder, Intake& intake)
{
    for (const auto& file : questionFiles(folder))
        readRecords(file, intake);
    readPrompts(folder / "prompts.txt", intake);
}

void readSource(const std::filesystem::path& source, const Format* format, Intake& intake)
{
    std::error_code ignored;
    if (std::filesystem::is_directory(source, ignored))
        readFolder(source, intake);
    else
        (format ? *format : formatOf(source)).read(source, intake);
}

} // namespace bank

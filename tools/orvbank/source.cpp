#include "bank/source.h"

#include "bank/lines.h"
#include "bank/rules.h"

#include <algorithm>
#include <map>
#include <utility>

namespace bank {
namespace {

struct Field
{
    QString value;
    Place place;
};

/// One question as it stands in the file.
struct Record
{
    Place firstLine; ///< line 0 while there is none
    std::map<QString, Field> fields;
    bool repeats = false; ///< a field was given twice and complained about
};

const QStringList fieldNames{QStringLiteral("level"), QStringLiteral("topic"), QStringLiteral("question"),
                             QStringLiteral("A"),     QStringLiteral("B"),     QStringLiteral("C"),
                             QStringLiteral("D"),     QStringLiteral("right"), QStringLiteral("why")};

void addField(const Line& line, Record& record, Complaints& complaints)
{
    const auto colon = line.text.indexOf(u':');
    const QString name = line.text.left(colon).trimmed();
    if (colon < 0) {
        complaints.add(line.place, QStringLiteral("the line is not of the form \"name: text\""));
    } else if (!fieldNames.contains(name)) {
        complaints.add(line.place, QStringLiteral("there is no field \"%1\"").arg(name));
    } else if (!record.fields.try_emplace(name, Field{line.text.mid(colon + 1).trimmed(), line.place})
                    .second &&
               !std::exchange(record.repeats, true)) {
        complaints.add(line.place,
                       QStringLiteral("%1 is given twice; a blank line must part two questions").arg(name));
    }
}

Question questionOf(const Record& record)
{
    const auto value = [&](const char16_t* name) {
        const auto found = record.fields.find(QString::fromUtf16(name));
        return found == record.fields.end() ? QString() : found->second.value;
    };
    return {record.firstLine,
            value(u"level"),
            value(u"topic"),
            value(u"question"),
            {value(u"A"), value(u"B"), value(u"C"), value(u"D")},
            value(u"right"),
            value(u"why")};
}

void addQuestion(const Record& record, Bank& bank, Complaints& complaints)
{
    if (record.firstLine.line == 0) {
        return;
    }
    bank.questions.push_back(questionOf(record));
    for (const Breach& breach : breaches(bank.questions.back())) {
        const auto field = record.fields.find(breach.field);
        complaints.add(field == record.fields.end() ? record.firstLine : field->second.place, breach.reason);
    }
}

void readQuestions(const std::filesystem::path& file, Bank& bank, Complaints& complaints)
{
    Record record;
    for (const Line& line : readLines(file, complaints)) {
        if (line.text.isEmpty()) {
            addQuestion(std::exchange(record, {}), bank, complaints);
            continue;
        }
        if (record.firstLine.line == 0) {
            record.firstLine = line.place;
        }
        addField(line, record, complaints);
    }
    addQuestion(record, bank, complaints);
}

void readPrompts(const std::filesystem::path& file, Bank& bank, Complaints& complaints)
{
    for (const Line& line : readLines(file, complaints)) {
        if (line.text.isEmpty()) {
            continue;
        }
        bank.prompts.push_back({line.place, line.text});
        checkPrompt(bank.prompts.back(), complaints);
    }
}

std::vector<std::filesystem::path> questionFiles(const std::filesystem::path& folder)
{
    std::vector<std::filesystem::path> files;
    try {
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            const std::string name = entry.path().filename().string();
            if (name.starts_with("questions-") && name.ends_with(".txt")) {
                files.push_back(entry.path());
            }
        }
    } catch (const std::filesystem::filesystem_error& error) {
        throw Failure(QStringLiteral("%1 cannot be read: %2")
                          .arg(QString::fromStdString(folder.string()),
                               QString::fromStdString(error.code().message())));
    }
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace

Bank readSource(const std::filesystem::path& folder)
{
    Bank bank;
    Complaints complaints;
    for (const auto& file : questionFiles(folder)) {
        readQuestions(file, bank, complaints);
    }
    readPrompts(folder / "prompts.txt", bank, complaints);
    checkRepeats(bank, complaints);
    if (complaints.empty()) {
        checkEnough(bank, folder.string(), complaints);
    }
    complaints.throwIfAny();
    return bank;
}

} // namespace bank

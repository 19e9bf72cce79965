#include "bank/formats.h"
#include "bank/text.h"

#include <algorithm>
#include <utility>

namespace bank {
namespace {

/// One question as it stands in the file.
struct Entry
{
    Question question;
    bool repeats = false; ///< a field was given twice and complained about
};

void addField(const Line& line, Entry& entry, Complaints& complaints)
{
    const auto colon = line.text.indexOf(u':');
    const QString name = line.text.left(colon).trimmed();
    const auto* const known = std::find_if(fieldNames.begin(), fieldNames.end(),
                                           [&](const char* field) { return name == QString(field); });
    if (colon < 0) {
        complaints.add(line.place, "the line is not of the form \"name: text\"");
        return;
    }
    if (known == fieldNames.end()) {
        complaints.add(line.place, QString("there is no field %1").arg(quoted(name)));
        return;
    }
    const auto field = static_cast<Field>(known - fieldNames.begin());
    const QStringView text = QStringView(line.text).mid(colon + 1).trimmed();
    Spot& spot = entry.question.spot(field);
    if (spot.line == 0) {
        spot = {line.place.line, line.place.column + static_cast<int>(text.data() - line.text.data())};
        entry.question.at(field) = text.toString();
    } else if (!std::exchange(entry.repeats, true)) {
        complaints.add(line.place,
                       QString("%1 is given twice; a blank line must part two questions").arg(name));
    }
}

void addQuestion(Entry entry, Intake& intake)
{
    if (entry.question.place.line > 0)
        intake.accept(std::move(entry.question));
}

} // namespace

void readRecords(const TextFile& file, Intake& intake)
{
    Entry entry;
    for (const Line& line : linesOf(file)) {
        if (line.text.startsWith(u'#'))
            continue;
        if (line.text.isEmpty()) {
            addQuestion(std::exchange(entry, {}), intake);
            continue;
        }
        if (entry.question.place.line == 0)
            entry.question.place = {line.place.file, line.place.line};
        addField(line, entry, intake.complaints);
    }
    addQuestion(std::move(entry), intake);
}

QByteArray writeRecords(const std::vector<Question>& questions)
{
    QString content = "# The database holds neither topic nor why: add them before this becomes the "
                      "source of a bank.\n\n";
    for (const Question& question : questions) {
        for (const Field field : playedFields)
            content += nameOf(field) + ": " + question.at(field) + u'\n';
        content += u'\n';
    }
    return content.toUtf8();
}

} // namespace bank

#include "bank/intake.h"

#include "bank/lines.h"

#include <algorithm>
#include <map>
#include <utility>

namespace bank {
namespace {

/// One question as it stands in the file.
struct Record
{
    Question question;
    std::map<Field, Place> places; ///< of the fields that were given
    bool repeats = false;          ///< a field was given twice and complained about
};

void addField(const Line& line, Record& record, Complaints& complaints)
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
        complaints.add(line.place, QString("there is no field \"%1\"").arg(name));
        return;
    }
    const auto field = static_cast<Field>(known - fieldNames.begin());
    const QStringView text = QStringView(line.text).mid(colon + 1).trimmed();
    Place place = line.place;
    place.column += static_cast<int>(text.data() - line.text.data());
    if (record.places.try_emplace(field, place).second) {
        record.question.at(field) = text.toString();
    } else if (!std::exchange(record.repeats, true)) {
        complaints.add(line.place,
                       QString("%1 is given twice; a blank line must part two questions").arg(name));
    }
}

void addQuestion(Record record, Intake& intake)
{
    const Place first = record.question.place;
    if (first.line == 0)
        return;
    intake.accept(std::move(record.question), [&](Field field) {
        const auto place = record.places.find(field);
        return place == record.places.end() ? first : place->second;
    });
}

} // namespace

void readRecords(const std::filesystem::path& file, Intake& intake)
{
    Record record;
    for (const Line& line : readLines(file, intake.complaints)) {
        if (line.text.startsWith(u'#'))
            continue;
        if (line.text.isEmpty()) {
            addQuestion(std::exchange(record, {}), intake);
            continue;
        }
        if (record.question.place.line == 0)
            record.question.place = {line.place.file, line.place.line};
        addField(line, record, intake.complaints);
    }
    addQuestion(std::move(record), intake);
}

} // namespace bank

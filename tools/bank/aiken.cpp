#include "bank/formats.h"
#include "bank/lines.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace bank {
namespace {

/// Length of the marker, like "A. " or "B) ", with which an option begins; 0 if the line is none.
qsizetype markerIn(QStringView line)
{
    const bool isOption = line.size() >= 3 && line[0] >= u'A' && line[0] <= u'Z' &&
                          (line[1] == u'.' || line[1] == u')') && line[2].isSpace();
    return isOption ? 3 : 0;
}

/// What follows "ANSWER:" in the line of the right answer.
std::optional<QStringView> answerIn(QStringView line)
{
    constexpr QStringView word = u"ANSWER:";
    return line.startsWith(word) ? std::optional(line.mid(word.size())) : std::nullopt;
}

struct Block
{
    std::vector<Line> text;
    std::vector<std::pair<QString, Line>> options; ///< letter and text
    int excess = 0;                                ///< lines between the options and the answer
};

QString joined(const std::vector<Line>& lines)
{
    QStringList texts;
    std::transform(lines.begin(), lines.end(), std::back_inserter(texts),
                   [](const Line& line) { return line.text; });
    return texts.join(u' ');
}

bool hasFourInOrder(const Block& block)
{
    return block.options.size() == optionFields.size() &&
           std::equal(optionFields.begin(), optionFields.end(), block.options.begin(),
                      [](Field field, const auto& option) { return nameOf(field) == option.first; });
}

/// Takes in the question whose last line, `last`, is that of the answer.
void finish(const Block& block, const Line& last, Intake& intake)
{
    if (block.text.empty() || !hasFourInOrder(block) || block.excess > 0) {
        intake.complaints.add(block.text.empty() ? last.place : block.text.front().place,
                              "a question must be its text, four lines \"A. \" to \"D. \" and a "
                              "line \"ANSWER: \"");
        return;
    }
    Question question;
    question.place = block.text.front().place;
    question.text = joined(block.text);
    question.right = answerIn(last.text)->trimmed().toString();
    for (std::size_t i = 0; i < block.options.size(); ++i) {
        const Line& option = block.options.at(i).second;
        question.options.at(i) = option.text;
        question.spot(optionFields.at(i)) = {option.place.line, option.place.column};
    }
    question.spot(Field::Right) = {last.place.line, last.place.column};
    intake.accept(std::move(question));
}

void addOption(Block& block, const Line& line, qsizetype marker)
{
    Line option = line;
    option.text = line.text.mid(marker).trimmed();
    option.place.column += static_cast<int>(line.text.size() - option.text.size());
    block.options.emplace_back(line.text.left(1), option);
}

} // namespace

void readAiken(const std::filesystem::path& file, Intake& intake)
{
    if (intake.level().isEmpty()) {
        intake.complaints.add({nameOf(file)}, "Aiken holds no levels; --level gives one");
        return;
    }
    Block block;
    Line last;
    for (const Line& line : readLines(file, intake.complaints)) {
        if (line.text.isEmpty())
            continue;
        last = line;
        const qsizetype marker = markerIn(line.text);
        if (answerIn(line.text))
            finish(std::exchange(block, {}), line, intake);
        else if (marker > 0 && !block.text.empty())
            addOption(block, line, marker);
        else if (block.options.empty())
            block.text.push_back(line);
        else
            ++block.excess;
    }
    if (!block.text.empty())
        intake.complaints.add(last.place, "the last question has no line \"ANSWER: \"");
}

QByteArray writeAiken(const std::vector<Question>& questions)
{
    QString content;
    for (const Question& question : questions) {
        content += question.text + u'\n';
        for (const Field field : optionFields)
            content += nameOf(field) + ". " + question.at(field) + u'\n';
        content += "ANSWER: " + question.right + "\n\n";
    }
    return content.toUtf8();
}

bool aikenHolds(const Question& question)
{
    return markerIn(question.text) == 0 && !answerIn(question.text);
}

} // namespace bank

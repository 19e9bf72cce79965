#include "bank/intake.h"

#include "bank/aiken.h"
#include "bank/lines.h"

#include <algorithm>
#include <utility>

namespace bank {
namespace {

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
    question.right = aiken::answerIn(last.text)->trimmed().toString();
    for (std::size_t i = 0; i < block.options.size(); ++i)
        question.options.at(i) = block.options.at(i).second.text;
    const Place text = question.place;
    intake.accept(std::move(question), [&](Field field) {
        const auto option = static_cast<std::size_t>(field) - static_cast<std::size_t>(Field::A);
        return field == Field::Right           ? last.place
               : option < block.options.size() ? block.options.at(option).second.place
                                               : text;
    });
}

void addOption(Block& block, const Line& line, qsizetype marker)
{
    Line option = line;
    option.text = line.text.mid(marker).trimmed();
    option.place.column += static_cast<int>(line.text.size() - option.text.size());
    block.options.emplace_back(line.text.left(1), option);
}

} // namespace

namespace aiken {

qsizetype markerIn(QStringView line)
{
    const bool isOption = line.size() >= 3 && line[0] >= u'A' && line[0] <= u'Z' &&
                          (line[1] == u'.' || line[1] == u')') && line[2].isSpace();
    return isOption ? 3 : 0;
}

std::optional<QStringView> answerIn(QStringView line)
{
    constexpr QStringView word = u"ANSWER:";
    return line.startsWith(word) ? std::optional(line.mid(word.size())) : std::nullopt;
}

} // namespace aiken

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
        const qsizetype marker = aiken::markerIn(line.text);
        if (aiken::answerIn(line.text))
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

} // namespace bank

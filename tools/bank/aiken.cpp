#include "bank/formats.h"

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

/// The lines of a question up to that of its answer.
class QuestionLines
{
public:
    void add(const Line& line, Complaints& complaints)
    {
        const qsizetype marker = markerIn(line.text);
        if (marker > 0 && !text_.empty())
            addOption(line, marker, complaints);
        else if (options_ == 0)
            addText(line);
        else
            complain(line, "the line is neither an option nor that of the answer", complaints);
    }

    /// Takes in the question whose last line, `last`, is that of the answer.
    void finish(const Line& last, Intake& intake)
    {
        if (text_.empty())
            complain(last, "there is no question above this line", intake.complaints);
        else if (options_ < optionFields.size())
            complain(last, QString("there are %1 options above this line, four are needed").arg(options_),
                     intake.complaints);
        if (!sound_)
            return;
        question_.text = text_.join(u' ');
        question_.right = answerIn(last.text)->trimmed().toString();
        question_.spot(Field::Right) = last.place.spot();
        intake.accept(std::move(question_));
    }

    [[nodiscard]] bool empty() const { return text_.empty(); }

private:
    void addText(const Line& line)
    {
        if (text_.empty())
            question_.place = line.place;
        text_ << line.text;
    }

    void addOption(const Line& line, qsizetype marker, Complaints& complaints)
    {
        if (options_ == optionFields.size())
            return complain(line, "a question has four options, this is one more", complaints);
        const Field field = optionFields.at(options_++);
        if (line.text.front() != nameOf(field).front())
            return complain(line, QString("the option should be %1").arg(nameOf(field)), complaints);
        QString& option = question_.at(field) = line.text.mid(marker).trimmed();
        question_.spot(field) = line.place.spot();
        question_.spot(field).column += static_cast<int>(line.text.size() - option.size());
    }

    void complain(const Line& line, const QString& reason, Complaints& complaints)
    {
        if (std::exchange(sound_, false))
            complaints.add(line.place, reason);
    }

    Question question_;
    QStringList text_;
    std::size_t options_ = 0;
    bool sound_ = true;
};

} // namespace

void readAiken(const TextFile& file, Intake& intake)
{
    if (intake.level().isEmpty()) {
        intake.complaints.add({file.name}, "Aiken holds no levels; --level gives one");
        return;
    }
    QuestionLines block;
    Line last;
    for (const Line& line : linesOf(file)) {
        if (line.text.isEmpty())
            continue;
        last = line;
        if (answerIn(line.text))
            std::exchange(block, {}).finish(line, intake);
        else
            block.add(line, intake.complaints);
    }
    if (!block.empty())
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

#include "bank/formats.h"
#include "bank/text.h"

#include <QRegularExpression>

#include <algorithm>
#include <optional>
#include <utility>

namespace bank {
namespace {

/// A text of the file and where it begins, still with its backslashes.
struct Piece
{
    QString text;
    Spot spot;
};

/// The lines of a few questions, joined by line feeds, in which a place can be found again.
class Block
{
public:
    void add(const Line& line)
    {
        starts_.push_back(text_.size());
        lines_.push_back(line.place);
        text_ += line.text + u'\n';
    }

    [[nodiscard]] bool empty() const { return starts_.empty(); }
    [[nodiscard]] qsizetype size() const { return text_.size(); }
    [[nodiscard]] QStringView text() const { return text_; }

    [[nodiscard]] Place placeOf(qsizetype offset)
    {
        // Most places lie behind the one before, from which the columns are counted on: a line may be long.
        if (offset < from_ || line_ < 0 ||
            (static_cast<std::size_t>(line_) + 1 < starts_.size() && offset >= starts_[line_ + 1])) {
            line_ = std::upper_bound(starts_.begin(), starts_.end(), offset) - starts_.begin() - 1;
            from_ = starts_[line_];
            column_ = lines_[line_].column;
        }
        column_ += static_cast<int>(length(text().mid(from_, offset - from_)));
        from_ = offset;
        return {lines_[line_].file, lines_[line_].line, column_};
    }

    /// The text from one offset to another without the blanks around it.
    [[nodiscard]] Piece piece(qsizetype from, qsizetype to)
    {
        while (from < to && text_[from].isSpace())
            ++from;
        const Place place = placeOf(from);
        return {text_.mid(from, to - from).trimmed(), {place.line, place.column}};
    }

    /// The first of `characters` from `from` and before `to` that no backslash takes its meaning, or -1.
    [[nodiscard]] qsizetype find(QStringView characters, qsizetype from, qsizetype to) const
    {
        for (qsizetype at = from; at < to; ++at)
            if (text_[at] == u'\\')
                ++at;
            else if (characters.contains(text_[at]))
                return at;
        return -1;
    }

private:
    QString text_;
    std::vector<qsizetype> starts_;
    std::vector<Place> lines_;
    std::ptrdiff_t line_ = -1; ///< of the place that was asked for last,
    qsizetype from_ = 0;       ///< where that was,
    int column_ = 0;           ///< and in which column
};

/// The text that `piece` stands for. A line break counts as a blank.
QString plain(const QString& piece)
{
    constexpr QStringView escapable = u"~=#{}:%\\";
    QString text;
    for (qsizetype at = 0; at < piece.size(); ++at) {
        const bool escape = piece[at] == u'\\' && at + 1 < piece.size();
        if (escape && escapable.contains(piece[at + 1])) {
            text += piece[++at];
        } else if (escape && piece[at + 1] == u'n') {
            text += u' ';
            ++at;
        } else {
            text += piece[at] == u'\n' ? QChar(u' ') : piece[at];
        }
    }
    return text.trimmed();
}

/// The name of the markup in front of a text.
const QRegularExpression& markup()
{
    static const QRegularExpression expression(R"(^\[(html|moodle|plain|markdown)\]\s*)");
    return expression;
}

struct Option
{
    bool right = false;
    Piece piece;
};

/// What stands between the braces of a question.
struct Answers
{
    std::vector<Option> options;
    QString fault; ///< why a bank cannot hold them, or ""
    Spot spot;     ///< of the fault
};

constexpr auto whatIsWanted = "; a bank holds only questions with four options of which one is right";

/// What kind of question has these answers, if it is not one of multiple choice.
QString kindOf(const QString& answers, const std::vector<Option>& options)
{
    static const QRegularExpression truth("^(T|F|TRUE|FALSE)\\s*(#|$)");
    const auto isRight = [](const Option& option) { return option.right; };
    if (answers.isEmpty())
        return "an essay question";
    if (answers.startsWith(u'#'))
        return "a numerical question";
    if (truth.match(answers).hasMatch())
        return "a true-false question";
    if (options.empty() || !std::all_of(options.begin(), options.end(), isRight))
        return {};
    return options.front().piece.text.contains("->") ? "a matching question" : "a short-answer question";
}

/// Takes the weight from an option: all of the points or none.
bool takeWeight(Option& option)
{
    static const QRegularExpression weight("^%(-?[0-9.,]+)%\\s*");
    const auto match = weight.match(option.piece.text);
    if (!match.hasMatch())
        return true;
    const double points = match.captured(1).replace(u',', u'.').toDouble();
    if (points != 100 && points != 0)
        return false;
    option.right = points > 0;
    option.piece.text.remove(0, match.capturedLength());
    option.piece.spot.column += static_cast<int>(match.capturedLength());
    return true;
}

Answers answersOf(Block& block, qsizetype open, qsizetype close)
{
    Answers answers;
    const Place brace = block.placeOf(open);
    answers.spot = {brace.line, brace.column};
    qsizetype at = block.find(u"~=", open + 1, close);
    const Piece before = block.piece(open + 1, at < 0 ? close : at);
    while (at >= 0) {
        const qsizetype next = block.find(u"~=", at + 1, close);
        const qsizetype end = next < 0 ? close : next;
        const qsizetype feedback = block.find(u"#", at + 1, end);
        answers.options.push_back(
            {block.text()[at] == u'=', block.piece(at + 1, feedback < 0 ? end : feedback)});
        at = next;
    }
    const QString all = block.text().mid(open + 1, close - open - 1).trimmed().toString();
    if (const QString kind = kindOf(all, answers.options); !kind.isEmpty()) {
        answers.fault = kind + whatIsWanted;
        return answers;
    }
    for (Option& option : answers.options) {
        if (!takeWeight(option)) {
            answers.spot = option.piece.spot;
            answers.fault = "an option is right or wrong, a bank holds no weights but 100 and 0";
            return answers;
        }
    }
    const auto right = std::count_if(answers.options.begin(), answers.options.end(),
                                     [](const Option& option) { return option.right; });
    if (!before.text.isEmpty()) {
        answers.spot = before.spot;
        answers.fault = R"(an option must begin with "=" or "~")";
    } else if (answers.options.size() != optionFields.size() || right != 1) {
        answers.fault =
            QString("%1 options of which %2 are right").arg(answers.options.size()).arg(right) + whatIsWanted;
    }
    return answers;
}

class GiftReader
{
public:
    GiftReader(const TextFile& file, Intake& intake) : file_(file), intake_(intake) {}

    void read()
    {
        Block block;
        for (const Line& line : linesOf(file_)) {
            if (line.text.startsWith("//"))
                continue;
            const bool isCategory = line.text.startsWith("$CATEGORY:");
            if (line.text.isEmpty() || isCategory)
                readBlock(std::exchange(block, {}));
            else
                block.add(line);
            if (isCategory)
                readCategory(line);
        }
        readBlock(std::move(block));
    }

private:
    void readCategory(const Line& line)
    {
        static const QRegularExpression ending("(?:^|[/\\s:])level[\\s_:-]*([0-9]+)$",
                                               QRegularExpression::CaseInsensitiveOption);
        const auto match = ending.match(line.text);
        level_ = match.captured(1);
        levelSpot_ = line.spot();
        levelSpot_.column += static_cast<int>(std::max<qsizetype>(match.capturedStart(1), 0));
    }

    /// Questions in lines of their own are told apart even if no blank line parts them.
    void readBlock(Block block)
    {
        for (qsizetype start = 0; start < block.size();) {
            const qsizetype open = block.find(u"{", start, block.size());
            const qsizetype close = open < 0 ? -1 : block.find(u"}", open, block.size());
            if (close < 0) {
                intake_.complaints.add(block.placeOf(open < 0 ? start : open),
                                       open < 0 ? "there are no answers in braces"
                                                : "the brace that opens here is never closed");
                return;
            }
            qsizetype end = block.size();
            if (const qsizetype next = block.find(u"{", close + 1, block.size()); next >= 0) {
                end = block.text().indexOf(u'\n', close);
                if (end > next || !block.text().mid(close + 1, end - close - 1).trimmed().isEmpty()) {
                    intake_.complaints.add(block.placeOf(next),
                                           "a second pair of braces; a blank line must part two questions");
                    return;
                }
            }
            readQuestion(block, start, open, close, end);
            start = end + 1;
        }
    }

    void readQuestion(Block& block, qsizetype start, qsizetype open, qsizetype close, qsizetype end)
    {
        if (block.text().mid(start).startsWith(u"::")) {
            const qsizetype titleEnd = block.text().indexOf(u"::", start + 2);
            start = titleEnd < 0 || titleEnd > open ? start : titleEnd + 2;
        }
        Piece text = block.piece(start, open);
        const Answers answers = answersOf(block, open, close);
        if (!answers.fault.isEmpty()) {
            intake_.complaints.add({file_.name, answers.spot.line, answers.spot.column}, answers.fault);
            return;
        }
        const auto match = markup().match(text.text);
        text.text = plain(text.text.mid(match.capturedLength()));
        text.spot.column += static_cast<int>(match.capturedLength());
        // A gap in the middle becomes a line.
        if (const QString rest = plain(block.piece(close + 1, end).text); !rest.isEmpty())
            text.text += " ____ " + rest;
        const QString kind = match.captured(1);
        accept(text, answers.options, kind != "plain" && kind != "markdown");
    }

    void accept(const Piece& text, const std::vector<Option>& options, bool isHtml)
    {
        Question question;
        question.place = {file_.name, text.spot.line, text.spot.column};
        question.level = level_;
        if (!level_.isEmpty())
            question.spot(Field::Level) = levelSpot_;
        question.text = text.text;
        for (std::size_t i = 0; i < options.size(); ++i) {
            question.options.at(i) = plain(options[i].piece.text);
            question.spot(optionFields.at(i)) = options[i].piece.spot;
            if (options[i].right)
                question.right = nameOf(optionFields.at(i));
        }
        if (!isHtml || convert(question))
            intake_.accept(std::move(question));
    }

    /// Makes plain text of HTML, or complains.
    bool convert(Question& question)
    {
        for (const Field field : {Field::Question, Field::A, Field::B, Field::C, Field::D}) {
            QString& text = question.at(field);
            text.remove(markup());
            if (markupIn(text).isEmpty())
                continue;
            const auto converted = plainOf(text);
            if (!converted) {
                intake_.complaints.add(question.placeOf(field),
                                       QString("the HTML in %1 cannot be plain text").arg(quoted(text)));
                return false;
            }
            text = *converted;
        }
        return true;
    }

    const TextFile& file_;
    Intake& intake_;
    QString level_;
    Spot levelSpot_;
};

QString giftText(const QString& text)
{
    QString escaped;
    for (const QChar c : text) {
        if (QStringView(u"~=#{}:\\").contains(c))
            escaped += u'\\';
        escaped += c;
    }
    return escaped;
}

QString giftOption(const QString& text)
{
    // A percent sign in front would begin a weight.
    return (text.startsWith(u'%') ? "\\" : QString()) + giftText(text);
}

} // namespace

void readGift(const TextFile& file, Intake& intake)
{
    GiftReader(file, intake).read();
}

QByteArray writeGift(const std::vector<Question>& questions)
{
    QString content;
    QString level;
    int number = 0;
    for (const Question& question : questions) {
        if (question.level != level) {
            level = question.level;
            content += QString("$CATEGORY: level %1\n\n").arg(level);
        }
        // Behind a title no text can be taken for a comment, a category or the name of a markup.
        content += QString("::%1::[plain]").arg(++number) + giftText(question.text) + " {\n";
        for (std::size_t i = 0; i < question.options.size(); ++i) {
            const bool right = static_cast<int>(i) == question.rightIndex();
            content += u'\t' + QString(right ? u'=' : u'~') + giftOption(question.options.at(i)) + u'\n';
        }
        content += "}\n\n";
    }
    return content.toUtf8();
}

} // namespace bank

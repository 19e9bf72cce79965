#include "bank/formats.h"
#include "bank/text.h"

#include <QRegularExpression>

#include <algorithm>
#include <utility>

namespace bank {
namespace {

/// A text of the file and where it begins, still with its backslashes.
struct Piece
{
    QString text;
    Place place;

    void removeFront(qsizetype size)
    {
        text.remove(0, size);
        place.column += static_cast<int>(size);
    }
};

/// Why a question is not taken in.
struct Fault
{
    Place place;
    QString reason;
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
        return {text_.mid(from, to - from).trimmed(), placeOf(from)};
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

/// What kind of question has these answers, if it is not one of multiple choice.
QString kindOf(const QString& answers, const std::vector<Option>& options)
{
    static const QRegularExpression truth("^(T|F|TRUE|FALSE)\\s*(#|$)");
    if (answers.isEmpty())
        return "an essay question";
    if (answers.startsWith(u'#'))
        return "a numerical question";
    if (truth.match(answers).hasMatch())
        return "a true-false question";
    if (options.empty() || !std::ranges::all_of(options, &Option::right))
        return {};
    return options.front().piece.text.contains("->") ? "a matching question" : "a short-answer question";
}

/// Takes the weight from an option: all of the points or none.
void takeWeight(Option& option)
{
    static const QRegularExpression weight("^%(-?[0-9.,]+)%\\s*");
    const auto match = weight.match(option.piece.text);
    if (!match.hasMatch())
        return;
    const double points = match.captured(1).replace(u',', u'.').toDouble();
    if (points != 100 && points != 0)
        throw Fault{option.piece.place, "an option is right or wrong, a bank holds no weights but 100 and 0"};
    option.right = points > 0;
    option.piece.removeFront(match.capturedLength());
}

/// What stands between the braces of a question.
std::vector<Option> optionsOf(Block& block, qsizetype open, qsizetype close)
{
    constexpr auto whatIsWanted = "; a bank holds only questions with four options of which one is right";
    const Place brace = block.placeOf(open);
    qsizetype at = block.find(u"~=", open + 1, close);
    const Piece before = block.piece(open + 1, at < 0 ? close : at);
    std::vector<Option> options;
    while (at >= 0) {
        const qsizetype next = block.find(u"~=", at + 1, close);
        const qsizetype end = next < 0 ? close : next;
        const qsizetype feedback = block.find(u"#", at + 1, end);
        options.push_back({block.text()[at] == u'=', block.piece(at + 1, feedback < 0 ? end : feedback)});
        at = next;
    }
    const QString all = block.text().mid(open + 1, close - open - 1).trimmed().toString();
    if (const QString kind = kindOf(all, options); !kind.isEmpty())
        throw Fault{brace, kind + whatIsWanted};
    std::ranges::for_each(options, takeWeight);
    if (!before.text.isEmpty())
        throw Fault{before.place, R"(an option must begin with "=" or "~")"};
    const auto right = std::ranges::count(options, true, &Option::right);
    if (options.size() != optionFields.size() || right != 1)
        throw Fault{brace, QString("%1 options of which %2 are right").arg(options.size()).arg(right) +
                               whatIsWanted};
    return options;
}

/// Makes plain text of the HTML in a question.
void convert(Question& question)
{
    for (const Field field : {Field::Question, Field::A, Field::B, Field::C, Field::D}) {
        QString& text = question.at(field);
        text.remove(markup());
        if (markupIn(text).isEmpty())
            continue;
        const auto converted = plainOf(text);
        if (!converted)
            throw Fault{question.placeOf(field),
                        QString("the HTML in %1 cannot be plain text").arg(quoted(text))};
        text = *converted;
    }
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
        levelSpot_ = line.place.spot();
        levelSpot_.column += static_cast<int>(std::max<qsizetype>(match.capturedStart(1), 0));
    }

    /// Questions in lines of their own are told apart even if no blank line parts them.
    void readBlock(Block block)
    {
        for (qsizetype start = 0; start < block.size();) {
            const qsizetype open = block.find(u"{", start, block.size());
            const qsizetype close = open < 0 ? -1 : block.find(u"}", open, block.size());
            if (close < 0)
                return intake_.complaints.add(block.placeOf(open < 0 ? start : open),
                                              open < 0 ? "there are no answers in braces"
                                                       : "the brace that opens here is never closed");
            qsizetype end = block.size();
            if (const qsizetype next = block.find(u"{", close + 1, block.size()); next >= 0) {
                end = block.text().indexOf(u'\n', close);
                if (end > next || !block.text().mid(close + 1, end - close - 1).trimmed().isEmpty())
                    return intake_.complaints.add(
                        block.placeOf(next), "a second pair of braces; a blank line must part two questions");
            }
            try {
                intake_.accept(question(block, start, open, close, end));
            } catch (const Fault& fault) {
                intake_.complaints.add(fault.place, fault.reason);
            }
            start = end + 1;
        }
    }

    Question question(Block& block, qsizetype start, qsizetype open, qsizetype close, qsizetype end)
    {
        if (block.text().mid(start).startsWith(u"::")) {
            const qsizetype titleEnd = block.text().indexOf(u"::", start + 2);
            start = titleEnd < 0 || titleEnd > open ? start : titleEnd + 2;
        }
        Piece text = block.piece(start, open);
        const auto options = optionsOf(block, open, close);
        const auto match = markup().match(text.text);
        text.removeFront(match.capturedLength());
        Question question;
        question.place = text.place;
        question.text = plain(text.text);
        // A gap in the middle becomes a line.
        if (const QString rest = plain(block.piece(close + 1, end).text); !rest.isEmpty())
            question.text += " ____ " + rest;
        question.level = level_;
        question.spot(Field::Level) = level_.isEmpty() ? Spot() : levelSpot_;
        for (std::size_t i = 0; i < options.size(); ++i) {
            question.options.at(i) = plain(options[i].piece.text);
            question.spot(optionFields.at(i)) = options[i].piece.place.spot();
            if (options[i].right)
                question.right = nameOf(optionFields.at(i));
        }
        if (const QString kind = match.captured(1); kind != "plain" && kind != "markdown")
            convert(question);
        return question;
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

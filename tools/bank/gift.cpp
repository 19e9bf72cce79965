#include "bank/formats.h"
#include "bank/lines.h"
#include "bank/text.h"

#include <QRegularExpression>

#include <algorithm>
#include <optional>
#include <utility>

namespace bank {
namespace {

constexpr QStringView escapable = u"~=#{}:%\\";

/// A text of the file with its place, still with its backslashes.
struct Piece
{
    QString text;
    Place place;
};

/// The lines of one question, joined by line feeds, in which a place can be found again.
class Block
{
public:
    void add(const Line& line)
    {
        starts_.push_back(text_.size());
        places_.push_back(line.place);
        text_ += line.text + u'\n';
    }

    [[nodiscard]] bool empty() const { return starts_.empty(); }
    [[nodiscard]] const QString& text() const { return text_; }

    [[nodiscard]] Place placeOf(qsizetype offset) const
    {
        const auto next = std::upper_bound(starts_.begin(), starts_.end(), offset);
        const auto index = std::max<std::ptrdiff_t>(next - starts_.begin() - 1, 0);
        const qsizetype start = starts_.at(static_cast<std::size_t>(index));
        Place place = places_.at(static_cast<std::size_t>(index));
        place.column += static_cast<int>(length(QStringView(text_).mid(start, offset - start)));
        return place;
    }

    /// The text from one offset to another without the blanks around it.
    [[nodiscard]] Piece piece(qsizetype from, qsizetype to) const
    {
        while (from < to && text_[from].isSpace())
            ++from;
        return {text_.mid(from, to - from).trimmed(), placeOf(from)};
    }

    /// The first of `characters` from `from` on that no backslash takes its meaning.
    [[nodiscard]] qsizetype find(QStringView characters, qsizetype from) const
    {
        for (qsizetype at = from; at < text_.size(); ++at)
            if (text_[at] == u'\\')
                ++at;
            else if (characters.contains(text_[at]))
                return at;
        return -1;
    }

private:
    QString text_;
    std::vector<qsizetype> starts_;
    std::vector<Place> places_;
};

/// The text that `piece` stands for. A line break counts as a blank.
QString plain(const QString& piece)
{
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

struct Answer
{
    bool right = false;
    Piece piece;
};

class GiftReader
{
public:
    explicit GiftReader(Intake& intake) : intake_(intake) {}

    void read(const std::filesystem::path& file)
    {
        Block block;
        for (const Line& line : readLines(file, intake_.complaints)) {
            if (line.text.startsWith("//"))
                continue;
            if (block.empty() && line.text.startsWith("$CATEGORY:"))
                readCategory(line.text);
            else if (!line.text.isEmpty())
                block.add(line);
            else
                readBlock(std::exchange(block, {}));
        }
        readBlock(block);
    }

private:
    void readCategory(const QString& line)
    {
        static const QRegularExpression ending("level\\s*([^\\s/]+)$",
                                               QRegularExpression::CaseInsensitiveOption);
        level_ = ending.match(line).captured(1);
    }

    void readBlock(const Block& block)
    {
        if (block.empty())
            return;
        const qsizetype open = block.find(u"{", 0);
        const qsizetype close = open < 0 ? -1 : block.find(u"}", open);
        if (close < 0) {
            intake_.complaints.add(block.placeOf(std::max<qsizetype>(open, 0)),
                                   open < 0 ? "there are no answers in braces"
                                            : "the brace that opens here is never closed");
            return;
        }
        const auto answers = answersOf(block, open + 1, close);
        if (!answers || !fits(block, open, *answers))
            return;
        const Piece text = questionOf(block, open, close);
        Question question;
        question.place = text.place;
        question.level = level_;
        question.text = text.text;
        for (std::size_t i = 0; i < answers->size(); ++i) {
            const Piece& piece = answers->at(i).piece;
            question.options.at(i) = plain(piece.text);
            question.spot(optionFields.at(i)) = {piece.place.line, piece.place.column};
            if (answers->at(i).right)
                question.right = nameOf(optionFields.at(i));
        }
        intake_.accept(std::move(question));
    }

    /// The question without its title and the name of its markup. A gap in the middle becomes a line.
    static Piece questionOf(const Block& block, qsizetype open, qsizetype close)
    {
        static const QRegularExpression markup("^\\[(html|moodle|plain|markdown)\\]\\s*");
        qsizetype start = 0;
        if (block.text().startsWith("::")) {
            const qsizetype end = block.text().indexOf("::", 2);
            start = end < 0 || end > open ? 0 : end + 2;
        }
        Piece piece = block.piece(start, open);
        piece.text = plain(piece.text.remove(markup));
        const QString rest = plain(block.piece(close + 1, block.text().size()).text);
        if (!rest.isEmpty())
            piece.text += " ____ " + rest;
        return piece;
    }

    std::optional<std::vector<Answer>> answersOf(const Block& block, qsizetype from, qsizetype to)
    {
        std::vector<Answer> answers;
        qsizetype at = block.find(u"~=", from);
        while (at >= 0 && at < to) {
            qsizetype next = block.find(u"~=", at + 1);
            next = next < 0 || next > to ? to : next;
            qsizetype feedback = block.find(u"#", at + 1);
            feedback = feedback < 0 || feedback > next ? next : feedback;
            answers.push_back({block.text()[at] == u'=', block.piece(at + 1, feedback)});
            static const QRegularExpression weight("^%-?[0-9.]+%");
            if (weight.match(answers.back().piece.text).hasMatch()) {
                intake_.complaints.add(answers.back().piece.place,
                                       "an option is right or wrong, a bank holds no weights");
                return std::nullopt;
            }
            at = next < to ? next : -1;
        }
        return answers;
    }

    bool fits(const Block& block, qsizetype open, const std::vector<Answer>& answers)
    {
        const auto right =
            std::count_if(answers.begin(), answers.end(), [](const Answer& a) { return a.right; });
        if (answers.size() == optionFields.size() && right == 1)
            return true;
        intake_.complaints.add(block.placeOf(open),
                               QString("%1 options of which %2 are right; a bank holds only questions with "
                                       "four options of which one is right")
                                   .arg(answers.size())
                                   .arg(right));
        return false;
    }

    Intake& intake_;
    QString level_;
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

void readGift(const std::filesystem::path& file, Intake& intake)
{
    GiftReader(intake).read(file);
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

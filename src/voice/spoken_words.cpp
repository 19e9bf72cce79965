#include "voice/spoken_words.h"

#include "voice/folded_text.h"
#include "voice/number_speller.h"
#include "voice/respelling.h"
#include "voice/spelling.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace voice {

namespace {

constexpr std::size_t longestWord = 40;

const QString number = R"((\d{1,3}(?:,\d{2,3}){0,5},\d{3}(?!\d)|\d+))";
const QString decimal = R"((?:\.(\d+))?)";

/// What is more than a number, where it begins with one.
struct Patterns
{
    QRegularExpression money{
        R"((#[RDEL]|US ?#D|R[Ss]\b\.?|INR\b|Re\b\.?)\s*)" + number + decimal +
        R"((?:\s*(hundred|thousand|lakhs?|lacs?|crores?|cr|[mbtr]+illion|mn|bn)\b\.?)?(?:/-)?)"};
    QRegularExpression hour{R"((\d{1,2})(?:[:.](\d\d))?\s*([AaPp])\.?[Mm]\b\.?)"};
    QRegularExpression clock{R"((\d{1,2}):(\d\d)(?![\d:])(?:\s*(?:hrs|hours)\b\.?)?)"};
    QRegularExpression date{R"((\d{1,2})([/.-])(\d{1,2})\2(\d{4}|\d\d)(?![\d/-]))"};
    QRegularExpression isoDate{R"((\d{4})(-)(\d\d)-(\d\d)(?![\d-]))"};
    QRegularExpression ordinal{R"((\d{1,15})(?:st|nd|rd|th)\b)"};
    QRegularExpression decade{R"((\d{0,3}0)'?s\b)"};
    QRegularExpression plain{number + decimal};
    QRegularExpression unit{R"( ?(%|[A-Za-z]+(?:/[hs])?)(?![A-Za-z]))"};
    QRegularExpression numbered{R"([Nn]os?\. ?(?=\d))"};
    QRegularExpression latin{R"(([ap])\.m\b\.?|(e)\.g\b\.?|(i)\.e\b\.?)"};
    QRegularExpression formula{R"((?:[A-Z][a-z]?){1,4}\d{1,4}(?:[A-Z][a-z]?\d{0,4}){0,8}(?![A-Za-z\d]))"};
    QRegularExpression letter{R"(,+ *(?:[A-D] *,|[A-D]$))"}; ///< of an option
    QRegularExpression shout{R"([A-Z]{2,}(?: +[A-Z]+\b){3,60})"};
};

/// Puts one text in words, from left to right.
class Scanner
{
public:
    Scanner(const FoldedText& folded, const Patterns& patterns, const NumberSpeller& numbers)
        : folded_(folded),
          text_(folded.letters),
          line_(QString::fromLatin1(folded.letters)),
          patterns_(patterns),
          numbers_(numbers)
    {
    }

    std::vector<SpokenWord> run()
    {
        while (position_ < text_.size())
            step(text_[position_]);
        return std::move(words_);
    }

private:
    void step(char c)
    {
        if (isLetter(c)) {
            if (!money() && !abbreviated() && !formula())
                word();
        } else if (isDigit(c)) {
            if (!dateOrTime() && !ordinalOrDecade())
                plainNumber();
        } else if (c == ' ') {
            attached_ = false;
            ++position_;
        } else if (c == '#') {
            if (!money())
                lonelyCurrency();
        } else if (c == '_' || c == '.') {
            row(c);
        } else {
            sign(c);
        }
    }

    [[nodiscard]] char at(std::size_t place) const { return place < text_.size() ? text_[place] : ' '; }

    [[nodiscard]] std::size_t afterBlanks(std::size_t place) const
    {
        return std::min(text_.find_first_not_of(' ', place), text_.size());
    }

    bool matches(const QRegularExpression& pattern, std::size_t place)
    {
        // Without the second option each match takes a look at the whole text.
        match_ = pattern.match(line_, static_cast<qsizetype>(place), QRegularExpression::NormalMatch,
                               QRegularExpression::AnchorAtOffsetMatchOption |
                                   QRegularExpression::DontCheckSubjectStringMatchOption);
        return match_.hasMatch();
    }

    [[nodiscard]] std::string part(int index) const { return match_.captured(index).toStdString(); }
    [[nodiscard]] std::size_t matchEnd() const { return static_cast<std::size_t>(match_.capturedEnd()); }

    /// Says `said`, which may be several words, for what ends before `end`.
    void say(std::string_view said, std::size_t end)
    {
        for (std::size_t start = 0; start < said.size();) {
            const std::size_t blank = std::min(said.find(' ', start), said.size());
            if (blank > start)
                words_.push_back({std::string(said.substr(start, blank - start)), folded_.ends[end - 1]});
            start = blank + 1;
        }
        attached_ = true;
    }

    /// Goes on to `end`; a mark that hangs on the last word is shown with it.
    void pass(std::size_t end, Pause pause = Pause::None)
    {
        position_ = end;
        if (pause > Pause::None)
            previous_.clear();
        if (!words_.empty()) {
            words_.back().pause = std::max(words_.back().pause, pause);
            if (attached_)
                words_.back().end = folded_.ends[end - 1];
        }
    }

    bool sayMatch(std::string_view said)
    {
        const std::size_t end = matchEnd();
        say(said, end);
        pass(end);
        return true;
    }

    void sayLetters(std::string_view letters, std::size_t end)
    {
        for (const char& letter : letters)
            say(std::string(1, isUpper(letter) ? letter : static_cast<char>(letter - 'a' + 'A')), end);
    }

    void word()
    {
        std::size_t end = position_;
        while (isLetter(at(end)) || (at(end) == '\'' && end > position_ && isLetter(at(end + 1))))
            ++end;
        const std::string written(text_.substr(position_, end - position_));
        const bool capitals = std::ranges::all_of(written, isUpper);
        const bool initial = written.size() == 1 && capitals && at(end) == '.' && continues(end + 1);
        if (written.starts_with(foreignMark))
            return foreignWord(end);
        if (const int value = initial ? 0 : romanNumeral(previous_, written)) {
            const std::string digits = std::to_string(value);
            say(isCounted(previous_) ? numbers_.cardinal(digits) : "the " + numbers_.ordinal(digits), end);
        } else if (const int count = capitals ? countingNumeral(written) : 0) {
            say(numbers_.cardinal(std::to_string(count)), end);
        } else if (written == "A" && previous_.empty() && at(end) == ' ' && isLetter(at(afterBlanks(end)))) {
            say("a", end);
        } else if (previous_ == "degrees" && (written == "C" || written == "F")) {
            say(written == "C" ? "Celsius" : "Fahrenheit", end);
        } else if (written == "x" && isDigit(at(end)) && position_ > 0 && isDigit(text_[position_ - 1])) {
            say("by", end);
        } else if (capitals && !shouted() && isSpelled(written)) {
            sayLetters(written, end);
        } else {
            const std::string unit =
                written.size() > 1 && !capitals ? unitOfMeasure(written, false) : std::string();
            const bool length = unit.ends_with("metres") || unit.ends_with("grams");
            say(length ? std::string_view(unit) : std::string_view(written).substr(0, longestWord), end);
        }
        pass(initial ? end + 1 : end);
        previous_ = written;
    }

    void foreignWord(std::size_t end)
    {
        while (isLetter(at(end)) || at(end) == '-')
            ++end;
        std::string name(text_.substr(position_, end - position_));
        const std::string sounds = soundsOfRespelling(std::string_view(name).substr(foreignMark.size()));
        std::erase(name, '-');
        if (!sounds.empty()) {
            words_.push_back({name, folded_.ends[end - 1], Pause::None, sounds});
            attached_ = true;
        }
        pass(end);
    }

    /// All around the word is in capitals.
    bool shouted()
    {
        if (position_ >= shoutEnd_ && matches(patterns_.shout, position_))
            shoutEnd_ = matchEnd();
        return position_ < shoutEnd_;
    }

    /// A name goes on behind its initial, with no word that begins a sentence.
    [[nodiscard]] bool continues(std::size_t place) const
    {
        const std::size_t start = afterBlanks(place);
        std::size_t end = start;
        while (isLetter(at(end)))
            ++end;
        return end > start && !isFunctionWord(text_.substr(start, end - start));
    }

    bool abbreviated()
    {
        if (matches(patterns_.numbered, position_))
            return sayMatch("number");
        if (matches(patterns_.latin, position_)) {
            const std::string hour = part(1);
            return sayMatch(!hour.empty()    ? hour == "a" ? "A M" : "P M"
                            : part(2) == "e" ? "for example"
                                             : "that is");
        }
        std::size_t end = position_;
        while (isLetter(at(end)))
            ++end;
        const std::string_view written = text_.substr(position_, end - position_);
        const bool stop = at(end) == '.';
        const bool capitals = !written.empty() && isUpper(written.back());
        const Abbreviation found = capitals || at(end) == '\'' ? Abbreviation() : abbreviation(written, stop);
        if (found.said.empty())
            return false;
        say(found.said, end);
        pass(stop && found.stop ? end + 1 : end);
        previous_ = written;
        return true;
    }

    /// CO2, H2SO4, G20: letters and numbers.
    bool formula()
    {
        if (!matches(patterns_.formula, position_))
            return false;
        const std::size_t end = matchEnd();
        while (position_ < end) {
            std::size_t next = position_;
            while (next < end && isDigit(text_[next]) == isDigit(text_[position_]))
                ++next;
            const std::string_view run = text_.substr(position_, next - position_);
            if (isDigit(run[0]))
                say(numbers_.cardinal(run), next);
            else
                sayLetters(run, next);
            position_ = next;
        }
        pass(end);
        return true;
    }

    bool money()
    {
        if (!matches(patterns_.money, position_))
            return false;
        struct Currency
        {
            std::string_view one, many, oneCoin, coins;
        };
        constexpr std::array currencies = {
            Currency{"rupee", "rupees", "paisa", "paise"}, Currency{"dollar", "dollars", "cent", "cents"},
            Currency{"euro", "euros", "cent", "cents"}, Currency{"pound", "pounds", "penny", "pence"}};
        const std::string code = part(1);
        const std::size_t kind = std::string_view("RDEL").find(code[code.find('#') + 1]);
        const Currency& currency = currencies.at(code.find('#') == std::string::npos ? 0 : kind);
        const std::string digits = grouped(part(2));
        const std::string rest = part(3);
        const std::string scale = part(4);
        const bool coins = rest.size() == 2 && scale.empty();
        std::string said = numbers_.cardinal(digits);
        if (!rest.empty() && !coins)
            said += " point " + numbers_.digits(rest);
        if (!scale.empty())
            said += " " + (scale.size() == 2 ? unitOfMeasure(scale, true) : scale);
        const bool one = digits == "1" && scale.empty() && (rest.empty() || coins);
        said += " " + std::string(one ? currency.one : currency.many);
        if (coins && rest != "00")
            said += " " + numbers_.cardinal(std::to_string(std::stoi(rest))) + " " +
                    std::string(rest == "01" ? currency.oneCoin : currency.coins);
        return sayMatch(said);
    }

    void lonelyCurrency()
    {
        const char code = at(position_ + 1);
        say(code == 'R'   ? "rupees"
            : code == 'D' ? "dollars"
            : code == 'E' ? "euros"
                          : "pounds",
            position_ + 2);
        pass(position_ + 2);
    }

    [[nodiscard]] static std::string grouped(std::string digits)
    {
        std::erase(digits, ',');
        return digits;
    }

    bool dateOrTime()
    {
        const auto two = [this](int index) { return match_.captured(index).toInt(); };
        if (matches(patterns_.hour, position_) && two(1) <= 12 && two(2) < 60)
            return sayMatch(timeOfDay(part(1), part(2)) +
                            (part(3) == "a" || part(3) == "A" ? " A M" : " P M"));
        if (matches(patterns_.clock, position_) && two(1) <= 24 && two(2) < 60)
            return sayMatch(timeOfDay(part(1), part(2)) + (two(2) == 0 ? " o clock" : ""));
        if (matches(patterns_.isoDate, position_) && two(4) >= 1 && two(4) <= 31 &&
            !monthName(two(3)).empty())
            return sayMatch(date(part(4), two(3), part(1)));
        if (!matches(patterns_.date, position_) || two(1) < 1 || two(1) > 31 || monthName(two(3)).empty())
            return false;
        return sayMatch(date(part(1), two(3), part(4)));
    }

    [[nodiscard]] std::string timeOfDay(std::string hour, const std::string& minute) const
    {
        if (hour.size() == 2 && hour[0] == '0')
            hour.erase(0, 1);
        std::string said = numbers_.cardinal(hour);
        if (!minute.empty() && minute != "00")
            said += minute[0] == '0' ? " oh " + numbers_.digits(minute.substr(1))
                                     : " " + numbers_.cardinal(minute);
        return said;
    }

    [[nodiscard]] std::string date(const std::string& day, int month, const std::string& year) const
    {
        return numbers_.ordinal(day) + " of " + std::string(monthName(month)) + " " + numbers_.year(year);
    }

    bool ordinalOrDecade()
    {
        if (matches(patterns_.ordinal, position_))
            return sayMatch(numbers_.ordinal(part(1)));
        if (!matches(patterns_.decade, position_))
            return false;
        std::string said = part(1).size() == 4 ? numbers_.year(part(1)) : numbers_.cardinal(part(1));
        if (said.ends_with('y'))
            said.replace(said.size() - 1, 1, "ie");
        return sayMatch(said + "s");
    }

    void plainNumber()
    {
        matches(patterns_.plain, position_);
        const std::size_t end = matchEnd();
        const std::string digits = grouped(part(1));
        const std::string rest = part(2);
        const bool isPlain = digits.size() == part(1).size() && rest.empty();
        std::string said = isPlain && isYear(digits) ? numbers_.year(digits) : numbers_.cardinal(digits);
        if (!rest.empty())
            said += " point " + numbers_.digits(rest);
        say(said, end);
        pass(end);
        previous_ = digits;
        units(digits == "1" && rest.empty());
        if (at(position_) == '/' && isDigit(at(position_ + 1))) {
            say("by", position_ + 1);
            pass(position_ + 1);
        }
    }

    void units(bool one)
    {
        while (matches(patterns_.unit, position_)) {
            const std::string unit = unitOfMeasure(part(1), one);
            if (unit.empty())
                return;
            sayMatch(unit);
            previous_ = unit;
        }
    }

    [[nodiscard]] bool isYear(const std::string& digits) const
    {
        if (digits.size() != 4 || digits < "1100" || digits > "2099" || digits.starts_with("200"))
            return false;
        constexpr std::array<std::string_view, 16> before = {
            "in", "of",     "year",  "since",  "by",    "until",   "till",   "from",
            "to", "before", "after", "around", "about", "between", "during", "circa"};
        return !digits.ends_with("00") || std::ranges::find(before, lower(previous_)) != before.end();
    }

    /// A row of underscores or dots: the blank of a question, or an end.
    void row(char c)
    {
        const std::size_t end = std::min(text_.find_first_not_of(c, position_), text_.size());
        const std::size_t length = end - position_;
        const char next = at(end);
        const bool afterLetter = attached_ && previous_.size() == 1;
        if ((c == '_' && length > 1) || (length > 2 && !attached_)) {
            say("blank", end);
        } else if (c == '.' && length == 1 && !attached_ && isDigit(next)) {
            const std::size_t digits = std::min(text_.find_first_not_of("0123456789", end), text_.size());
            say("point " + numbers_.digits(text_.substr(end, digits - end)), digits);
            return pass(digits);
        } else if (c == '.' && length == 1 && attached_ && isLetter(next)) {
            if (!isUpper(next) && !afterLetter && isLetter(at(end + 1)))
                say("dot", end); // as in a web address, not in U.S.A.
            else if (isUpper(next) && !afterLetter)
                return pass(end, Pause::End);
        } else if (c == '.') {
            return pass(end, length > 2 ? Pause::Short : Pause::End);
        }
        pass(end);
    }

    void sign(char c)
    {
        const std::size_t end = position_ + 1;
        const bool digitNext = isDigit(at(afterBlanks(end)));
        const bool digitBefore = position_ > 0 && isDigit(text_[position_ - 1]);
        const bool yearBefore = previous_.size() == 4 && isDigit(previous_[0]);
        if (c == '&' || c == '@' || c == '+' || c == '=' || c == '%') {
            say(c == '&'   ? "and"
                : c == '@' ? "at"
                : c == '+' ? "plus"
                : c == '=' ? "equals"
                           : "percent",
                end);
        } else if (digitNext && !words_.empty() && (c == '<' || c == '*' || (c == '>' && !afterOption()))) {
            say(c == '<' ? "less than" : c == '>' ? "greater than" : "times", end);
        } else if (c == ':' && digitBefore && isDigit(at(end))) {
            say("to", end);
        } else if (c == '-' && isDigit(at(end)) && (digitBefore || !attached_)) {
            say(digitBefore ? "to" : "minus", end);
        } else if (c == '-' && digitNext && !attached_ && !previous_.empty() && isDigit(previous_[0])) {
            say(yearBefore ? "to" : "minus", end);
        } else {
            return pass(c == ',' ? std::min(text_.find_first_not_of(',', end), text_.size()) : end,
                        pauseOf(c));
        }
        pass(end);
    }

    /// The last word is the letter of an option.
    [[nodiscard]] bool afterOption() const
    {
        return attached_ && previous_.size() == 1 && previous_[0] >= 'A' && previous_[0] <= 'D';
    }

    /// Between the letter of an option and the option, or between two options?
    [[nodiscard]] Pause pauseOfComma()
    {
        const bool begun = words_.size() < 2 || words_[words_.size() - 2].pause > Pause::Short;
        if (at(position_ + 1) == ',' || (!(afterOption() && begun) && matches(patterns_.letter, position_)))
            return Pause::Long;
        return Pause::Short;
    }

    [[nodiscard]] Pause pauseOf(char c)
    {
        switch (c) {
        case '?':
            return Pause::Question;
        case '!':
            return Pause::End;
        case '-':
            return attached_ ? Pause::None : Pause::Short;
        case '>':
            return afterOption() ? Pause::Short : Pause::None;
        case ',':
            return pauseOfComma();
        case ':':
        case ';':
        case '(':
        case ')':
        case '[':
        case ']':
            return Pause::Short;
        default:
            return Pause::None;
        }
    }

    const FoldedText& folded_;
    std::string_view text_;
    QString line_; ///< the same, for the patterns
    const Patterns& patterns_;
    const NumberSpeller& numbers_;
    QRegularExpressionMatch match_;
    std::size_t position_ = 0;
    std::size_t shoutEnd_ = 0;
    std::vector<SpokenWord> words_;
    std::string previous_;  ///< word or number as it is written, none behind a pause
    bool attached_ = false; ///< nothing but marks has come since the last word
};

} // namespace

struct TextReader::Knowledge
{
    TextFolder folder;
    NumberSpeller numbers;
    Patterns patterns;
};

TextReader::TextReader() : knowledge_(std::make_unique<Knowledge>()) {}
TextReader::~TextReader() = default;

std::vector<SpokenWord> TextReader::words(const QString& text)
{
    const FoldedText folded = knowledge_->folder.fold(text);
    std::vector<SpokenWord> words = Scanner(folded, knowledge_->patterns, knowledge_->numbers).run();
    if (!words.empty())
        words.back().end = text.size();
    return words;
}

} // namespace voice

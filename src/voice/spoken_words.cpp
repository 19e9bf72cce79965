#include "voice/spoken_words.h"

#include "voice/folded_text.h"
#include "voice/spoken_number.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace voice {

namespace {

constexpr std::size_t longestWord = 40;
constexpr std::size_t longestYear = 4; ///< digits that the voice itself reads well, as a year or a number

struct Spelling
{
    std::string_view written;
    std::string_view said;
};

/// What the voice would otherwise guess wrong, in lower case.
constexpr std::array spellings = {
    Spelling{"lakh", "lack"},         Spelling{"lakhs", "lacks"},      Spelling{"rs", "rupees"},
    Spelling{"hai", "hay"},           Spelling{"aapka", "aahpkaa"},    Spelling{"swagat", "swaahgut"},
    Spelling{"namaste", "nummustay"}, Spelling{"orvanta", "orvahnta"},
};

constexpr std::array unitsOfMeasure = {
    Spelling{"km", "kilometres"},  Spelling{"m", "metres"},     Spelling{"cm", "centimetres"},
    Spelling{"mm", "millimetres"}, Spelling{"kg", "kilograms"}, Spelling{"km/h", "kilometres an hour"},
};

constexpr std::array<std::string_view, 8> abbreviations = {"mr", "mrs", "ms", "dr", "st", "prof", "sr", "jr"};

constexpr std::array signsAloud = {Spelling{"%", "percent"}, Spelling{"&", "and"}, Spelling{"@", "at"},
                                   Spelling{"+", "plus"}, Spelling{"=", "equals"}};

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isUpper(char c)
{
    return c >= 'A' && c <= 'Z';
}

bool isLetter(char c)
{
    return isUpper(c) || (c >= 'a' && c <= 'z');
}

std::string lower(std::string_view word)
{
    std::string result(word);
    for (char& c : result)
        c = isUpper(c) ? static_cast<char>(c - 'A' + 'a') : c;
    return result;
}

template <std::size_t size>
std::string_view lookUp(const std::array<Spelling, size>& table, std::string_view written)
{
    const auto found = std::ranges::find(table, written, &Spelling::written);
    return found == table.end() ? std::string_view() : found->said;
}

class Scanner
{
public:
    explicit Scanner(const QString& text) : folded_(foldedText(text)), text_(folded_.letters) {}

    std::vector<SpokenWord> run()
    {
        while (position_ < text_.size())
            step(text_[position_]);
        sayCurrency(position_);
        return std::move(words_);
    }

private:
    void step(char c)
    {
        if (isLetter(c)) {
            word();
        } else if (isDigit(c)) {
            number();
        } else if (c == ' ') {
            attached_ = false;
            ++position_;
        } else if (c == '#') {
            currency(text_[position_ + 1]);
        } else if (c == '_' || c == '.') {
            run(c);
        } else {
            sign(c);
        }
    }

    [[nodiscard]] char at(std::size_t place) const { return place < text_.size() ? text_[place] : ' '; }

    [[nodiscard]] std::size_t afterBlanks(std::size_t place) const
    {
        return std::min(text_.find_first_not_of(' ', place), text_.size());
    }

    /// Says `said`, which may be several words, for what ends before `end`.
    void say(std::string_view said, std::size_t end)
    {
        for (std::size_t start = 0; start < said.size();) {
            const std::size_t blank = std::min(said.find(' ', start), said.size());
            words_.push_back({std::string(said.substr(start, blank - start)), folded_.ends[end - 1]});
            start = blank + 1;
        }
        attached_ = true;
    }

    void sayCurrency(std::size_t end)
    {
        if (!currency_.empty())
            say(std::exchange(currency_, {}), end);
    }

    /// Goes on to `end`; a mark that hangs on the last word is shown with it.
    void pass(std::size_t end, Pause pause = Pause::None)
    {
        position_ = end;
        if (!words_.empty()) {
            words_.back().pause = std::max(words_.back().pause, pause);
            if (attached_)
                words_.back().end = folded_.ends[end - 1];
        }
    }

    void word()
    {
        std::size_t end = position_;
        while (isLetter(at(end)) || (at(end) == '\'' && end > position_ && isLetter(at(end + 1))))
            ++end;
        const std::string_view written = text_.substr(position_, end - position_);
        const std::string plain = lower(written);
        const bool measure = std::exchange(afterNumber_, false);
        const std::size_t dot = end + (at(end) == '.' ? 1 : 0);
        if (plain == "rs" && isDigit(at(afterBlanks(dot)))) {
            currency_ = "rupees";
            position_ = dot;
            return;
        }
        sayCurrency(position_);
        const std::string_view unit = measure ? lookUp(unitsOfMeasure, written) : std::string_view();
        const std::string_view spelling = unit.empty() ? lookUp(spellings, plain) : unit;
        say(spelling.empty() ? written.substr(0, longestWord) : spelling, end);
        const bool abbreviated = std::ranges::find(abbreviations, plain) != abbreviations.end() ||
                                 plain == "rs" ||
                                 (plain.size() == 1 && isUpper(written[0]) && isLetter(at(afterBlanks(dot))));
        pass(abbreviated ? dot : end);
    }

    /// Where the groups end that begin with the digits before `end`, as in 1,60,000.
    [[nodiscard]] std::size_t groupsEnd(std::size_t end) const
    {
        std::size_t whole = end;
        for (std::size_t place = end; at(place) == ',';) {
            const std::size_t start = place + 1;
            place = digitsEnd(start);
            const std::size_t length = place - start;
            if (length != 2 && length != 3)
                break;
            whole = length == 3 ? place : whole;
        }
        return whole;
    }

    [[nodiscard]] std::size_t digitsEnd(std::size_t place) const
    {
        while (isDigit(at(place)))
            ++place;
        return place;
    }

    void number()
    {
        const std::size_t start = position_;
        std::size_t end = digitsEnd(start);
        const std::size_t plainEnd = end;
        if (end - start <= 3)
            end = groupsEnd(end);
        std::string digits(text_.substr(start, end - start));
        std::erase(digits, ',');
        const bool decimal = at(end) == '.' && isDigit(at(end + 1));
        const std::size_t wholeEnd = decimal ? digitsEnd(end + 1) : end;
        const bool simple = end == plainEnd && !decimal && currency_.empty() &&
                            digits.size() <= longestYear && (digits[0] != '0' || digits.size() == 1);
        if (const std::size_t ordinal = suffixEnd(end); simple && ordinal > end) {
            say(text_.substr(start, ordinal - start), ordinal);
            return pass(ordinal);
        }
        if (simple) {
            say(digits, end);
        } else {
            sayAll(digits.size() > 1 && digits[0] == '0' ? digitWords(digits) : cardinalWords(digits),
                   wholeEnd);
        }
        if (decimal) {
            say("point", wholeEnd);
            sayAll(digitWords(text_.substr(end + 1, wholeEnd - end - 1)), wholeEnd);
        }
        if (digits == "1" && !decimal && currency_.ends_with('s'))
            currency_.remove_suffix(1);
        sayCurrency(wholeEnd);
        pass(wholeEnd);
        afterNumber_ = true;
    }

    void sayAll(const std::vector<std::string>& said, std::size_t end)
    {
        for (const std::string& one : said)
            say(one, end);
    }

    /// Behind the ending of 29th or 1830s, or `end`.
    [[nodiscard]] std::size_t suffixEnd(std::size_t end) const
    {
        for (const std::string_view suffix : {"st", "nd", "rd", "th", "s"})
            if (text_.substr(end).starts_with(suffix) && !isLetter(at(end + suffix.size())))
                return end + suffix.size();
        return end;
    }

    void currency(char code)
    {
        const std::size_t end = position_ + 2;
        constexpr std::array names = {Spelling{"R", "rupees"}, Spelling{"D", "dollars"},
                                      Spelling{"E", "euros"}, Spelling{"L", "pounds"}};
        sayCurrency(position_);
        const std::string_view name = lookUp(names, std::string_view(&code, 1));
        if (isDigit(at(afterBlanks(end))))
            currency_ = name;
        else
            say(name, end);
        position_ = end;
    }

    /// A row of underscores or dots: the blank of a question, or an end.
    void run(char c)
    {
        const std::size_t end = std::min(text_.find_first_not_of(c, position_), text_.size());
        const std::size_t length = end - position_;
        const char next = at(end);
        if ((c == '_' && length > 1) || (length > 2 && !attached_)) {
            sayCurrency(position_);
            say("blank", end);
            return pass(end);
        }
        if (c == '_')
            return pass(end);
        if (length == 1 && !attached_ && isDigit(next)) {
            say("point", end);
        } else if (length == 1 && attached_ && isLetter(next) && !isUpper(next)) {
            const bool letters = words_.back().text.size() == 1 || !isLetter(at(end + 1)); // as in e.g.
            say(letters ? "" : "dot", end);
        } else if (length == 1 && attached_ && isLetter(next) && words_.back().text.size() == 1) {
            return pass(end); // as in U.S.A.
        } else {
            return pass(end, length > 2 ? Pause::Short : Pause::End);
        }
        pass(end);
    }

    void sign(char c)
    {
        const std::size_t end = position_ + 1;
        const bool digitNext = isDigit(at(afterBlanks(end)));
        const bool digitBefore = position_ > 0 && isDigit(text_[position_ - 1]);
        const std::string_view aloud = lookUp(signsAloud, std::string_view(&c, 1));
        if (!aloud.empty()) {
            sayCurrency(position_);
            say(aloud, end);
        } else if (digitNext && !words_.empty() && (c == '<' || c == '>' || c == '*')) {
            say(c == '<' ? "less than" : c == '>' ? "greater than" : "times", end);
        } else if (c == '/' && digitBefore && isDigit(at(end))) {
            say("by", end);
        } else if (c == '-' && isDigit(at(end)) && (digitBefore || !attached_)) {
            say(digitBefore ? "to" : "minus", end);
        } else {
            return pass(end, pauseOf(c, digitBefore && digitNext));
        }
        pass(end);
    }

    [[nodiscard]] Pause pauseOf(char c, bool inNumber) const
    {
        switch (c) {
        case '?':
            return Pause::Question;
        case '!':
            return Pause::End;
        case ':':
            return inNumber ? Pause::None : Pause::Short;
        case '-':
            return attached_ ? Pause::None : Pause::Short;
        case ',':
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

    FoldedText folded_;
    std::string_view text_;
    std::size_t position_ = 0;
    std::vector<SpokenWord> words_;
    std::string_view currency_; ///< to be said behind the number that follows
    bool attached_ = false;     ///< nothing but marks has come since the last word
    bool afterNumber_ = false;
};

} // namespace

std::vector<SpokenWord> spokenWords(const QString& text)
{
    std::vector<SpokenWord> words = Scanner(text).run();
    if (!words.empty())
        words.back().end = text.size();
    return words;
}

} // namespace voice

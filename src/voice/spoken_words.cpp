#include "voice/spoken_words.h"

#include "voice/folded_text.h"
#include "voice/number_words.h"
#include "voice/respelling.h"
#include "voice/spelling.h"

#include <QLocale>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <sstream>
#include <utility>

namespace voice {

namespace {

constexpr std::size_t longestWord = 40;

constexpr const char* numeral = R"((\d{1,3}(?:,\d{2,3}){0,5},\d{3}(?!\d)|\d+)(?:\.(\d+))?)";
constexpr const char* minute = R"((?:00|0(\d)|([1-5]\d)))";
constexpr const char* month = R"((0?[1-9]|1[0-2]))";
constexpr const char* day = R"((0?[1-9]|[12]\d|3[01]))";

/// What is more than a word, a number or a sign, where it begins with one.
struct Patterns
{
    QRegularExpression money{
        QString(R"((?|#([RDEL])|US ?#(D)|(R)[Ss]\b\.?|IN(R)\b|(R)e\b\.?)\s*)") + numeral +
        R"((?:\s*(hundred|thousand|lakhs?|lacs?|crores?|cr|[mbtr]+illion|mn|bn)\b\.?)?(?:/-)?)"};
    QRegularExpression hour{QString(R"((?|0?(\d)|(1[0-2]))(?:[:.])") + minute +
                            R"()?\s*(?:([Aa])|[Pp])\.?[Mm]\b\.?)"};
    QRegularExpression clock{QString(R"((?|0?(\d)|(1\d|2[0-4])):)") + minute +
                             R"((?![\d:])(?:\s*(?:hrs|hours)\b\.?)?)"};
    QRegularExpression date{QString(day) + R"(([/.-]))" + month + R"(\2(\d{4}|\d\d)(?![\d/-]))"};
    QRegularExpression isoDate{R"((\d{4})(-)(0[1-9]|1[0-2])-(0[1-9]|[12]\d|3[01])(?![\d-]))"};
    QRegularExpression ordinal{R"((\d{1,15})(?:st|nd|rd|th)\b)"};
    QRegularExpression decade{R"((\d{0,3}0)'?s\b)"};
    QRegularExpression number{numeral};
    QRegularExpression fraction{R"(\.(\d+))"};
    QRegularExpression unit{R"( ?(%|[A-Za-z]+(?:/[hs])?)(?![A-Za-z]))"};
    QRegularExpression abbreviation{R"(([A-Za-z]++)(?<=[a-z])(?!')(\.?))"};
    QRegularExpression formula{R"((?:[A-Z][a-z]?){1,4}\d{1,4}(?:[A-Z][a-z]?\d{0,4}){0,8}(?![A-Za-z\d]))"};
    QRegularExpression word{R"([A-Za-z]++(?:'[A-Za-z]++)*+)"};
    QRegularExpression foreign{word.pattern() + "[A-Za-z-]*+"};
    QRegularExpression initial{R"([A-Z]\. *([A-Za-z]+))"};
    QRegularExpression article{R"(A +[A-Za-z])"};
    QRegularExpression shout{R"([A-Z]{2,}(?: +[A-Z]+\b){3,60})"};
};

struct Currency
{
    std::string_view code, one, many, oneCoin, coins;
};
constexpr std::array currencies = {
    Currency{"R", "rupee", "rupees", "paisa", "paise"}, Currency{"D", "dollar", "dollars", "cent", "cents"},
    Currency{"E", "euro", "euros", "cent", "cents"}, Currency{"L", "pound", "pounds", "penny", "pence"}};

std::string lettersOf(std::string_view run)
{
    std::string letters;
    for (const char letter : run)
        letters += {' ', isUpper(letter) ? letter : static_cast<char>(letter - 'a' + 'A')};
    return letters;
}

std::string withoutCommas(std::string digits)
{
    std::erase(digits, ',');
    return digits;
}

/// Digits behind the point of a number; nothing for none.
std::string point(std::string_view fraction)
{
    return fraction.empty() ? std::string() : " point " + digitsOneByOne(fraction);
}

/// Puts one text in words, from left to right.
class Scanner
{
public:
    explicit Scanner(const FoldedText& folded)
        : folded_(folded), text_(folded.letters), line_(QString::fromLatin1(folded.letters))
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
        if (c == ' ') {
            attached_ = false;
            ++position_;
        } else if (!known(c)) {
            say({}, position_ + 1);
        }
    }

    /// Says what begins with `c`, if that has a meaning.
    bool known(char c)
    {
        if (isDigit(c))
            return time() || date() || rank() || decade() || number();
        if (isLetter(c) || c == '#')
            return money() || phrase(c) || abbreviation() || formula() || word();
        return fraction() || phrase(c);
    }

    [[nodiscard]] char at(std::size_t place) const { return place < text_.size() ? text_[place] : ' '; }

    bool matches(const QRegularExpression& pattern)
    {
        // Without the second option each match takes a look at the whole text.
        match_ = pattern.match(line_, static_cast<qsizetype>(position_), QRegularExpression::NormalMatch,
                               QRegularExpression::AnchorAtOffsetMatchOption |
                                   QRegularExpression::DontCheckSubjectStringMatchOption);
        return match_.hasMatch();
    }

    [[nodiscard]] std::string part(int index) const { return match_.captured(index).toStdString(); }
    [[nodiscard]] bool has(int index) const { return match_.capturedLength(index) > 0; }
    [[nodiscard]] std::size_t matchEnd() const { return match_.capturedEnd(); }

    /// Says `said`, which may be several words or none, and goes on to `end`; a mark that hangs on the last
    /// word is shown with it.
    void say(const std::string& said, std::size_t end, Pause pause = Pause::None)
    {
        std::istringstream all(said);
        for (std::string word; all >> word; attached_ = true)
            words_.push_back({word, folded_.ends[end - 1]});
        position_ = end;
        if (pause > Pause::None)
            previous_.clear();
        if (words_.empty())
            return;
        words_.back().pause = std::max(words_.back().pause, pause);
        if (attached_)
            words_.back().end = folded_.ends[end - 1];
    }

    bool sayMatch(const std::string& said, Pause pause = Pause::None)
    {
        say(said, matchEnd(), pause);
        return true;
    }

    // What a phrase may ask for:

    [[nodiscard]] bool attached() const { return attached_; }
    [[nodiscard]] bool loose() const { return !attached_; }
    [[nodiscard]] bool inWord() const { return attached_ && previous_.size() != 1; }
    [[nodiscard]] bool inText() const { return !words_.empty(); }
    [[nodiscard]] bool afterNumber() const
    {
        return !attached_ && !previous_.empty() && isDigit(previous_[0]);
    }
    [[nodiscard]] bool afterYear() const { return afterNumber() && previous_.size() == 4; }
    /// The last word is the letter of an option.
    [[nodiscard]] bool afterOption() const
    {
        return attached_ && previous_.size() == 1 && previous_[0] >= 'A' && previous_[0] <= 'D';
    }
    [[nodiscard]] bool compares() const { return inText() && !afterOption(); }
    /// Not between the letter of an option and the option.
    [[nodiscard]] bool betweenOptions() const
    {
        return !afterOption() || (words_.size() > 1 && words_[words_.size() - 2].pause <= Pause::Short);
    }

    struct Phrase
    {
        Phrase(const char* begins, const char* more, const char* meaning, Pause behind = Pause::None,
               bool (Scanner::*condition)() const = nullptr)
            : first(begins),
              pattern('[' + QRegularExpression::escape(begins) + ']' + more),
              said(meaning),
              pause(behind),
              when(condition)
        {
        }

        std::string_view first; ///< the characters it may begin with
        QRegularExpression pattern;
        std::string said;
        Pause pause;
        bool (Scanner::*when)() const;
    };

    bool phrase(char c)
    {
        using S = Scanner;
        using enum Pause;
        thread_local const std::array phrases = std::to_array<Phrase>({
            {"#", "R", "rupees"},
            {"#", "D", "dollars"},
            {"#", "E", "euros"},
            {"#", "L", "pounds"},
            {"Nn", R"(os?\. ?(?=\d))", "number"},
            {"a", R"(\.m\b\.?)", "A M"},
            {"p", R"(\.m\b\.?)", "P M"},
            {"e", R"(\.g\b\.?)", "for example"},
            {"i", R"(\.e\b\.?)", "that is"},
            {"&", "", "and"},
            {"@", "", "at"},
            {"+", "", "plus"},
            {"=", "", "equals"},
            {"%", "", "percent"},
            {"<", R"((?= *\d))", "less than", None, &S::inText},
            {">", R"((?= *\d))", "greater than", None, &S::compares},
            {"*", R"((?= *\d))", "times", None, &S::inText},
            {":-", R"((?<=\d.)(?=\d))", "to"},
            {"-", R"((?=\d))", "minus", None, &S::loose},
            {"-", R"((?= *\d))", "to", None, &S::afterYear},
            {"-", R"((?= *\d))", "minus", None, &S::afterNumber},
            {"-", "", "", Short, &S::loose},
            {">", "", "", Short, &S::afterOption},
            {":;()[]", "", "", Short},
            {"!", "", "", End},
            {"?", "", "", Question},
            {",", ",+", "", Long},
            {",", R"((?= *(?:[A-D] *,|[A-D]$)))", "", Long, &S::betweenOptions},
            {",", "", "", Short},
            {"_", "{2,}", "blank"},
            {".", "{3,}", "blank", None, &S::loose},
            {".", "(?=[a-z][A-Za-z])", "dot", None, &S::inWord}, // as in a web address, not in U.S.A.
            {".", "(?=[A-Z])", "", End, &S::inWord},
            {".", "(?=[A-Za-z])", "", None, &S::attached},
            {".", "{3,}", "", Short},
            {".", "+", "", End},
        });
        for (const auto& [first, pattern, said, pause, when] : phrases)
            if (first.find(c) != std::string_view::npos && (!when || (this->*when)()) && matches(pattern))
                return sayMatch(said, pause);
        return false;
    }

    bool word()
    {
        matches(patterns().word);
        const std::string written = part(0);
        const std::size_t end = matchEnd();
        if (written.starts_with(foreignMark))
            return foreignWord();
        // A name goes on behind its initial, with no word that begins a sentence.
        const bool initial = at(end) == '.' && matches(patterns().initial) && !is(lower(part(1)), "function");
        say(meaningOf(written, at(end), initial), initial ? end + 1 : end);
        previous_ = written;
        return true;
    }

    std::string meaningOf(const std::string& written, char next, bool initial)
    {
        const bool capitals = std::ranges::all_of(written, isUpper);
        if (const int value = initial ? 0 : romanNumeral(previous_, written)) {
            const std::string digits = std::to_string(value);
            return is(lower(previous_), "counted") ? cardinal(digits) : "the " + ordinal(digits);
        }
        if (const int count = capitals ? countingNumeral(written) : 0)
            return cardinal(std::to_string(count));
        if (written == "A" && previous_.empty() && matches(patterns().article))
            return "a";
        if (previous_ == "degrees" && (written == "C" || written == "F"))
            return written == "C" ? "Celsius" : "Fahrenheit";
        if (written == "x" && isDigit(next) && position_ > 0 && isDigit(text_[position_ - 1]))
            return "by";
        if (capitals && !shouted() && isSpelled(written))
            return lettersOf(written);
        const std::string unit =
            written.size() > 1 && !capitals ? unitOfMeasure(written, false) : std::string();
        return unit.ends_with("metres") || unit.ends_with("grams") ? unit : written.substr(0, longestWord);
    }

    bool foreignWord()
    {
        matches(patterns().foreign);
        std::string name = part(0);
        const std::string sounds = soundsOfRespelling(std::string_view(name).substr(foreignMark.size()));
        std::erase(name, '-');
        if (!sounds.empty()) {
            words_.push_back({name, 0, Pause::None, sounds});
            attached_ = true;
        }
        return sayMatch({});
    }

    /// All around the word is in capitals.
    bool shouted()
    {
        if (position_ >= shoutEnd_ && matches(patterns().shout))
            shoutEnd_ = matchEnd();
        return position_ < shoutEnd_;
    }

    bool abbreviation()
    {
        if (!matches(patterns().abbreviation))
            return false;
        const std::string written = part(1);
        const Abbreviation found = abbreviationOf(written, has(2));
        if (found.said.empty())
            return false;
        say(std::string(found.said), found.stop ? matchEnd() : position_ + written.size());
        previous_ = written;
        return true;
    }

    /// CO2, H2SO4, G20: letters and numbers.
    bool formula()
    {
        if (!matches(patterns().formula))
            return false;
        for (const std::size_t end = matchEnd(); position_ < end;) {
            const bool digits = isDigit(text_[position_]);
            std::size_t next = position_;
            while (next < end && isDigit(text_[next]) == digits)
                ++next;
            const std::string_view run = text_.substr(position_, next - position_);
            say(digits ? cardinal(run) : lettersOf(run), next);
        }
        return true;
    }

    bool money()
    {
        if (!matches(patterns().money))
            return false;
        const Currency& currency = *std::ranges::find(currencies, part(1), &Currency::code);
        const std::string digits = withoutCommas(part(2));
        const std::string rest = part(3);
        const std::string scale = part(4);
        const bool coins = rest.size() == 2 && scale.empty();
        std::string said = cardinal(digits) + (coins ? std::string() : point(rest));
        if (!scale.empty())
            said += " " + (scale.size() == 2 ? unitOfMeasure(scale, true) : scale);
        const bool one = digits == "1" && scale.empty() && (rest.empty() || coins);
        said += " " + std::string(one ? currency.one : currency.many);
        if (coins && rest != "00")
            said += " " + cardinal(std::to_string(std::stoi(rest))) + " " +
                    std::string(rest == "01" ? currency.oneCoin : currency.coins);
        return sayMatch(said);
    }

    bool time()
    {
        const bool half = matches(patterns().hour); // of a day
        if (!half && !matches(patterns().clock))
            return false;
        std::string said = cardinal(part(1));
        if (has(2))
            said += " oh " + cardinal(part(2));
        else if (has(3))
            said += " " + cardinal(part(3));
        else if (!half)
            said += " o clock";
        if (half)
            said += has(4) ? " A M" : " P M";
        return sayMatch(said);
    }

    bool date()
    {
        const bool iso = matches(patterns().isoDate);
        if (!iso && !matches(patterns().date))
            return false;
        const QString name = QLocale::c().monthName(match_.captured(3).toInt());
        return sayMatch(ordinal(part(iso ? 4 : 1)) + " of " + name.toStdString() + " " +
                        year(part(iso ? 1 : 4)));
    }

    bool rank() { return matches(patterns().ordinal) && sayMatch(ordinal(part(1))); }

    bool decade()
    {
        if (!matches(patterns().decade))
            return false;
        std::string said = part(1).size() == 4 ? year(part(1)) : cardinal(part(1));
        if (said.ends_with('y'))
            said.replace(said.size() - 1, 1, "ie");
        return sayMatch(said + "s");
    }

    bool number()
    {
        matches(patterns().number);
        const std::string digits = withoutCommas(part(1));
        const std::string rest = part(2);
        const bool plain = digits.size() == part(1).size() && rest.empty();
        sayMatch(plain && isYear(digits) ? year(digits) : cardinal(digits) + point(rest));
        previous_ = digits;
        units(digits == "1" && rest.empty());
        if (at(position_) == '/' && isDigit(at(position_ + 1)))
            say("by", position_ + 1);
        return true;
    }

    bool fraction() { return !attached_ && matches(patterns().fraction) && sayMatch(point(part(1))); }

    void units(bool one)
    {
        while (matches(patterns().unit)) {
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
        return !digits.ends_with("00") || is(lower(previous_), "year");
    }

    static const Patterns& patterns()
    {
        thread_local const Patterns patterns;
        return patterns;
    }

    const FoldedText& folded_;
    std::string_view text_;
    QString line_; ///< the same, for the patterns
    QRegularExpressionMatch match_;
    std::size_t position_ = 0;
    std::size_t shoutEnd_ = 0;
    std::vector<SpokenWord> words_;
    std::string previous_;  ///< word or number as it is written, none behind a pause
    bool attached_ = false; ///< nothing but marks has come since the last word
};

} // namespace

std::string_view markOf(Pause pause)
{
    constexpr std::array<std::string_view, 5> marks = {"", ",", ",,", ".", "?"};
    return marks.at(static_cast<std::size_t>(pause));
}

std::vector<SpokenWord> spokenWords(const QString& text)
{
    const FoldedText folded = fold(text);
    std::vector<SpokenWord> words = Scanner(folded).run();
    if (!words.empty())
        words.back().end = text.size();
    return words;
}

} // namespace voice

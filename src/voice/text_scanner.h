#pragma once

#include "voice/folded_text.h"
#include "voice/number_speller.h"
#include "voice/spelling.h"
#include "voice/spoken_word.h"

#include <QRegularExpression>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace voice {

inline constexpr const char* number = R"((\d{1,3}(?:,\d{2,3}){0,5},\d{3}(?!\d)|\d+))";
inline constexpr const char* decimal = R"((?:\.(\d+))?)";

/// What is more than a number, where it begins with one.
struct Patterns
{
    QRegularExpression money{
        QString(R"((#[RDEL]|US ?#D|R[Ss]\b\.?|INR\b|Re\b\.?)\s*)") + number + decimal +
        R"((?:\s*(hundred|thousand|lakhs?|lacs?|crores?|cr|[mbtr]+illion|mn|bn)\b\.?)?(?:/-)?)"};
    QRegularExpression hour{R"((\d{1,2})(?:[:.](\d\d))?\s*([AaPp])\.?[Mm]\b\.?)"};
    QRegularExpression clock{R"((\d{1,2}):(\d\d)(?![\d:])(?:\s*(?:hrs|hours)\b\.?)?)"};
    QRegularExpression date{R"((\d{1,2})([/.-])(\d{1,2})\2(\d{4}|\d\d)(?![\d/-]))"};
    QRegularExpression isoDate{R"((\d{4})(-)(\d\d)-(\d\d)(?![\d-]))"};
    QRegularExpression ordinal{R"((\d{1,15})(?:st|nd|rd|th)\b)"};
    QRegularExpression decade{R"((\d{0,3}0)'?s\b)"};
    QRegularExpression plain{QString(number) + decimal};
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
    Scanner(const FoldedText& folded, const Patterns& patterns, NumberSpeller& numbers)
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
    void step(char c);

    [[nodiscard]] char at(std::size_t place) const { return place < text_.size() ? text_[place] : ' '; }

    [[nodiscard]] std::size_t afterBlanks(std::size_t place) const
    {
        return std::min(text_.find_first_not_of(' ', place), text_.size());
    }

    bool matches(const QRegularExpression& pattern, std::size_t place);

    [[nodiscard]] std::string part(int index) const { return match_.captured(index).toStdString(); }
    [[nodiscard]] std::size_t matchEnd() const { return match_.capturedEnd(); }

    /// Says `said`, which may be several words, for what ends before `end`.
    void say(std::string_view said, std::size_t end);

    /// Goes on to `end`; a mark that hangs on the last word is shown with it.
    void pass(std::size_t end, Pause pause = Pause::None);

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

    void word();

    void foreignWord(std::size_t end);

    /// All around the word is in capitals.
    bool shouted()
    {
        if (position_ >= shoutEnd_ && matches(patterns_.shout, position_))
            shoutEnd_ = matchEnd();
        return position_ < shoutEnd_;
    }

    /// A name goes on behind its initial, with no word that begins a sentence.
    [[nodiscard]] bool continues(std::size_t place) const;

    bool abbreviated();

    /// CO2, H2SO4, G20: letters and numbers.
    bool formula();

    bool money();

    void lonelyCurrency();

    [[nodiscard]] static std::string grouped(std::string digits)
    {
        std::erase(digits, ',');
        return digits;
    }

    bool dateOrTime();

    [[nodiscard]] std::string timeOfDay(std::string hour, const std::string& minute) const;

    [[nodiscard]] std::string date(const std::string& day, int month, const std::string& year) const
    {
        return numbers_.ordinal(day) + " of " + std::string(monthName(month)) + " " + numbers_.year(year);
    }

    bool ordinalOrDecade();

    void plainNumber();

    void units(bool one);

    [[nodiscard]] bool isYear(const std::string& digits) const;

    /// A row of underscores or dots: the blank of a question, or an end.
    void row(char c);

    void sign(char c);

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

    [[nodiscard]] Pause pauseOf(char c);

    const FoldedText& folded_;
    std::string_view text_;
    QString line_; ///< the same, for the patterns
    const Patterns& patterns_;
    NumberSpeller& numbers_;
    QRegularExpressionMatch match_;
    std::size_t position_ = 0;
    std::size_t shoutEnd_ = 0;
    std::vector<SpokenWord> words_;
    std::string previous_;  ///< word or number as it is written, none behind a pause
    bool attached_ = false; ///< nothing but marks has come since the last word
};

} // namespace voice

#include "voice/text_scanner.h"

#include "voice/respelling.h"

#include <utility>

namespace voice {

namespace {

constexpr std::size_t longestWord = 40;

} // namespace

void Scanner::step(char c)
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

bool Scanner::matches(const QRegularExpression& pattern, std::size_t place)
{
    // Without the second option each match takes a look at the whole text.
    match_ = pattern.match(line_, place, QRegularExpression::NormalMatch,
                           QRegularExpression::AnchorAtOffsetMatchOption |
                               QRegularExpression::DontCheckSubjectStringMatchOption);
    return match_.hasMatch();
}

void Scanner::say(std::string_view said, std::size_t end)
{
    for (std::size_t start = 0; start < said.size();) {
        const std::size_t blank = std::min(said.find(' ', start), said.size());
        if (blank > start)
            words_.push_back({std::string(said.substr(start, blank - start)), folded_.ends[end - 1]});
        start = blank + 1;
    }
    attached_ = true;
}

void Scanner::pass(std::size_t end, Pause pause)
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

void Scanner::word()
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

void Scanner::foreignWord(std::size_t end)
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

bool Scanner::continues(std::size_t place) const
{
    const std::size_t start = afterBlanks(place);
    std::size_t end = start;
    while (isLetter(at(end)))
        ++end;
    return end > start && !isFunctionWord(text_.substr(start, end - start));
}

bool Scanner::abbreviated()
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

bool Scanner::formula()
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

void Scanner::row(char c)
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

void Scanner::sign(char c)
{
    const std::size_t end = position_ + 1;
    const bool digitNext = isDigit(at(afterBlanks(end)));
    const bool digitBefore = position_ > 0 && isDigit(text_[position_ - 1]);
    const bool yearBefore = previous_.size() == 4 && isDigit(previous_[0]);
    if (c == '&' || c == '@' || c == '+' || c == '=' || c == '%')
        say(c == '&' ? "and" : c == '@' ? "at" : c == '+' ? "plus" : c == '=' ? "equals" : "percent", end);
    else if (digitNext && !words_.empty() && (c == '<' || c == '*' || (c == '>' && !afterOption())))
        say(c == '<' ? "less than" : c == '>' ? "greater than" : "times", end);
    else if (c == ':' && digitBefore && isDigit(at(end)))
        say("to", end);
    else if (c == '-' && isDigit(at(end)) && (digitBefore || !attached_))
        say(digitBefore ? "to" : "minus", end);
    else if (c == '-' && digitNext && !attached_ && !previous_.empty() && isDigit(previous_[0]))
        say(yearBefore ? "to" : "minus", end);
    else
        return pass(c == ',' ? std::min(text_.find_first_not_of(',', end), text_.size()) : end, pauseOf(c));
    pass(end);
}

Pause Scanner::pauseOf(char c)
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

} // namespace voice

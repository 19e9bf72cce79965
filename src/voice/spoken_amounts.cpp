#include "voice/text_scanner.h"

#include <array>

namespace voice {

bool Scanner::money()
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

void Scanner::lonelyCurrency()
{
    const char code = at(position_ + 1);
    say(code == 'R' ? "rupees" : code == 'D' ? "dollars" : code == 'E' ? "euros" : "pounds", position_ + 2);
    pass(position_ + 2);
}

bool Scanner::dateOrTime()
{
    const auto two = [this](int index) { return match_.captured(index).toInt(); };
    if (matches(patterns_.hour, position_) && two(1) <= 12 && two(2) < 60)
        return sayMatch(timeOfDay(part(1), part(2)) + (part(3) == "a" || part(3) == "A" ? " A M" : " P M"));
    if (matches(patterns_.clock, position_) && two(1) <= 24 && two(2) < 60)
        return sayMatch(timeOfDay(part(1), part(2)) + (two(2) == 0 ? " o clock" : ""));
    if (matches(patterns_.isoDate, position_) && two(4) >= 1 && two(4) <= 31 && !monthName(two(3)).empty())
        return sayMatch(date(part(4), two(3), part(1)));
    if (!matches(patterns_.date, position_) || two(1) < 1 || two(1) > 31 || monthName(two(3)).empty())
        return false;
    return sayMatch(date(part(1), two(3), part(4)));
}

std::string Scanner::timeOfDay(std::string hour, const std::string& minute) const
{
    if (hour.size() == 2 && hour[0] == '0')
        hour.erase(0, 1);
    std::string said = numbers_.cardinal(hour);
    if (!minute.empty() && minute != "00")
        said +=
            minute[0] == '0' ? " oh " + numbers_.digits(minute.substr(1)) : " " + numbers_.cardinal(minute);
    return said;
}

bool Scanner::ordinalOrDecade()
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

void Scanner::plainNumber()
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

void Scanner::units(bool one)
{
    while (matches(patterns_.unit, position_)) {
        const std::string unit = unitOfMeasure(part(1), one);
        if (unit.empty())
            return;
        sayMatch(unit);
        previous_ = unit;
    }
}

bool Scanner::isYear(const std::string& digits) const
{
    if (digits.size() != 4 || digits < "1100" || digits > "2099" || digits.starts_with("200"))
        return false;
    constexpr std::array<std::string_view, 16> before = {
        "in", "of",     "year",  "since",  "by",    "until",   "till",   "from",
        "to", "before", "after", "around", "about", "between", "during", "circa"};
    return !digits.ends_with("00") || std::ranges::find(before, lower(previous_)) != before.end();
}

} // namespace voice

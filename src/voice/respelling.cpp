#include "voice/respelling.h"

#include "tables.h"

#include <algorithm>
#include <array>
#include <vector>

namespace voice {

namespace {

struct Sign
{
    std::string_view letters;
    std::string_view sounds;
};

/// Two letters come before one.
constexpr std::array signs = {
    Sign{"aa", "aa"}, Sign{"ae", "ae"}, Sign{"ai", "ay"}, Sign{"au", "aw"}, Sign{"aw", "ao"},
    Sign{"ay", "ey"}, Sign{"ee", "iy"}, Sign{"er", "er"}, Sign{"oo", "uw"}, Sign{"oy", "oy"},
    Sign{"ch", "ch"}, Sign{"dh", "dh"}, Sign{"ng", "ng"}, Sign{"sh", "sh"}, Sign{"th", "th"},
    Sign{"zh", "zh"}, Sign{"a", "ah"},  Sign{"b", "b"},   Sign{"c", "k"},   Sign{"d", "d"},
    Sign{"e", "eh"},  Sign{"f", "f"},   Sign{"g", "g"},   Sign{"h", "hh"},  Sign{"i", "ih"},
    Sign{"j", "jh"},  Sign{"k", "k"},   Sign{"l", "l"},   Sign{"m", "m"},   Sign{"n", "n"},
    Sign{"o", "ow"},  Sign{"p", "p"},   Sign{"q", "k"},   Sign{"r", "r"},   Sign{"s", "s"},
    Sign{"t", "t"},   Sign{"u", "uh"},  Sign{"v", "v"},   Sign{"w", "w"},   Sign{"x", "k s"},
    Sign{"y", "y"},   Sign{"z", "z"},
};

constexpr std::string_view vowels = "aeiou";

bool isVowel(std::string_view sound)
{
    return vowels.find(sound[0]) != std::string_view::npos;
}

bool isLong(std::string_view sound)
{
    return isVowel(sound) && sound != "ah" && sound != "ih" && sound != "uh" && sound != "eh";
}

/// The y of "aya" and the r of "era" belong to the vowel behind them.
bool isOpen(std::string_view letters, std::string_view rest)
{
    const bool glides = letters == "ay" || letters == "aw" || letters == "er" || letters == "oy";
    const std::size_t next = rest.starts_with('\'') ? 1 : 0;
    return glides && next < rest.size() && vowels.find(rest[next]) != std::string_view::npos;
}

const Sign* firstSign(std::string_view respelling)
{
    for (const Sign& sign : signs)
        if (respelling.starts_with(sign.letters) &&
            !isOpen(sign.letters, respelling.substr(sign.letters.size())))
            return &sign;
    return nullptr;
}

} // namespace

WordTable respellings()
{
    return wordTable(respellingTable);
}

std::string soundsOfRespelling(std::string_view respelling)
{
    std::vector<std::string_view> sounds;
    std::size_t marked = 0; ///< sounds before the mark of the stress
    while (!respelling.empty()) {
        const Sign* sign = firstSign(respelling);
        if (sign)
            sounds.push_back(sign->sounds);
        else if (respelling[0] == '\'')
            marked = sounds.size();
        respelling.remove_prefix(sign ? sign->letters.size() : 1);
    }
    auto stress = std::find_if(sounds.begin() + marked, sounds.end(), isVowel);
    if (marked == 0)
        stress = std::ranges::find_if(sounds, isLong);
    if (stress == sounds.end() || (marked == 0 && stress + 1 == sounds.end()))
        stress = std::ranges::find_if(sounds, isVowel);
    if (stress == sounds.end())
        return {};
    std::string result;
    for (auto sound = sounds.begin(); sound != sounds.end(); ++sound) {
        result += (result.empty() ? "" : " ") + std::string(*sound);
        if (isVowel(*sound))
            result += sound == stress ? '1' : '0';
    }
    return result;
}

} // namespace voice

#include "voice/folded_text.h"

#include <unicode/translit.h>
#include <unicode/uchar.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <array>
#include <memory>
#include <stdexcept>
#include <string_view>

namespace voice {

namespace {

constexpr std::size_t longestForeign = 30; ///< of the letters of a word

struct Folded
{
    UChar32 character;
    std::string_view letters;
};

/// What is said, or means something else than ICU writes for it.
constexpr std::array table = {
    Folded{U'#', " number "},
    Folded{U'$', "#D"},
    Folded{U'\u00a2', " cents "},
    Folded{U'\u00a3', "#L"},
    Folded{U'\u00b0', " degrees "},
    Folded{U'\u00b1', " plus or minus "},
    Folded{U'\u00b2', " squared "},
    Folded{U'\u00b3', " cubed "},
    Folded{U'\u00b5', "micro"},
    Folded{U'\u00bc', " a quarter "},
    Folded{U'\u00bd', " a half "},
    Folded{U'\u00be', " three quarters "},
    Folded{U'\u00d7', " times "},
    Folded{U'\u00f7', " divided by "},
    Folded{U'\u03c0', " pi "},
    Folded{U'\u0964', "."},
    Folded{U'\u0965', "."},
    Folded{U'\u2014', " - "},
    Folded{U'\u2015', " - "},
    Folded{U'\u2026', "..."},
    Folded{U'\u20ac', "#E"},
    Folded{U'\u20b9', "#R"},
    Folded{U'\u221a', " the square root of "},
    Folded{U'\u2260', " does not equal "},
    Folded{U'\u2264', " at most "},
    Folded{U'\u2265', " at least "},
};

/// Letters as ICU writes all scripts, to those that respellings.txt explains. The aspirated consonants of
/// India have no sound of their own here.
constexpr const char* soundRules = R"(
    :: Any-Latin; :: NFC; :: Lower;
    ṁ } [bpm] > m; [ṁ\u0303] > n;
    kṣ > ksh; jñ > gy; r̥ > ri;
    kh > k; gh > g; ch > ch; jh > j; ṭh > t; ḍh > d; th > t; dh > d; ph > f; bh > b; ṛh > r; sh > sh; zh > zh;
    ai > ai; au > au; ā > aa; ī > ee; ū > oo; [eéēê] > ay; [oóōô] > o;
    a } [^[:L:][:M:]] > aa; [aáàâäǎ] > a; [iíìǐ] > i; [uúùüǔ] > u;
    c > ch; ñ > ny; ṅ > ng; [śṣš] > sh; [yẏ] > '-y'; ž > zh; č > ch;
    :: NFD; [^a-z\\-] > ;
)";

std::unique_ptr<icu::Transliterator> transliterator(const char* rules)
{
    UParseError place;
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Transliterator> made(icu::Transliterator::createFromRules(
        u"voice", icu::UnicodeString::fromUTF8(rules), UTRANS_FORWARD, place, status));
    if (U_FAILURE(status))
        throw std::runtime_error("a script has no rules");
    return made;
}

std::string written(const icu::UnicodeString& text)
{
    std::string result;
    text.toUTF8String(result);
    return result;
}

bool isOfWord(UChar32 character)
{
    constexpr UChar32 joiner = 0x200d;
    constexpr UChar32 nonJoiner = 0x200c;
    const auto kinds = U_GET_GC_MASK(character);
    return (kinds & (U_GC_L_MASK | U_GC_M_MASK)) || character == joiner || character == nonJoiner;
}

UScriptCode scriptOf(UChar32 character)
{
    UErrorCode status = U_ZERO_ERROR;
    return uscript_getScript(character, &status);
}

bool isForeign(UChar32 character)
{
    const UScriptCode script = scriptOf(character);
    return (U_GET_GC_MASK(character) & U_GC_L_MASK) && script != USCRIPT_LATIN && script != USCRIPT_COMMON;
}

/// In these languages a word whose last consonant has no sign of a vowel ends with that consonant.
bool dropsLastVowel(UChar32 character)
{
    const UScriptCode script = scriptOf(character);
    return script == USCRIPT_DEVANAGARI || script == USCRIPT_BENGALI || script == USCRIPT_GUJARATI ||
           script == USCRIPT_GURMUKHI;
}

/// What ICU writes for a character.
std::string inAscii(UChar32 character)
{
    if (const int digit = u_charDigitValue(character); digit >= 0)
        return std::to_string(digit);
    if (u_isUWhiteSpace(character))
        return " ";
    thread_local const auto latin = transliterator(":: Any-Latin; :: NFKD; :: Latin-ASCII; [:^ASCII:] > ;");
    icu::UnicodeString text(character);
    latin->transliterate(text);
    std::string result = written(text);
    std::erase_if(result, [](char c) { return c == '#' || c == '$' || c < ' '; });
    return result;
}

std::string respelled(icu::UnicodeString word)
{
    thread_local const auto sounds = transliterator(soundRules);
    const bool consonant = u_charType(word.char32At(word.length() - 1)) == U_OTHER_LETTER;
    const bool drops = consonant && word.countChar32() > 1 && dropsLastVowel(word.char32At(0));
    sounds->transliterate(word);
    std::string result = written(word);
    if (drops && result.ends_with("aa"))
        result.resize(result.size() - 2);
    return result.substr(0, longestForeign);
}

} // namespace

FoldedText fold(const QString& text)
{
    FoldedText folded;
    const icu::UnicodeString characters(false, reinterpret_cast<const char16_t*>(text.utf16()),
                                        static_cast<int>(text.size()));
    for (int i = 0; i < characters.length();) {
        const UChar32 character = characters.char32At(i);
        int next = characters.moveIndex32(i, 1);
        const auto* const found = std::ranges::find(table, character, &Folded::character);
        if (found != table.end()) {
            folded.letters += found->letters;
        } else if (character < 0x80) {
            folded.letters += character < 0x20 || character == 0x7f ? ' ' : static_cast<char>(character);
        } else if (isForeign(character)) {
            while (next < characters.length() && isOfWord(characters.char32At(next)))
                next = characters.moveIndex32(next, 1);
            folded.letters += foreignMark;
            folded.letters += respelled(characters.tempSubStringBetween(i, next));
        } else {
            folded.letters += inAscii(character);
        }
        i = next;
        folded.ends.resize(folded.letters.size(), i);
    }
    return folded;
}

} // namespace voice

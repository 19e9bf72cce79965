#include "voice/folded_text.h"

#include <QStringView>

#include <algorithm>
#include <array>
#include <string_view>

namespace voice {

namespace {

struct Folded
{
    char32_t character;
    std::string_view letters;
};

/// What Unicode does not take apart by itself, in ascending order.
constexpr std::array table = {
    Folded{U'\u00a2', " cents "},
    Folded{U'\u00a3', "#L"},
    Folded{U'\u00ab', "\""},
    Folded{U'\u00b0', " degrees "},
    Folded{U'\u00b1', " plus or minus "},
    Folded{U'\u00b2', " squared "},
    Folded{U'\u00b3', " cubed "},
    Folded{U'\u00b5', "micro"},
    Folded{U'\u00bb', "\""},
    Folded{U'\u00bc', " a quarter "},
    Folded{U'\u00bd', " a half "},
    Folded{U'\u00be', " three quarters "},
    Folded{U'\u00c6', "AE"},
    Folded{U'\u00d0', "D"},
    Folded{U'\u00d7', " times "},
    Folded{U'\u00d8', "O"},
    Folded{U'\u00de', "Th"},
    Folded{U'\u00df', "ss"},
    Folded{U'\u00e6', "ae"},
    Folded{U'\u00f0', "d"},
    Folded{U'\u00f7', " divided by "},
    Folded{U'\u00f8', "o"},
    Folded{U'\u00fe', "th"},
    Folded{U'\u0110', "D"},
    Folded{U'\u0111', "d"},
    Folded{U'\u0131', "i"},
    Folded{U'\u0141', "L"},
    Folded{U'\u0142', "l"},
    Folded{U'\u0152', "OE"},
    Folded{U'\u0153', "oe"},
    Folded{U'\u03c0', " pi "},
    Folded{U'\u2010', "-"},
    Folded{U'\u2011', "-"},
    Folded{U'\u2012', "-"},
    Folded{U'\u2013', "-"},
    Folded{U'\u2014', " - "},
    Folded{U'\u2015', " - "},
    Folded{U'\u2018', "'"},
    Folded{U'\u2019', "'"},
    Folded{U'\u201a', "'"},
    Folded{U'\u201b', "'"},
    Folded{U'\u2044', "/"},
    Folded{U'\u20ac', "#E"},
    Folded{U'\u20b9', "#R"},
    Folded{U'\u2212', "-"},
    Folded{U'\u221a', " the square root of "},
    Folded{U'\u2260', " does not equal "},
    Folded{U'\u2264', " at most "},
    Folded{U'\u2265', " at least "},
};
static_assert(std::ranges::is_sorted(table, {}, &Folded::character));

/// An amount's sign as it is written in the table, where '#' cannot come from a text.
void appendSigned(std::string& letters, char character)
{
    switch (character) {
    case '#':
        letters += " number ";
        break;
    case '$':
        letters += "#D";
        break;
    default:
        letters += character;
    }
}

std::string foldedCharacter(char32_t character)
{
    std::string letters;
    if (character < 0x80) {
        const bool control = character < 0x20 || character == 0x7f;
        appendSigned(letters, control ? ' ' : static_cast<char>(character));
        return letters;
    }
    const Folded* const found = std::ranges::lower_bound(table, character, {}, &Folded::character);
    if (found != table.end() && found->character == character)
        return std::string(found->letters);
    if (QChar::isSpace(character))
        return " ";
    const QString parts = QString::fromUcs4(&character, 1).normalized(QString::NormalizationForm_KD);
    for (const QChar part : parts)
        if (part.unicode() >= 0x20 && part.unicode() < 0x7f)
            appendSigned(letters, part.toLatin1());
        else if (part.unicode() == 0x2044)
            letters += '/';
    return letters;
}

} // namespace

FoldedText foldedText(const QString& text)
{
    FoldedText folded;
    for (qsizetype i = 0; i < text.size();) {
        const bool pair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        const char32_t character = pair ? QChar::surrogateToUcs4(text[i], text[i + 1]) : text[i].unicode();
        i += pair ? 2 : 1;
        folded.letters += QChar::isSurrogate(character) ? std::string() : foldedCharacter(character);
        folded.ends.resize(folded.letters.size(), i);
    }
    return folded;
}

} // namespace voice

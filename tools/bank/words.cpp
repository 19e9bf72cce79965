#include "bank/words.h"

#include <QSet>

#include <algorithm>

namespace bank {
namespace {

bool isIgnored(const QString& word)
{
    static const QSet<QString> little = [] {
        const QString words = "a an the of in on at to for from by with and or as is are was "
                              "were be been being do does did has have "
                              "had which what who whom whose when where how many much this "
                              "that these those it its there called named "
                              "known following";
        const auto list = words.split(u' ');
        return QSet<QString>(list.begin(), list.end());
    }();
    return little.contains(word);
}

bool isAccent(QChar c)
{
    // Only those of the alphabets with upper and lower case; elsewhere marks make other words.
    return c.unicode() >= 0x300 && c.unicode() <= 0x36f;
}

bool isApostrophe(QChar c)
{
    return c == u'\'' || c == u'\u2019';
}

bool isPartOfWord(QChar c, const QString& word)
{
    return c.isLetterOrNumber() || c.isMark() || c.isSurrogate() ||
           (!word.isEmpty() && (c == u'+' || c == u'#'));
}

bool isSign(QChar c)
{
    return c.category() == QChar::Symbol_Math || QStringView(u"-*/^%").contains(c);
}

void put(std::vector<QString>& words, QString& word)
{
    if (!word.isEmpty() && !isIgnored(word))
        words.push_back(word);
    word.clear();
}

} // namespace

std::vector<QString> meaningfulWords(const QString& text)
{
    std::vector<QString> words;
    const QString plain = text.normalized(QString::NormalizationForm_KD).toCaseFolded();
    // Elsewhere a dash joins or parts words.
    const bool isArithmetic = std::any_of(plain.begin(), plain.end(), [](QChar c) { return c.isNumber(); });
    QString word;
    for (const QChar c : plain) {
        if (isAccent(c) || (isApostrophe(c) && !word.isEmpty()))
            continue;
        if (isPartOfWord(c, word)) {
            word += c;
            continue;
        }
        put(words, word);
        if (isArithmetic && isSign(c))
            words.emplace_back(c);
    }
    put(words, word);
    return words;
}

bool isNumeric(const QString& word)
{
    return std::any_of(word.begin(), word.end(), [](QChar c) { return c.isNumber() || isSign(c); });
}

bool alike(const QString& a, const QString& b)
{
    constexpr qsizetype shortest = 4;
    const QString& longer = a.size() < b.size() ? b : a;
    const QString& shorter = a.size() < b.size() ? a : b;
    if (shorter.size() < shortest || longer.size() - shorter.size() > 1 || isNumeric(a) || isNumeric(b))
        return false;
    const auto [x, y] = std::mismatch(longer.begin(), longer.end(), shorter.begin(), shorter.end());
    const QStringView rest = QStringView(longer).mid(x - longer.begin());
    const QStringView otherRest = QStringView(shorter).mid(y - shorter.begin());
    if (longer.size() > shorter.size())
        return rest.mid(1) == otherRest;
    const bool swapped = rest.size() >= 2 && rest[0] == otherRest[1] && rest[1] == otherRest[0];
    return rest.mid(1) == otherRest.mid(1) || (swapped && rest.mid(2) == otherRest.mid(2));
}

} // namespace bank

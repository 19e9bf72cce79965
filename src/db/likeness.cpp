#include "db/likeness.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace db {

namespace {

/// Whether only the case of letters can tell the text from its folded form; most texts are like that.
bool isPlain(QStringView text)
{
    QChar before = ' ';
    for (const QChar c : text) {
        if (c < ' ' || c > '~' || (c == ' ' && before == ' '))
            return false;
        before = c;
    }
    return before != ' ';
}

QString plainLower(QString text)
{
    for (QChar& c : text)
        if (c >= 'A' && c <= 'Z')
            c = QChar(c.unicode() | 0x20);
    return text;
}

bool isLittle(const QString& word)
{
    static const QSet<QString> little = [] {
        const QStringList words =
            QString("a an the of in on at to for from by with and or as is are was were be been "
                    "being do does did has have had which what who whom whose when where how many "
                    "much this that these those it its there called named known following")
                .split(' ');
        return QSet<QString>(words.begin(), words.end());
    }();
    return little.contains(word);
}

} // namespace

QString folded(const QString& text)
{
    return isPlain(text) ? plainLower(text)
                         : text.normalized(QString::NormalizationForm_C).simplified().toCaseFolded();
}

bool isSame(const QString& a, const QString& b)
{
    return isPlain(a) && isPlain(b) ? a.compare(b, Qt::CaseInsensitive) == 0 : folded(a) == folded(b);
}

QString searchable(const QString& text)
{
    if (isPlain(text))
        return plainLower(text).remove('\'');
    QString plain = text.normalized(QString::NormalizationForm_KD).simplified().toCaseFolded();
    plain.removeIf([](QChar c) {
        return (c.unicode() >= 0x300 && c.unicode() <= 0x36f) || c == '\'' || c == QChar(0x2019);
    });
    return plain;
}

bool holdsNumber(const QString& text)
{
    return std::ranges::any_of(text, [](QChar c) { return c.isNumber(); });
}

SearchWords::SearchWords(const QString& typed)
    : words_(searchable(typed).split(QChar::Space, Qt::SkipEmptyParts))
{
}

bool SearchWords::areIn(const QStringList& texts) const
{
    if (isEmpty())
        return true;
    QString all;
    for (const QString& text : texts)
        all += searchable(text) + '\n';
    return std::ranges::all_of(words_, [&](const QString& word) { return all.contains(word); });
}

QuestionWords::QuestionWords(const QString& question)
{
    // A word, with the + and # of some, or a sign that may stand in a calculation.
    static const QRegularExpression part(
        R"(([\p{L}\p{N}\p{M}\x{10000}-\x{10ffff}]+[\p{L}\p{N}\p{M}+#\x{10000}-\x{10ffff}]*)|[\p{Sm}*/^%-])");
    const QString plain = searchable(question);
    // Elsewhere a dash joins or parts words.
    const bool isArithmetic = holdsNumber(plain);
    for (auto found = part.globalMatch(plain); found.hasNext();) {
        const auto match = found.next();
        const QString word = match.captured(1);
        if (word.isEmpty() && isArithmetic)
            numbers += match.captured();
        if (holdsNumber(word))
            numbers += word + ' ';
        if (!word.isEmpty() && !isLittle(word))
            words << word;
    }
}

} // namespace db

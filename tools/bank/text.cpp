#include "bank/text.h"

#include <algorithm>
#include <numeric>
#include <string_view>
#include <utility>
#include <vector>

namespace bank {

qsizetype length(QStringView text)
{
    return text.size() - std::count_if(text.begin(), text.end(), [](QChar c) { return c.isLowSurrogate(); });
}

bool isStray(char32_t point)
{
    if (point >= U' ' && point < 0x7f)
        return false;
    switch (QChar::category(point)) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    case QChar::Other_Format: {
        // Some scripts and pictures are joined by two of them, and the signs of the Arabic one are seen.
        constexpr std::u32string_view wanted =
            U"\u200c\u200d\u0600\u0601\u0602\u0603\u0604\u0605\u06dd\u08e2";
        return wanted.find(point) == std::u32string_view::npos;
    }
    default: {
        constexpr std::u32string_view unseen = U"\u115f\u1160\u3164\uffa0\ufffd";
        return unseen.find(point) != std::u32string_view::npos;
    }
    }
}

std::optional<char32_t> strayCharacter(QStringView text)
{
    for (qsizetype at = 0; at < text.size(); ++at) {
        char32_t point = text[at].unicode();
        if (text[at].isHighSurrogate() && at + 1 < text.size())
            point = QChar::surrogateToUcs4(text[at], text[at + 1]);
        if (isStray(point))
            return point;
        at += QChar::requiresSurrogates(point) ? 1 : 0;
    }
    return std::nullopt;
}

QString codePointName(char32_t point)
{
    return QString("U+%1").arg(static_cast<uint>(point), 4, 16, QChar(u'0')).toUpper();
}

namespace {

/// Whether only letter case can tell the text from its folded form; most texts are like that.
bool isPlain(QStringView text)
{
    QChar before = u' ';
    for (const QChar c : text) {
        if (c.unicode() < u' ' || c.unicode() > 0x7e || (c == u' ' && before == u' '))
            return false;
        before = c;
    }
    return before != u' ';
}

} // namespace

QString folded(const QString& text)
{
    if (isPlain(text)) {
        const auto isUpper = [](QChar c) { return c >= u'A' && c <= u'Z'; };
        QString lower = text; // shares the text until a letter changes
        for (qsizetype at = 0; at < text.size(); ++at)
            if (isUpper(text[at]))
                lower[at] = QChar(text[at].unicode() | 0x20);
        return lower;
    }
    return text.normalized(QString::NormalizationForm_C).simplified().toCaseFolded();
}

QString searchable(const QString& text)
{
    if (isPlain(text))
        return folded(text);
    QString plain = text.normalized(QString::NormalizationForm_KD).simplified().toCaseFolded();
    plain.removeIf([](QChar c) { return c.unicode() >= 0x300 && c.unicode() <= 0x36f; });
    return plain;
}

QString shown(const QString& text)
{
    if (!strayCharacter(text))
        return text;
    QString safe;
    for (const char32_t point : text.toUcs4())
        safe += isStray(point) ? '<' + codePointName(point) + '>' : QString::fromUcs4(&point, 1);
    return safe;
}

QString shownLines(const QString& text)
{
    QStringList lines = text.split(u'\n');
    for (QString& line : lines)
        line = shown(line);
    return lines.join(u'\n');
}

QString quoted(const QString& text)
{
    constexpr qsizetype mostQuoted = 60;
    QString cut = text;
    if (cut.size() > mostQuoted) {
        cut.truncate(mostQuoted - 1);
        if (cut.back().isHighSurrogate())
            cut.chop(1);
        cut += u'\u2026';
    }
    return u'"' + shown(cut) + u'"';
}

QString nearestName(const QString& typed, const QStringList& names)
{
    const auto distance = [&typed](const QString& name) {
        std::vector<qsizetype> row(static_cast<std::size_t>(name.size()) + 1);
        std::iota(row.begin(), row.end(), 0);
        for (qsizetype i = 0; i < typed.size(); ++i) {
            qsizetype diagonal = std::exchange(row[0], i + 1);
            for (std::size_t j = 1; j < row.size(); ++j) {
                const qsizetype changed =
                    diagonal + (typed[i] == name[static_cast<qsizetype>(j) - 1] ? 0 : 1);
                diagonal = row[j];
                row[j] = std::min({row[j] + 1, row[j - 1] + 1, changed});
            }
        }
        return row.back();
    };
    const auto nearest =
        std::min_element(names.begin(), names.end(),
                         [&](const QString& a, const QString& b) { return distance(a) < distance(b); });
    return nearest != names.end() && distance(*nearest) <= 2 ? *nearest : QString();
}

} // namespace bank

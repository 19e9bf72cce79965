#include "bank/text.h"

#include <QRegularExpression>
#include <QTextDocumentFragment>

#include <algorithm>
#include <numeric>
#include <string_view>
#include <utility>
#include <vector>

namespace bank {
namespace {

bool isStray(char32_t point)
{
    if (point >= U' ' && point < 0x7f)
        return false;
    // Some scripts and pictures are joined by two of them, and the signs of the Arabic one are seen.
    constexpr std::u32string_view wanted = U"\u200c\u200d\u0600\u0601\u0602\u0603\u0604\u0605\u06dd\u08e2";
    constexpr std::u32string_view unseen = U"\u115f\u1160\u3164\uffa0\ufffd";
    switch (QChar::category(point)) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    case QChar::Other_Format:
        return wanted.find(point) == std::u32string_view::npos;
    default:
        return unseen.find(point) != std::u32string_view::npos;
    }
}

/// How many letters must be added, taken away or changed to make one word of the other.
qsizetype distance(const QString& a, const QString& b)
{
    std::vector<qsizetype> row(static_cast<std::size_t>(b.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    for (qsizetype i = 0; i < a.size(); ++i) {
        qsizetype diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 1; j < row.size(); ++j) {
            const qsizetype changed = diagonal + (a[i] == b[static_cast<qsizetype>(j) - 1] ? 0 : 1);
            diagonal = std::exchange(row[j], std::min({row[j] + 1, row[j - 1] + 1, changed}));
        }
    }
    return row.back();
}

const QRegularExpression& tagOrEntity()
{
    static const QRegularExpression expression(
        "<(/?[a-z][a-z0-9]*)(?:\\s[^<>]*)?/?>|&(?:#[0-9]+|#x[0-9a-f]+|[a-z][a-z0-9]+);",
        QRegularExpression::CaseInsensitiveOption);
    return expression;
}

} // namespace

qsizetype length(QStringView text)
{
    return text.size() - std::ranges::count_if(text, [](QChar c) { return c.isLowSurrogate(); });
}

std::optional<char32_t> strayCharacter(const QString& text)
{
    if (std::ranges::all_of(text, [](QChar c) { return c >= u' ' && c <= u'~'; }))
        return std::nullopt;
    const auto points = text.toUcs4();
    const auto found = std::ranges::find_if(points, isStray);
    return found == points.end() ? std::nullopt : std::optional<char32_t>(*found);
}

QString codePointName(char32_t point)
{
    return QString("U+%1").arg(static_cast<uint>(point), 4, 16, QChar(u'0')).toUpper();
}

QString shown(const QString& text)
{
    QString safe;
    for (const char32_t point : text.toUcs4())
        safe += isStray(point) ? '<' + codePointName(point) + '>' : QString::fromUcs4(&point, 1);
    return safe;
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

QString unknown(const QString& what, const QString& word, const QStringList& names)
{
    const auto nearest =
        std::ranges::min_element(names, {}, [&](const QString& name) { return distance(word, name); });
    return QString("%1 is no %2; there are %3").arg(quoted(word), what, names.join(", ")) +
           (distance(word, *nearest) <= 2 ? ". Did you mean " + *nearest + '?' : QString());
}

QString markupIn(const QString& text)
{
    const bool mayHoldSome = text.contains(u'<') || text.contains(u'&');
    return mayHoldSome ? tagOrEntity().match(text).captured() : QString();
}

std::optional<QString> plainOf(const QString& html)
{
    static const QStringList formatting = {"p",   "br",   "b",     "i",   "u",    "em", "strong",
                                           "div", "span", "small", "big", "font", "a",  "code"};
    for (auto found = tagOrEntity().globalMatch(html); found.hasNext();) {
        const QString tag = found.next().captured(1).toLower().remove(u'/');
        if (!tag.isEmpty() && !formatting.contains(tag))
            return std::nullopt;
    }
    return QTextDocumentFragment::fromHtml(html).toPlainText().simplified();
}

} // namespace bank

#include "bank/text.h"

#include <algorithm>

namespace bank {

qsizetype length(QStringView text)
{
    return text.size() - std::count_if(text.begin(), text.end(), [](QChar c) { return c.isLowSurrogate(); });
}

std::optional<char32_t> strayCharacter(QStringView text)
{
    // All of them are in the basic plane, so that no surrogate needs a look.
    for (const QChar c : text) {
        if (c.unicode() >= u' ' && c.unicode() < 0x7f)
            continue;
        const auto category = c.category();
        if (category == QChar::Other_Control || category == QChar::Separator_Line ||
            category == QChar::Separator_Paragraph || c == QChar(QChar::ByteOrderMark))
            return c.unicode();
    }
    return std::nullopt;
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

} // namespace bank

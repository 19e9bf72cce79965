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
        if (c.unicode() >= u' ' && c.unicode() < 0x7f) {
            continue;
        }
        const auto category = c.category();
        if (category == QChar::Other_Control || category == QChar::Separator_Line ||
            category == QChar::Separator_Paragraph || c == QChar(QChar::ByteOrderMark)) {
            return c.unicode();
        }
    }
    return std::nullopt;
}

QString folded(const QString& text)
{
    return text.normalized(QString::NormalizationForm_C).simplified().toCaseFolded();
}

} // namespace bank

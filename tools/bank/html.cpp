#include "bank/html.h"

#include <QRegularExpression>
#include <QTextDocumentFragment>

namespace bank {
namespace {

const QRegularExpression& tagOrEntity()
{
    static const QRegularExpression expression(
        "<(/?[a-z][a-z0-9]*)(?:\\s[^<>]*)?/?>|&(?:#[0-9]+|#x[0-9a-f]+|[a-z][a-z0-9]+);",
        QRegularExpression::CaseInsensitiveOption);
    return expression;
}

} // namespace

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

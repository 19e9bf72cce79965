#include "toolkit/text.h"

#include "toolkit/twips.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QStringList>

#include <algorithm>
#include <numeric>

namespace toolkit {

namespace {

// Smaller than this nobody reads it; from there on the end of the text is left out instead.
constexpr int smallestPixels = 8;
// More characters than any box of these screens can show; laying out a book would only cost time.
constexpr qsizetype mostCharacters = 2000;
constexpr double systemPoints = 8.25;

// Asking for a family that is not there makes Qt read every alias of every font.
QFont sized(const QString& family, double points)
{
    static const QStringList installed = QFontDatabase::families();
    QFont font(installed.contains(family) ? family : "DejaVu Sans");
    font.setPixelSize(pixels(points * twipsPerPoint));
    return font;
}

// The beginning of a text, whose last character is whole, and a sign that there is more.
QString shortened(const QString& text, qsizetype length)
{
    if (length > 0 && text[length - 1].isHighSurrogate())
        --length;
    return text.first(length) + QChar(0x2026);
}

bool fits(const QString& text, const QFont& font, QSize size, int flags)
{
    const QRect unbounded(0, 0, size.width(), 1 << 20);
    const QRect needed = QFontMetrics(font).boundingRect(unbounded, flags, text);
    return needed.height() <= size.height() && needed.width() <= size.width();
}

} // namespace

QFont systemFont()
{
    QFont font;
    font.setPixelSize(pixels(systemPoints * twipsPerPoint));
    return font;
}

QString trimmed(const QString& text)
{
    qsizetype start = 0;
    qsizetype end = text.size();
    while (start < end && text[start] == QChar::Space)
        ++start;
    while (end > start && text[end - 1] == QChar::Space)
        --end;
    return text.sliced(start, end - start);
}

qsizetype codePoints(QStringView text)
{
    return text.size() -
           std::count_if(text.begin(), text.end(), [](QChar unit) { return unit.isLowSurrogate(); });
}

QFont verdana(double points, Weight weight)
{
    QFont font = sized("Verdana", points);
    font.setBold(weight == Weight::Bold);
    return font;
}

QFont arialBlack(double points)
{
    QFont font = sized("Arial Black", points);
    font.setWeight(QFont::Black);
    return font;
}

FittedText fitted(const QString& text, const QFont& font, QSize size, int flags)
{
    FittedText result{font, text, flags};
    if (text.size() > mostCharacters)
        result.text = shortened(text, mostCharacters);
    for (const int tried : {flags, flags | Qt::TextWrapAnywhere}) {
        result.flags = tried;
        for (int pixelSize = font.pixelSize(); pixelSize >= smallestPixels; --pixelSize) {
            result.font.setPixelSize(pixelSize);
            if (fits(result.text, result.font, size, tried))
                return result;
        }
    }
    // Where it has words none is torn: it is cut anyway.
    if (result.text.contains(QChar::Space))
        result.flags = flags;
    qsizetype most = result.text.size();
    for (qsizetype least = 0; least + 1 < most;) {
        const qsizetype length = std::midpoint(least, most);
        (fits(shortened(text, length), result.font, size, result.flags) ? least : most) = length;
        result.text = shortened(text, least);
    }
    return result;
}

} // namespace toolkit

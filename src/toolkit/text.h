#pragma once

#include <QFont>
#include <QString>

class QPainter;
class QRect;

namespace toolkit {

enum class Weight { Normal, Bold };

/// Fonts of the screens, with the size in points of 20 twips. The size is set in pixels of the same scale,
/// so that a text and the box around it keep their proportion whatever the desktop's font resolution is.
[[nodiscard]] QFont verdana(double points, Weight weight = Weight::Normal);
[[nodiscard]] QFont arialBlack(double points);

/// The desktop's own font in the size that screens without a font of their own were laid out for.
[[nodiscard]] QFont systemFont();

/// Without the blanks (U+0020) at its ends.
[[nodiscard]] QString trimmed(const QString& text);

[[nodiscard]] qsizetype codePoints(QStringView text);

/// A text laid out for a box: the font made smaller as far as needed, the end left out if that is not enough.
struct FittedText
{
    QFont font;
    QString text;
    int flags = 0; ///< for QPainter::drawText
};

/// Fits `text`, drawn with the given Qt::Alignment and Qt::TextFlag bits, into a box of `size` pixels. Words
/// are broken only where they do not fit in any other way.
[[nodiscard]] FittedText fitted(const QString& text, const QFont& font, QSize size, int flags);

} // namespace toolkit

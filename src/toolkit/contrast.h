#pragma once

#include <QColor>
#include <QPoint>
#include <QRect>
#include <QString>

class QPainter;

namespace toolkit {

/// The contrast ratio of two colours as the Web Content Accessibility Guidelines define it, from 1 to 21.
[[nodiscard]] double contrast(const QColor& one, const QColor& other);

/// What is to lie around a text of this colour and size on this ground so that weak eyes can read it: the
/// ground itself where that will do, else a colour as near to it as possible.
[[nodiscard]] QColor haloOf(const QColor& text, const QColor& ground, int pixelSize);

/// Where a text is drawn in the colour of its halo, in relation to its own place.
inline constexpr QPoint haloOffsets[] = {{-1, -1}, {1, -1}, {-1, 1}, {1, 1}};

/// Draws with the painter's pen and font, and a halo around the letters where the ground asks for one.
void drawText(QPainter& painter, const QRect& box, int flags, const QString& text, const QColor& ground);

} // namespace toolkit

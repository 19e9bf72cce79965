#pragma once

#include <QImage>

/// The picture with the 256 colours that suit it best: a third of the size in a PNG file.
[[nodiscard]] QImage inFewColours(const QImage& image);

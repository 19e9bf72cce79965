#pragma once

#include "rig/character_file.h"

#include <QImage>
#include <QRectF>

#include <cstddef>
#include <memory>
#include <vector>

class QPainter;
class QSvgRenderer;

namespace rig {

/// Paints a character in a pose. Each part is rasterised once and then only moved about.
class Figure
{
public:
    /// Throws FileFailure (`name` stands for the file) if the drawing cannot be painted.
    Figure(CharacterFile file, const QString& name);
    ~Figure();
    Figure(const Figure&) = delete;
    Figure& operator=(const Figure&) = delete;

    [[nodiscard]] const Rig& rig() const { return file_.rig; }

    /// Paints the figure with its upper left corner at the painter's origin, in logical pixels.
    /// `ratio` is the number of device pixels to a logical one.
    void paint(QPainter& painter, const Pose& pose, double ratio);

private:
    /// A group of the drawing, however many draws show it.
    struct Part
    {
        QRectF whole;  ///< its bounds in drawing units
        QRectF bounds; ///< as much of them as is painted
        QString id;
        QImage image; ///< made for density_
    };

    void rasterise(double density);
    [[nodiscard]] double scale() const;

    CharacterFile file_;
    std::unique_ptr<QSvgRenderer> svg_;
    std::vector<Part> parts_;
    std::vector<std::size_t> partOfDraw_;
    double density_ = 0;
};

} // namespace rig

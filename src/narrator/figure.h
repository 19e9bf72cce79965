#pragma once

#include "narrator/character_file.h"

#include <QImage>
#include <QRectF>

#include <memory>
#include <vector>

class QPainter;
class QSvgRenderer;

namespace narrator {

/// Paints a character in a pose. Each part is rasterised once and then only moved about.
class Figure
{
public:
    /// Throws LoadFailure (`name` stands for the file) if the drawing cannot be painted.
    Figure(CharacterFile file, const QString& name);
    ~Figure();
    Figure(const Figure&) = delete;
    Figure& operator=(const Figure&) = delete;

    [[nodiscard]] const Rig& rig() const { return file_.rig; }

    /// Paints the figure with its upper left corner at the painter's origin, in logical pixels.
    /// `ratio` is the number of device pixels to a logical one.
    void paint(QPainter& painter, const Pose& pose, double ratio);

private:
    void rasterise(double density);
    [[nodiscard]] double scale() const;

    CharacterFile file_;
    std::unique_ptr<QSvgRenderer> svg_;
    std::vector<QRectF> bounds_; ///< of each draw, in drawing units
    std::vector<QImage> images_; ///< of each draw, made for density_
    double density_ = 0;
};

} // namespace narrator

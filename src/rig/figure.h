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

    /// From drawing units to logical pixels, the figure's upper left corner at the origin.
    [[nodiscard]] QTransform toPixels() const;

    /// Paints the figure with its upper left corner at the painter's origin, in logical pixels.
    /// `ratio` is the number of device pixels to a logical one.
    void paint(QPainter& painter, const Pose& pose, double ratio);

    // For who paints one draw by itself: make ready for a ratio, and paint where `place` puts the drawing.
    void prepare(double ratio);
    void paintDraw(QPainter& painter, int draw, const QTransform& place) const;
    [[nodiscard]] std::size_t boneOf(int draw) const;
    /// What a draw covers, in drawing units; empty if nothing.
    [[nodiscard]] const QRectF& extent(int draw) const;

private:
    /// A group of the drawing, however many draws show it.
    struct Part
    {
        QRectF whole;  ///< its bounds in drawing units
        QRectF bounds; ///< as much of them as is painted
        QString id;
        QImage image;  ///< made for density_, without empty margins
        QRectF extent; ///< of the image in drawing units
    };

    void rasterise();
    [[nodiscard]] double scale() const;
    [[nodiscard]] const Part& partOf(int draw) const;

    CharacterFile file_;
    std::unique_ptr<QSvgRenderer> svg_; ///< only until the parts are rasterised: it takes megabytes
    std::vector<Part> parts_;
    std::vector<std::size_t> partOfDraw_;
    double density_ = 0;
};

} // namespace rig

#pragma once

#include "rig/character_file.h"

#include <QImage>
#include <QRectF>

#include <cstddef>
#include <memory>
#include <vector>

class QSvgRenderer;

namespace rig {

/// A group of the drawing, however many draws show it.
struct Part
{
    QString id;
    QRectF whole;  ///< its bounds in drawing units
    QRectF bounds; ///< as much of them as is painted
    QImage image;  ///< without empty margins; null before it is needed
    QRectF extent; ///< of the image in drawing units
};

/// A character with pictures of its parts, which are rasterised once and then only moved about.
class Figure
{
public:
    /// Throws FileFailure (`name` stands for the file) if the drawing cannot be painted.
    Figure(CharacterFile file, const QString& name);
    ~Figure();
    [[nodiscard]] const Rig& rig() const { return file_.rig; }

    /// Logical pixels to a drawing unit.
    [[nodiscard]] double scale() const;

    /// Makes the images of the parts, for so many device pixels to a logical one.
    void rasterise(double ratio);

    [[nodiscard]] const Part& partOf(int draw) const { return parts_[partOfDraw_[draw]]; }
    [[nodiscard]] int boneOf(int draw) const { return file_.rig.draws[draw].bone; }

private:
    CharacterFile file_;
    std::unique_ptr<QSvgRenderer> svg_; ///< only until the parts are rasterised: it takes megabytes
    std::vector<Part> parts_;
    std::vector<std::size_t> partOfDraw_;
    double density_ = 0;
};

} // namespace rig

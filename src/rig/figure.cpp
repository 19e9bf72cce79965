#include "rig/figure.h"

#include "rig/motion.h"

#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <cmath>

namespace rig {

namespace {

// Turned images stay sharp only if they have more pixels than the screen.
constexpr double leastDensity = 2;
constexpr double maxDensity = 4;
constexpr double maxPixels = 2'500'000; ///< of all parts together, at the least density

QRect pixels(const QRectF& bounds, double factor)
{
    return QRectF(bounds.topLeft() * factor, bounds.size() * factor).toAlignedRect();
}

} // namespace

Figure::Figure(CharacterFile file, const QString& name)
    : file_(std::move(file)), svg_(std::make_unique<QSvgRenderer>())
{
    if (!svg_->load(file_.drawing))
        throw FileFailure((name + ": the drawing cannot be painted").toStdString());
    const QRectF box = rig().drawing;
    // A part may stand out of the drawing, as a raised arm does, but not without limit.
    const QRectF reach = box.adjusted(-box.width() / 2, -box.height() / 2, box.width() / 2, box.height() / 2);
    double sum = 0;
    for (const Draw& draw : rig().draws) {
        auto part = std::ranges::find(parts_, draw.part, &Part::id);
        if (part == parts_.end()) {
            const QRectF whole = svg_->boundsOnElement(draw.part);
            part = parts_.insert(part, {whole, whole & reach, draw.part, {}});
        }
        partOfDraw_.push_back(static_cast<std::size_t>(part - parts_.begin()));
        // Every draw is painted in each frame, whether it shares its part or not.
        sum += part->bounds.width() * part->bounds.height() * std::pow(scale() * leastDensity, 2);
    }
    if (!std::isfinite(sum) || sum > maxPixels)
        throw FileFailure((name + ": the parts of the drawing are too large").toStdString());
}

Figure::~Figure() = default;

double Figure::scale() const
{
    return std::min(rig().size.width() / rig().drawing.width(), rig().size.height() / rig().drawing.height());
}

void Figure::rasterise(double density)
{
    density_ = density;
    const double factor = scale() * density;
    for (Part& part : parts_) {
        const QRect area = pixels(part.bounds, factor);
        part.image = QImage(area.size(), QImage::Format_ARGB32_Premultiplied);
        if (!part.image.isNull()) {
            part.image.fill(Qt::transparent);
            QPainter painter(&part.image);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.translate(-area.topLeft());
            painter.scale(factor, factor);
            svg_->render(&painter, part.id, part.whole);
        }
    }
}

void Figure::paint(QPainter& painter, const Pose& pose, double ratio)
{
    const double density = std::clamp(ratio, leastDensity * std::min(ratio, 1.0), maxDensity);
    if (density != density_)
        rasterise(density);
    const double factor = scale() * density;
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.scale(scale(), scale());
    painter.translate(-rig().drawing.topLeft());
    const QTransform base = painter.worldTransform();
    const std::vector<QTransform> bones = boneTransforms(rig(), pose);
    for (const int index : visibleDraws(rig(), pose)) {
        const auto i = static_cast<std::size_t>(index);
        const Part& part = parts_[partOfDraw_[i]];
        painter.setWorldTransform(bones[static_cast<std::size_t>(rig().draws[i].bone)] * base);
        const QRect area = pixels(part.bounds, factor);
        painter.drawImage(QRectF(QPointF(area.topLeft()) / factor, QSizeF(area.size()) / factor), part.image);
    }
    painter.restore();
}

} // namespace rig

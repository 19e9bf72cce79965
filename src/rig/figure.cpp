#include "rig/figure.h"

#include "rig/silhouette.h"

#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <cmath>

#include <malloc.h>

namespace rig {

namespace {

// Turned images stay sharp only if they have more pixels than the screen.
constexpr double leastDensity = 2;
constexpr double maxDensity = 4;
constexpr double maxPixels = 2'500'000; ///< of all parts together, at the least density

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
            part = parts_.insert(part, {draw.part, whole, whole & reach, {}, {}});
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

void Figure::rasterise(double ratio)
{
    const double density = std::clamp(ratio, leastDensity * std::min(ratio, 1.0), maxDensity);
    if (density == density_)
        return;
    density_ = density;
    if (!svg_)
        svg_ = std::make_unique<QSvgRenderer>(file_.drawing);
    const double factor = scale() * density_;
    for (Part& part : parts_) {
        const QRectF bounds(part.bounds.topLeft() * factor, part.bounds.size() * factor);
        const QRect area = bounds.toAlignedRect();
        QImage image(area.size(), QImage::Format_ARGB32_Premultiplied);
        if (image.isNull())
            continue;
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(-area.topLeft());
        painter.scale(factor, factor);
        svg_->render(&painter, part.id, part.whole);
        painter.end();
        const QRect seen = // with a pixel around it for smooth edges
            silhouette(image, image.rect(), 1).boundingRect().adjusted(-1, -1, 1, 1) & image.rect();
        part.image = image.copy(seen);
        part.extent = QRectF(QPointF(area.topLeft() + seen.topLeft()) / factor, QSizeF(seen.size()) / factor);
    }
    svg_.reset();
    malloc_trim(0); // what painting took is much more than what it leaves
}

} // namespace rig

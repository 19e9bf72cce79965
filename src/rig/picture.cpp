#include "rig/picture.h"

#include "rig/motion.h"

#include <QPainter>

#include <algorithm>

namespace rig {

namespace {

// In device pixels. A figure that breathes goes unpainted until something of it has moved visibly.
constexpr double visibleMove = 0.5;
constexpr double leastMove = 0.3; ///< what has moved less then is left as it is

/// How far any corner of `extent` is from one place to another.
double distance(const QRectF& extent, const QTransform& from, const QTransform& to)
{
    double farthest = 0;
    for (const QPointF& corner :
         {extent.topLeft(), extent.topRight(), extent.bottomLeft(), extent.bottomRight()}) {
        const QPointF way = to.map(corner) - from.map(corner);
        farthest = std::max({farthest, std::abs(way.x()), std::abs(way.y())});
    }
    return farthest;
}

/// Adds an area to some of which no two overlap.
void add(std::vector<QRect>& areas, QRect area)
{
    for (std::size_t i = 0; i < areas.size();)
        if (areas[i].intersects(area)) {
            area |= areas[i];
            areas.erase(areas.begin() + static_cast<std::ptrdiff_t>(i));
            i = 0;
        } else {
            ++i;
        }
    if (!area.isEmpty())
        areas.push_back(area);
}

} // namespace

void Picture::reset(const QSize& size, const QTransform& place, double ratio)
{
    const QPointF corner = figure_.rig().drawing.topLeft();
    place_ = QTransform::fromTranslate(-corner.x(), -corner.y()) *
             QTransform::fromScale(figure_.scale(), figure_.scale()) * place;
    ratio_ = ratio;
    density_ = ratio * place.m11();
    image_ = QImage((QSizeF(size) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image_.setDevicePixelRatio(ratio);
    image_.fill(Qt::transparent);
    draws_.clear();
    areas_.assign(figure_.rig().draws.size(), {});
    bones_.assign(figure_.rig().bones.size(), {});
    switches_ = figure_.rig().rest.switches;
}

QRegion Picture::show(const Pose& pose)
{
    figure_.rasterise(density_);
    const Rig& rig = figure_.rig();
    std::vector<int> draws = visibleDraws(rig, pose);
    std::vector<QTransform> bones = boneTransforms(rig, pose);
    if (hold(bones, draws) < visibleMove && draws == draws_)
        return {};
    std::vector<QRect> areas(rig.draws.size());
    for (const int draw : draws) {
        const QRectF place = bones[figure_.boneOf(draw)].mapRect(figure_.partOf(draw).extent);
        areas[draw] = (place & QRectF(area())).toAlignedRect();
    }
    std::vector<QRect> changed;
    for (std::size_t i = 0; i < areas.size(); ++i) {
        const int bone = rig.draws[i].bone;
        const int layer = rig.draws[i].layer;
        if (areas[i] != areas_[i] || bones[bone] != bones_[bone] ||
            (layer >= 0 && pose.switches[layer] != switches_[layer]))
            add(changed, areas[i] | areas_[i]);
    }
    draws_ = std::move(draws);
    bones_ = std::move(bones);
    areas_ = std::move(areas);
    switches_ = pose.switches;
    return paint(changed);
}

double Picture::hold(std::vector<QTransform>& bones, const std::vector<int>& draws) const
{
    std::vector<double> moves(bones.size(), 0); // what hangs on one bone is moved together
    for (const int draw : draws) {
        const int bone = figure_.boneOf(draw);
        const double move =
            distance(figure_.partOf(draw).extent, bones_[bone], bones[bone] * place_) * ratio_;
        moves[bone] = std::max(moves[bone], move);
    }
    for (std::size_t i = 0; i < bones.size(); ++i)
        bones[i] = moves[i] < leastMove ? bones_[i] : bones[i] * place_;
    return std::ranges::max(moves);
}

QRegion Picture::paint(const std::vector<QRect>& areas)
{
    QRegion painted;
    QPainter painter(&image_);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (const QRect& area : areas) {
        painted += area;
        painter.resetTransform();
        painter.setClipRect(area);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(area, Qt::transparent);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        for (const int draw : draws_)
            if (area.intersects(areas_[draw])) {
                painter.setWorldTransform(bones_[figure_.boneOf(draw)]);
                painter.drawImage(figure_.partOf(draw).extent, figure_.partOf(draw).image);
            }
    }
    return painted;
}

} // namespace rig

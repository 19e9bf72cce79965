#include "sheet.h"

#include "rig/motion.h"
#include "rig/picture.h"

#include <QPainter>

namespace {

constexpr int sideMargin = 36; ///< for spread arms
constexpr int topMargin = 8;
const QColor background(0x5a, 0x4a, 0x8a);

/// The poses in cells of that size, each moved by `margin` in it; `rule` draws the lines between the rows.
QImage drawTable(rig::Figure& figure, const std::vector<rig::Pose>& poses, int columns, double zoom,
                 const QSize& cell, const QPointF& margin, const QPen& rule)
{
    const int rows = (static_cast<int>(poses.size()) + columns - 1) / columns;
    QImage sheet((QSizeF(cell.width() * columns, cell.height() * rows) * zoom).toSize(),
                 QImage::Format_ARGB32_Premultiplied);
    sheet.fill(background);
    QPainter painter(&sheet);
    painter.setPen(rule);
    for (int row = 1; row < rows; ++row) {
        const int y = static_cast<int>(row * cell.height() * zoom);
        painter.drawLine(0, y, sheet.width(), y);
    }
    for (int i = 0; i < static_cast<int>(poses.size()); ++i) {
        rig::Picture picture(figure);
        picture.reset(cell * zoom,
                      QTransform::fromTranslate(margin.x(), margin.y()) * QTransform::fromScale(zoom, zoom),
                      1);
        picture.show(poses[static_cast<std::size_t>(i)]);
        const QPoint corner(i % columns * cell.width(), i / columns * cell.height());
        painter.drawImage(QPointF(corner) * zoom, picture.image());
    }
    return sheet;
}

} // namespace

std::vector<rig::Pose> posesOf(const rig::Rig& rig, const rig::Gesture& gesture, int count)
{
    std::vector<rig::Pose> poses;
    for (int i = 1; i <= count; ++i)
        poses.push_back(rig::poseAt(rig, {&gesture, rig.rest}, gesture.lengthMs * i / (count + 1)));
    return poses;
}

QImage drawPoses(rig::Figure& figure, const std::vector<rig::Pose>& poses, int columns, double zoom)
{
    const QSize cell = figure.rig().size.toSize() + QSize(2 * sideMargin, 2 * topMargin);
    return drawTable(figure, poses, columns, zoom, cell, {sideMargin, topMargin}, QColor(0x3c, 0x2f, 0x66));
}

QImage drawMouths(rig::Figure& figure)
{
    const rig::Rig& rig = figure.rig();
    std::vector<rig::Pose> poses(mouth::shapeCount, rig.rest);
    for (std::size_t i = 0; i < poses.size(); ++i)
        rig::shapeMouth(rig, poses[i], static_cast<mouth::Shape>(i));
    const QSize face(rig.size.toSize().width() * 3 / 5, rig.size.toSize().height() / 2);
    return drawTable(figure, poses, 3, 2, face, {(face.width() - rig.size.width()) / 2, 0}, Qt::NoPen);
}

#include "sheet.h"

#include "narrator/motion.h"

#include <QPainter>

namespace {

constexpr int sideMargin = 30; ///< for spread arms
const QColor background(0x5a, 0x4a, 0x8a);
const QColor line(0x3c, 0x2f, 0x66);

} // namespace

QImage drawSheet(narrator::Figure& figure, int poses)
{
    const narrator::Rig& rig = figure.rig();
    const QSize cell(rig.size.toSize() + QSize(2 * sideMargin, 10));
    const int rows = static_cast<int>(rig.gestures.size());
    QImage sheet(cell.width() * poses, cell.height() * rows, QImage::Format_ARGB32_Premultiplied);
    sheet.fill(background);
    QPainter painter(&sheet);
    for (int row = 0; row < rows; ++row) {
        const narrator::Gesture& gesture = rig.gestures[static_cast<std::size_t>(row)];
        for (int column = 0; column < poses; ++column) {
            const double time = gesture.lengthMs * (column + 1) / (poses + 1);
            const narrator::Pose pose = narrator::poseAt(rig, {&gesture, rig.rest}, time);
            painter.save();
            painter.translate(column * cell.width() + sideMargin, row * cell.height() + 5);
            figure.paint(painter, pose, 1);
            painter.restore();
        }
        painter.setPen(line);
        painter.drawLine(0, row * cell.height(), sheet.width(), row * cell.height());
    }
    return sheet;
}

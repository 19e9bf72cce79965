#include "sheet.h"

#include "rig/motion.h"
#include "rig/picture.h"

#include <QPainter>

namespace {

constexpr int sideMargin = 36; ///< for spread arms
constexpr int topMargin = 8;
const QColor background(0x5a, 0x4a, 0x8a);
const QColor line(0x3c, 0x2f, 0x66);

/// Paints the figure `zoom` times its size, moved by `margin`, into a cell of a sheet.
void paintCell(QImage& sheet, const QRect& cell, rig::Figure& figure, const rig::Pose& pose,
               const QPointF& margin, double zoom)
{
    rig::Picture picture(figure);
    picture.reset(cell.size() * zoom,
                  QTransform::fromTranslate(margin.x(), margin.y()) * QTransform::fromScale(zoom, zoom), 1);
    picture.show(pose);
    QPainter(&sheet).drawImage(QPointF(cell.topLeft()) * zoom, picture.image());
}

/// An empty sheet of equal cells, ruled, with a painter that counts in logical pixels.
class Sheet
{
public:
    Sheet(const rig::Rig& rig, int columns, int rows, double zoom)
        : cell_(rig.size.toSize() + QSize(2 * sideMargin, 2 * topMargin)),
          image_((QSizeF(cell_.width() * columns, cell_.height() * rows) * zoom).toSize(),
                 QImage::Format_ARGB32_Premultiplied),
          zoom_(zoom)
    {
        image_.fill(background);
        QPainter painter(&image_);
        painter.setPen(line);
        for (int row = 1; row < rows; ++row) {
            const int y = static_cast<int>(row * cell_.height() * zoom);
            painter.drawLine(0, y, image_.width(), y);
        }
    }

    void paint(rig::Figure& figure, const rig::Pose& pose, int column, int row)
    {
        const QRect cell(QPoint(column * cell_.width(), row * cell_.height()), cell_);
        paintCell(image_, cell, figure, pose, {sideMargin, topMargin}, zoom_);
    }

    [[nodiscard]] const QImage& image() const { return image_; }

private:
    QSize cell_;
    QImage image_;
    double zoom_;
};

void drawRow(Sheet& sheet, rig::Figure& figure, const rig::Gesture& gesture, int poses, int row)
{
    const rig::Rig& rig = figure.rig();
    for (int column = 0; column < poses; ++column) {
        const double time = gesture.lengthMs * (column + 1) / (poses + 1);
        sheet.paint(figure, rig::poseAt(rig, {&gesture, rig.rest}, time), column, row);
    }
}

} // namespace

QImage drawGesture(rig::Figure& figure, const rig::Gesture& gesture, int poses, double zoom)
{
    Sheet sheet(figure.rig(), poses, 1, zoom);
    drawRow(sheet, figure, gesture, poses, 0);
    return sheet.image();
}

QImage drawMouths(rig::Figure& figure)
{
    constexpr double zoom = 2;
    constexpr int columns = 3;
    const rig::Rig& rig = figure.rig();
    const QSize face(rig.size.toSize().width() * 3 / 5, rig.size.toSize().height() / 2);
    const QSize cell = face * zoom;
    const int rows = (static_cast<int>(mouth::shapeCount) + columns - 1) / columns;
    QImage sheet(cell.width() * columns, cell.height() * rows, QImage::Format_ARGB32_Premultiplied);
    sheet.fill(background);
    for (int i = 0; i < static_cast<int>(mouth::shapeCount); ++i) {
        rig::Pose pose = rig.rest;
        rig::shapeMouth(rig, pose, static_cast<mouth::Shape>(i));
        const QRect place(QPoint(i % columns * face.width(), i / columns * face.height()), face);
        paintCell(sheet, place, figure, pose, {(face.width() - rig.size.width()) / 2, 0}, zoom);
    }
    return sheet;
}

QImage drawOverview(rig::Figure& figure, int columns, double zoom)
{
    const rig::Rig& rig = figure.rig();
    const int count = static_cast<int>(rig.gestures.size());
    Sheet sheet(rig, columns, (count + columns - 1) / columns, zoom);
    for (int i = 0; i < count; ++i) {
        const rig::Gesture& gesture = rig.gestures[static_cast<std::size_t>(i)];
        const rig::Pose pose = rig::poseAt(rig, {&gesture, rig.rest}, gesture.lengthMs / 2);
        sheet.paint(figure, pose, i % columns, i / columns);
    }
    return sheet.image();
}

QImage drawSheet(rig::Figure& figure, int poses, double zoom)
{
    const std::vector<rig::Gesture>& gestures = figure.rig().gestures;
    Sheet sheet(figure.rig(), poses, static_cast<int>(gestures.size()), zoom);
    for (std::size_t row = 0; row < gestures.size(); ++row)
        drawRow(sheet, figure, gestures[row], poses, static_cast<int>(row));
    return sheet.image();
}

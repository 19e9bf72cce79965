// Renders an SVG drawing to a PNG (transparent ground) or a JPEG (navy ground) of a given size in pixels.

#include <QColor>
#include <QCoreApplication>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>
#include <stdexcept>

namespace {

constexpr int largestSide = 4096;
constexpr int usualQuality = 92;
// Neighbouring shapes keep no seam when the drawing is painted larger and scaled down smoothly.
constexpr int oversampling = 4;
constexpr int dotsPerMeter = 3780; // 96 per inch, whatever the machine that builds
const QColor screenGround(0, 0, 64);

std::runtime_error failure(const QString& file, const QString& reason)
{
    return std::runtime_error((file + ": " + reason).toStdString());
}

QImage rendered(const QString& path, const QSize& size, const QColor& ground)
{
    QSvgRenderer drawing(path);
    if (!drawing.isValid())
        throw failure(path, "is not a drawing that can be rendered");
    drawing.setAspectRatioMode(Qt::KeepAspectRatio);
    QImage large(size * oversampling, QImage::Format_ARGB32_Premultiplied);
    large.fill(ground);
    QPainter painter(&large);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter);
    painter.end();
    QImage image = large.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    image.setDotsPerMeterX(dotsPerMeter);
    image.setDotsPerMeterY(dotsPerMeter);
    return image;
}

void render(const QStringList& arguments)
{
    if (arguments.size() < 5)
        throw std::runtime_error(
            "usage: renderpictures DRAWING.svg PICTURE.png|PICTURE.jpg WIDTH HEIGHT [QUALITY]");
    const QSize size(arguments[3].toInt(), arguments[4].toInt());
    if (size.isEmpty() || size.width() > largestSide || size.height() > largestSide)
        throw failure(arguments[3] + u'x' + arguments[4], QString("is no size up to %1").arg(largestSide));
    QImageWriter writer(arguments[2]);
    const bool jpeg = arguments[2].endsWith(".jpg");
    if (jpeg) {
        writer.setQuality(arguments.size() > 5 ? arguments[5].toInt() : usualQuality);
        writer.setOptimizedWrite(true);
    }
    if (!writer.write(rendered(arguments[1], size, jpeg ? screenGround : QColor(Qt::transparent))))
        throw failure(arguments[2], writer.errorString());
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    try {
        render(QCoreApplication::arguments());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}

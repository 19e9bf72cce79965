// Renders an SVG drawing to a PNG (transparent ground) or a JPEG (navy ground) of a given size in pixels.

#include <QColor>
#include <QCoreApplication>
#include <QFile>
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

struct Job
{
    QString drawing;
    QString picture;
    QSize size;
    int quality = usualQuality;

    bool jpeg() const { return picture.endsWith(".jpg"); }
};

std::runtime_error failure(const QString& file, const QString& reason)
{
    return std::runtime_error((file + ": " + reason).toStdString());
}

int number(const QString& text, int largest)
{
    bool isNumber = false;
    const int value = text.toInt(&isNumber);
    if (!isNumber || value < 1 || value > largest)
        throw failure(text, QString("is no whole number from 1 to %1").arg(largest));
    return value;
}

Job jobOf(const QStringList& arguments)
{
    if (arguments.size() < 5 || arguments.size() > 6) {
        throw std::runtime_error(
            "usage: renderpictures DRAWING.svg PICTURE.png|PICTURE.jpg WIDTH HEIGHT [QUALITY]");
    }
    Job job{arguments[1], arguments[2],
            QSize(number(arguments[3], largestSide), number(arguments[4], largestSide))};
    if (!job.jpeg() && !job.picture.endsWith(".png"))
        throw failure(job.picture, "the name of a picture ends in .png or .jpg");
    if (arguments.size() == 6)
        job.quality = number(arguments[5], 100);
    return job;
}

QImage rendered(const Job& job)
{
    QFile file(job.drawing);
    if (!file.open(QIODevice::ReadOnly))
        throw failure(job.drawing, file.errorString());
    QSvgRenderer drawing(file.readAll());
    if (!drawing.isValid())
        throw failure(job.drawing, "is not a drawing that can be rendered");
    drawing.setAspectRatioMode(Qt::KeepAspectRatio);
    QImage large(job.size * oversampling, QImage::Format_ARGB32_Premultiplied);
    large.fill(job.jpeg() ? screenGround : QColor(Qt::transparent));
    QPainter painter(&large);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter);
    painter.end();
    QImage image = large.scaled(job.size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    image.setDotsPerMeterX(dotsPerMeter);
    image.setDotsPerMeterY(dotsPerMeter);
    return image;
}

void save(const QImage& image, const Job& job)
{
    QImageWriter writer(job.picture);
    if (job.jpeg()) {
        writer.setQuality(job.quality);
        writer.setOptimizedWrite(true);
    }
    if (!writer.write(image))
        throw failure(job.picture, writer.errorString());
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    try {
        const Job job = jobOf(QCoreApplication::arguments());
        save(rendered(job), job);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}

#include "album.h"

#include <QPainter>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <optional>
#include <thread>

namespace {

constexpr const char* movingKey = "moving";

QString inWords(QRect area)
{
    return QString("%1 %2 %3 %4").arg(area.x()).arg(area.y()).arg(area.width()).arg(area.height());
}

void hideMoving(QPainter& painter, const QImage& picture)
{
    for (const QString& area : picture.text(movingKey).split(',')) {
        const QStringList numbers = area.split(' ');
        if (numbers.size() == 4) {
            painter.fillRect(numbers[0].toInt(), numbers[1].toInt(), numbers[2].toInt(), numbers[3].toInt(),
                             Qt::black);
        }
    }
}

QImage seen(desk::Desk& desk)
{
    QRect area;
    QList<QRect> moving;
    for (const desk::ShownWindow& window : desk.look().windows) {
        if (window.name == "back")
            continue;
        const QRect place = desk.display->place(window.window) & desk.display->area();
        area |= place;
        if (window.name == "host")
            moving << place;
        const auto clock = window.controls.find("clock");
        if (clock != window.controls.end() && clock->second.visible)
            moving << clock->second.place.translated(place.topLeft());
    }
    QStringList places;
    for (const QRect& place : moving)
        places << inWords(place.translated(-area.topLeft()));
    QImage picture = desk.display->picture(area);
    picture.setText(movingKey, places.join(','));
    return picture;
}

/// Without what moves in either of two pictures, and without the fine print of dithering.
QImage blurred(const QImage& original, const QImage& compared)
{
    constexpr int blur = 4;
    QImage picture = original.convertToFormat(QImage::Format_RGB32);
    QPainter painter(&picture);
    hideMoving(painter, original);
    hideMoving(painter, compared);
    painter.end();
    return picture.scaled(picture.size() / blur, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

bool sameLook(const QImage& one, const QImage& other)
{
    constexpr int noise = 24;    // of 255, in a channel of a blurred pixel
    constexpr int tolerated = 6; // pixels: a text cursor, which blinks
    if (one.size() != other.size())
        return false;
    const QImage first = blurred(one, other);
    const QImage second = blurred(other, one); // NOLINT(readability-suspicious-call-argument)
    int different = 0;
    for (int y = 0; y < first.height(); ++y) {
        for (int x = 0; x < first.width(); ++x) {
            const QColor a = first.pixelColor(x, y);
            const QColor b = second.pixelColor(x, y);
            different += std::max({std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                                   std::abs(a.blue() - b.blue())}) > noise
                             ? 1
                             : 0;
        }
    }
    return different <= tolerated;
}

} // namespace

Album::Album(const QDir& folder, Purpose purpose, int scale)
    : folder_(folder), purpose_(purpose), scale_(scale)
{
    if (!folder_.mkpath("."))
        throw std::runtime_error(folder_.path().toStdString() + " cannot be made");
}

QImage Album::atRest(desk::Desk& desk)
{
    QImage picture;
    for (int rests = 0; rests < 3;) {
        std::this_thread::sleep_for(std::chrono::milliseconds(40));
        const QImage former = std::exchange(picture, seen(desk));
        rests = sameLook(former, picture) ? rests + 1 : 0;
        if (rests == 1)
            desk.display->moveMouse({}); // or a tool tip might come
    }
    return picture;
}

void Album::add(const QString& name, const QImage& picture)
{
    const QString file = name + (scale_ == 1 ? QString() : QString("@%1x").arg(scale_)) + ".png";
    if (taken_.contains(file))
        return;
    taken_ << file;
    if (purpose_ == Purpose::Compare) {
        const QImage kept(folder_.filePath(file));
        if (kept.isNull() || !sameLook(kept, picture))
            old_ << file;
        return;
    }
    constexpr int smallest = 0; // the quality of a PNG file is only how little it is compressed
    if (!picture.save(folder_.filePath(file), nullptr, smallest))
        throw std::runtime_error(folder_.filePath(file).toStdString() + " cannot be written");
}

QStringList Album::finish()
{
    for (const QString& file : folder_.entryList({"*.png"})) {
        if (file.contains('@') != (scale_ != 1) || taken_.contains(file))
            continue;
        if (purpose_ == Purpose::Compare)
            old_ << file;
        else
            folder_.remove(file);
    }
    return old_;
}

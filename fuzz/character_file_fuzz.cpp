#include "narrator/character.h"
#include "narrator/figure.h"
#include "narrator/motion.h"

#include <QPainter>

#include <cstddef>
#include <cstdint>

namespace {

/// Paints what the figure does in the middle of its first few gestures.
void perform(narrator::Figure& figure)
{
    const narrator::Rig& rig = figure.rig();
    QImage image(rig.size.toSize(), QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    narrator::Pose pose = rig.rest;
    for (std::size_t i = 0; i < rig.gestures.size() && i < 3; ++i) {
        pose = narrator::poseAt(rig, {&rig.gestures[i], pose}, rig.gestures[i].lengthMs / 2);
        narrator::addSines(rig, pose, 700);
        narrator::closeLids(rig, pose, 0.5);
        narrator::addLook(rig, pose, {1, -1});
        narrator::shapeMouth(rig, pose, narrator::MouthShape::A);
        figure.paint(painter, pose, 1);
    }
}

} // namespace

// The name is libFuzzer's.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    try {
        narrator::Figure figure(narrator::readCharacter(bytes, "fuzz"), {});
        perform(figure);
    } catch (const narrator::LoadFailure&) {
        return 0; // A game without a host is what a broken file may lead to.
    }
    return 0;
}

#include "rig/motion.h"
#include "rig/picture.h"

#include <cstddef>
#include <cstdint>

namespace {

/// Paints what the figure does in the middle of its first few gestures.
void perform(rig::Figure& figure)
{
    const rig::Rig& rig = figure.rig();
    rig::Picture picture(figure);
    picture.reset(rig.size.toSize(), {}, 1);
    rig::Pose pose = rig.rest;
    for (std::size_t i = 0; i < rig.gestures.size() && i < 3; ++i) {
        pose = rig::poseAt(rig, {&rig.gestures[i], pose}, rig.gestures[i].lengthMs / 2);
        rig::addSines(rig, pose, 700);
        rig::closeLids(rig, pose, 0.5);
        rig::addGlance(rig, pose, {1, -1});
        rig::shapeMouth(rig, pose, mouth::Shape::A);
        picture.show(pose);
    }
}

} // namespace

// The name is libFuzzer's.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    try {
        rig::Figure figure(rig::readCharacter(bytes, "fuzz"), {});
        perform(figure);
    } catch (const rig::FileFailure&) {
        return 0; // A game without a host is what a broken file may lead to.
    }
    return 0;
}

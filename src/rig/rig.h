#pragma once

#include "mouth/shape.h"

#include <QHash>
#include <QPointF>
#include <QRectF>
#include <QString>

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

namespace rig {

/// What a bone can do: turn (degrees, clockwise), move right and down (drawing units) and stretch in width
/// and height (factors).
using Channels = std::array<double, 5>;

enum class Ease { Linear, In, Out, InOut, Back, Hold };

/// What can change in the figure: a channel of a bone or, with no bone, a switch.
struct Place
{
    int bone = -1;
    int index = 0;
};

/// Everything that can change in the figure at one moment; indices are those of the rig.
struct Pose
{
    std::vector<Channels> bones;
    /// Of a slot the draw that it shows, -1 for none; of a layer its depth: the higher, the later it is
    /// painted.
    std::vector<double> switches;

    bool operator==(const Pose&) const = default;

    [[nodiscard]] double& operator[](const Place& place)
    {
        return place.bone < 0 ? switches[place.index] : bones[place.bone][place.index];
    }
    [[nodiscard]] double operator[](const Place& place) const
    {
        return place.bone < 0 ? switches[place.index] : bones[place.bone][place.index];
    }
};

struct Bone
{
    QString id;
    int parent = -1; ///< comes before this bone in the rig
    QPointF pivot;   ///< in drawing units
};

/// One part of the drawing hung on a bone. Draws are listed back to front.
struct Draw
{
    QString part;
    int bone = 0;
    int slot = -1;  ///< the switch that must hold this draw for it to be shown
    int layer = -1; ///< the switch with its depth
};

/// The value of a key; none stands for the value of the rest pose.
struct Key
{
    double timeMs = 0;
    std::optional<double> value;
    Ease ease = Ease::InOut;
};

/// What one place does in a gesture.
struct Track
{
    Place place;
    std::vector<Key> keys;
};

struct Gesture
{
    QString name;
    double lengthMs = 0;
    std::vector<Track> tracks;
};

/// Movement that never ends: breathing, the swaying of the tail.
struct Sine
{
    Place place;
    double amplitude = 0;
    double periodMs = 1000;
    double phase = 0; ///< in periods
};

struct Lid
{
    Place place;
    double closed = 1;
};

/// How far a bone goes when the figure looks fully aside and fully down.
struct Glance
{
    int bone = 0;
    QPointF reach;
};

/// The skeleton of a character, what hangs on it and all that it can do.
struct Rig
{
    QSizeF size;    ///< of the figure on screen, in logical pixels
    QRectF drawing; ///< the same area in drawing units
    std::vector<Bone> bones;
    std::vector<Draw> draws;
    std::vector<Sine> sines;
    std::vector<Lid> lids;
    std::vector<Glance> glances;
    std::array<int, mouth::shapeCount> mouths{}; ///< the draw of each shape
    int mouthSlot = -1;                          ///< its switch
    Pose rest;
    std::vector<Gesture> gestures;
    QHash<QString, int> gestureOfName; ///< names are exact in their case

    [[nodiscard]] const Gesture* gesture(const QString& name) const
    {
        const auto found = gestureOfName.constFind(name);
        return found == gestureOfName.cend() ? nullptr : &gestures[*found];
    }
};

} // namespace rig

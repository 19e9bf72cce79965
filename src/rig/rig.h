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

/// What a bone can do: turn (degrees, clockwise), move (drawing units) and stretch (factors).
enum class Channel { Rotation, X, Y, ScaleX, ScaleY };
inline constexpr std::size_t channelCount = 5;
using Channels = std::array<double, channelCount>;

enum class Ease { Linear, In, Out, InOut, Back, Hold };

/// Everything that can change in the figure at one moment; indices are those of the rig.
struct Pose
{
    std::vector<Channels> bones;
    std::vector<int> slots;  ///< the draw shown in each slot, -1 for none
    std::vector<int> layers; ///< depth of each layer; those with a higher one are painted later

    bool operator==(const Pose&) const = default;
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
    int slot = -1; ///< shown only while the slot holds this draw
    int layer = -1;
};

/// The value of a key; none stands for the value of the rest pose.
struct Key
{
    double timeMs = 0;
    std::optional<double> value;
    Ease ease = Ease::InOut;
};

struct Curve
{
    int bone = 0;
    Channel channel = Channel::Rotation;
    std::vector<Key> keys;
};

struct Step
{
    double timeMs = 0;
    std::optional<int> value;
};

/// The changes of a slot (values are draws) or of a layer (values are depths).
struct Steps
{
    bool ofLayer = false;
    int target = 0;
    std::vector<Step> steps;
};

struct Gesture
{
    QString name;
    double lengthMs = 0;
    std::vector<Curve> curves;
    std::vector<Steps> steps;
};

/// Movement that never ends: breathing, the swaying of the tail.
struct Sine
{
    int bone = 0;
    Channel channel = Channel::Rotation;
    double amplitude = 0;
    double periodMs = 1000;
    double phase = 0; ///< in periods
};

struct Lid
{
    int bone = 0;
    Channel channel = Channel::ScaleY;
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
    std::vector<QString> slots;
    std::vector<QString> layers;
    std::vector<Sine> sines;
    std::vector<Lid> lids;
    std::vector<Glance> glances;
    std::array<int, mouth::shapeCount> mouths{}; ///< the draw of each shape
    int mouthSlot = -1;
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

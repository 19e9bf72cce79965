#include "narrator/rig_reader.h"

#include "narrator/drawing_rules.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace narrator {

namespace {

constexpr std::size_t maxBones = 64;
constexpr std::size_t maxDraws = 200;
constexpr std::size_t maxGestures = 100;
constexpr std::size_t maxTracks = 200;
constexpr std::size_t maxSines = 64;
constexpr qsizetype maxKeys = 64; ///< of a track
constexpr qsizetype maxAllKeys = 20'000;
constexpr double minGestureMs = 50;
constexpr double maxGestureMs = 30'000;

const QStringList& requiredGestures()
{
    static const QStringList names{
        u"Alert"_s,   u"Announce"_s,       u"announce"_s, u"blink"_s,    u"confused"_s, u"Congratulate"_s,
        u"Decline"_s, u"Congratulate_2"_s, u"DoMagic1"_s, u"DoMagic2"_s, u"Explain"_s,  u"GestureDown"_s,
        u"Greet"_s,   u"RestPose"_s,       u"Sad"_s,      u"sad"_s,      u"Search"_s,   u"Show"_s,
        u"suggest"_s, u"Think"_s,          u"think"_s,    u"Thinking"_s, u"Uncertain"_s};
    return names;
}

const QStringList channelNames{u"rot"_s, u"x"_s, u"y"_s, u"sx"_s, u"sy"_s};
const QStringList easeNames{u"lin"_s, u"in"_s, u"out"_s, u"inout"_s, u"back"_s, u"hold"_s};
const QStringList shapeNames{u"Rest"_s, u"M"_s, u"F"_s, u"T"_s, u"S"_s, u"E"_s, u"A"_s, u"O"_s, u"U"_s};

/// The place of `name` among names that `what` may have.
int indexOf(const QStringList& names, const QString& name, const QString& what)
{
    const auto index = names.indexOf(name);
    if (index < 0) {
        throw Defect{u"there is no %1 \"%2\""_s.arg(what, name.left(40))};
    }
    return static_cast<int>(index);
}

int indexOrAdd(std::vector<QString>& names, const QString& name)
{
    const auto found = std::ranges::find(names, name);
    if (found != names.end()) {
        return static_cast<int>(found - names.begin());
    }
    names.push_back(name);
    return static_cast<int>(names.size()) - 1;
}

int indexIn(const std::vector<QString>& names, const QString& name, const QString& what)
{
    const auto found = std::ranges::find(names, name);
    if (found == names.end()) {
        throw Defect{u"there is no %1 \"%2\""_s.arg(what, name.left(40))};
    }
    return static_cast<int>(found - names.begin());
}

double numberOf(const QString& text, const QString& what)
{
    // Times in a gesture are the largest numbers there are.
    const auto number = plainNumber(text, maxGestureMs + 1);
    if (!number) {
        throw Defect{u"\"%1\" is no number for %2"_s.arg(text.left(40), what)};
    }
    return *number;
}

double within(double low, double value, double high, const QString& what)
{
    if (value < low || value > high) {
        throw Defect{u"%1 must be %2 to %3"_s.arg(what).arg(low).arg(high)};
    }
    return value;
}

} // namespace

/// The attributes of one element, fetched by name; those nobody may ask for are defects.
class RigReader::Fields
{
public:
    Fields(const QXmlStreamAttributes& attributes, const QStringList& needed, const QStringList& allowed)
        : attributes_(attributes)
    {
        for (const QXmlStreamAttribute& entry : attributes) {
            const QString name = entry.qualifiedName().toString();
            if (!needed.contains(name) && !allowed.contains(name)) {
                throw Defect{u"the attribute \"%1\" is not allowed"_s.arg(name.left(40))};
            }
        }
        for (const QString& name : needed) {
            if (!has(name)) {
                throw Defect{u"the attribute \"%1\" is missing"_s.arg(name)};
            }
        }
    }

    [[nodiscard]] bool has(const QString& name) const { return attributes_.hasAttribute(name); }
    [[nodiscard]] QString text(const QString& name) const { return attributes_.value(name).toString(); }

    [[nodiscard]] double number(const QString& name) const
    {
        return numberOf(text(name), u"the attribute \"%1\""_s.arg(name));
    }

    [[nodiscard]] QPointF pair(const QString& name) const
    {
        const auto numbers = plainNumbers(text(name));
        if (!numbers || numbers->size() != 2) {
            throw Defect{u"the attribute \"%1\" must be two numbers"_s.arg(name)};
        }
        return {numbers->front(), numbers->back()};
    }

private:
    const QXmlStreamAttributes& attributes_;
};

void RigReader::start(const QString& name, const QXmlStreamAttributes& attributes, qint64 line)
{
    const bool placed = name == u"character" ? inside_ == Inside::Nothing
                        : name == u"track"   ? inside_ == Inside::Gesture
                                             : inside_ == Inside::Character;
    if (!placed || !open_.isEmpty()) {
        throw Defect{u"the element \"%1\" does not belong here"_s.arg(name.left(40))};
    }
    if (name == u"character") {
        return character({attributes, {u"version"_s, u"name"_s, u"size"_s}, {}});
    }
    if (name == u"gesture") {
        return gesture({attributes, {u"name"_s}, {u"ms"_s, u"same"_s}});
    }
    open_ = name;
    const QStringList target{u"bone"_s, u"ch"_s, u"slot"_s, u"layer"_s};
    if (name == u"bone") {
        bone({attributes, {u"id"_s, u"at"_s}, {u"parent"_s}});
    } else if (name == u"draw") {
        draw({attributes, {u"part"_s, u"bone"_s}, {u"slot"_s, u"layer"_s}}, line);
    } else if (name == u"rest") {
        rest({attributes, {u"value"_s}, target});
    } else if (name == u"idle") {
        idle({attributes, {u"bone"_s, u"ch"_s, u"amp"_s, u"ms"_s}, {u"phase"_s}});
    } else if (name == u"blink") {
        blink({attributes, {u"bone"_s, u"ch"_s, u"value"_s}, {}});
    } else if (name == u"look") {
        look({attributes, {u"bone"_s, u"x"_s, u"y"_s}, {}});
    } else if (name == u"mouth") {
        mouth({attributes, {u"shape"_s, u"part"_s}, {}});
    } else if (name == u"track") {
        track({attributes, {u"keys"_s}, target});
    } else {
        throw Defect{u"the element \"%1\" does not belong here"_s.arg(name.left(40))};
    }
}

void RigReader::end(const QString& name, qint64 line)
{
    if (name == u"character") {
        inside_ = Inside::Done;
        endLine_ = line;
    } else if (name == u"gesture") {
        inside_ = Inside::Character;
    } else {
        open_.clear();
    }
}

Rig RigReader::finish(const QSet<QString>& parts, const QRectF& drawing) const
{
    if (inside_ != Inside::Done) {
        throw Defect{u"there is no character in the file"_s};
    }
    for (std::size_t i = 0; i < rig_.draws.size(); ++i) {
        if (!parts.contains(rig_.draws[i].part)) {
            throw Defect{u"there is no part \"%1\" in the drawing"_s.arg(rig_.draws[i].part), drawLines_[i]};
        }
    }
    if (rig_.draws.empty()) {
        throw Defect{u"nothing is drawn"_s, endLine_};
    }
    for (int shape = 0; shape < static_cast<int>(mouthShapeCount); ++shape) {
        if (!shapes_.contains(shape)) {
            throw Defect{u"the mouth shape \"%1\" is missing"_s.arg(shapeNames[shape]), endLine_};
        }
    }
    for (const QString& name : requiredGestures()) {
        if (!rig_.gestureOfName.contains(name)) {
            throw Defect{u"the gesture \"%1\" is missing"_s.arg(name), endLine_};
        }
    }
    Rig rig = rig_;
    rig.drawing = drawing;
    return rig;
}

void RigReader::character(const Fields& fields)
{
    inside_ = Inside::Character;
    if (fields.text(u"version"_s) != u"1") {
        throw Defect{u"this version of the format is not known"_s};
    }
    const QPointF size = fields.pair(u"size"_s);
    within(50, size.x(), 400, u"the width"_s);
    within(50, size.y(), 400, u"the height"_s);
    rig_.size = QSizeF(size.x(), size.y());
}

void RigReader::bone(const Fields& fields)
{
    const QString id = fields.text(u"id"_s);
    if (rig_.bones.size() == maxBones) {
        throw Defect{u"there are more than %1 bones"_s.arg(maxBones)};
    }
    if (std::ranges::find(rig_.bones, id, &Bone::id) != rig_.bones.end()) {
        throw Defect{u"the bone \"%1\" is there twice"_s.arg(id.left(40))};
    }
    const int parent = fields.has(u"parent"_s) ? boneNamed(fields.text(u"parent"_s)) : -1;
    rig_.bones.push_back({id, parent, fields.pair(u"at"_s)});
    rig_.rest.bones.push_back({0, 0, 0, 1, 1});
}

void RigReader::draw(const Fields& fields, qint64 line)
{
    if (rig_.draws.size() == maxDraws) {
        throw Defect{u"there are more than %1 draws"_s.arg(maxDraws)};
    }
    Draw draw{fields.text(u"part"_s), boneNamed(fields.text(u"bone"_s))};
    if (fields.has(u"slot"_s)) {
        draw.slot = indexOrAdd(rig_.slots, fields.text(u"slot"_s));
    }
    if (fields.has(u"layer"_s)) {
        draw.layer = indexOrAdd(rig_.layers, fields.text(u"layer"_s));
    }
    rig_.draws.push_back(draw);
    drawLines_.push_back(line);
    rig_.rest.slots.resize(rig_.slots.size(), -1);
    rig_.rest.layers.resize(rig_.layers.size(), 0);
}

void RigReader::rest(const Fields& fields)
{
    const QString slotName = u"slot"_s;
    if (fields.has(slotName)) {
        const int slot = indexIn(rig_.slots, fields.text(slotName), slotName);
        rig_.rest.slots[static_cast<std::size_t>(slot)] = drawInSlot(slot, fields.text(u"value"_s));
        return;
    }
    const auto [bone, channel] = channelNamed(fields);
    rig_.rest.bones[static_cast<std::size_t>(bone)][static_cast<std::size_t>(channel)] =
        fields.number(u"value"_s);
}

void RigReader::idle(const Fields& fields)
{
    const auto [bone, channel] = channelNamed(fields);
    const double period = within(100, fields.number(u"ms"_s), 10'000, u"the period"_s);
    const double phase = fields.has(u"phase"_s) ? fields.number(u"phase"_s) : 0;
    if (rig_.sines.size() == maxSines) {
        throw Defect{u"there are more than %1 idle movements"_s.arg(maxSines)};
    }
    rig_.sines.push_back({bone, channel, fields.number(u"amp"_s), period, phase});
}

void RigReader::blink(const Fields& fields)
{
    const auto [bone, channel] = channelNamed(fields);
    if (rig_.lids.size() == maxBones) {
        throw Defect{u"there are more than %1 lids"_s.arg(maxBones)};
    }
    rig_.lids.push_back({bone, channel, fields.number(u"value"_s)});
}

void RigReader::look(const Fields& fields)
{
    if (rig_.looks.size() == maxBones) {
        throw Defect{u"there are more than %1 looks"_s.arg(maxBones)};
    }
    rig_.looks.push_back(
        {boneNamed(fields.text(u"bone"_s)), QPointF(fields.number(u"x"_s), fields.number(u"y"_s))});
}

void RigReader::mouth(const Fields& fields)
{
    const int shape = indexOf(shapeNames, fields.text(u"shape"_s), u"mouth shape"_s);
    const QString part = fields.text(u"part"_s);
    const auto draw = std::ranges::find(rig_.draws, part, &Draw::part);
    if (draw == rig_.draws.end() || draw->slot < 0 || (rig_.mouthSlot >= 0 && draw->slot != rig_.mouthSlot)) {
        throw Defect{u"\"%1\" is not drawn in the slot of the mouth"_s.arg(part.left(40))};
    }
    rig_.mouthSlot = draw->slot;
    rig_.mouths[static_cast<std::size_t>(shape)] = static_cast<int>(draw - rig_.draws.begin());
    shapes_.insert(shape);
}

void RigReader::gesture(const Fields& fields)
{
    const QString name = fields.text(u"name"_s);
    const bool alias = fields.has(u"same"_s);
    inside_ = alias ? Inside::Alias : Inside::Gesture;
    if (!isWord(name)) {
        throw Defect{u"\"%1\" is no name for a gesture"_s.arg(name.left(40))};
    }
    if (rig_.gestureOfName.contains(name)) {
        throw Defect{u"the gesture \"%1\" is there twice"_s.arg(name.left(40))};
    }
    if (static_cast<std::size_t>(rig_.gestureOfName.size()) == maxGestures) {
        throw Defect{u"there are more than %1 gestures"_s.arg(maxGestures)};
    }
    if (alias) {
        const auto same = rig_.gestureOfName.constFind(fields.text(u"same"_s));
        if (same == rig_.gestureOfName.cend()) {
            throw Defect{
                u"there is no gesture \"%1\" before this one"_s.arg(fields.text(u"same"_s).left(40))};
        }
        const int index = *same; // the entry moves when the table grows
        rig_.gestureOfName.insert(name, index);
        return;
    }
    const double length = within(minGestureMs, fields.number(u"ms"_s), maxGestureMs, u"the length"_s);
    rig_.gestureOfName.insert(name, static_cast<int>(rig_.gestures.size()));
    rig_.gestures.push_back({name, length, {}, {}});
}

void RigReader::track(const Fields& fields)
{
    Gesture& gesture = rig_.gestures.back();
    if (gesture.curves.size() + gesture.steps.size() == maxTracks) {
        throw Defect{u"there are more than %1 tracks"_s.arg(maxTracks)};
    }
    const QString keyText = fields.text(u"keys"_s);
    const bool ofLayer = fields.has(u"layer"_s);
    if (!ofLayer && !fields.has(u"slot"_s)) {
        const auto [bone, channel] = channelNamed(fields);
        gesture.curves.push_back({bone, channel, keys(keyText)});
        return;
    }
    Steps track{ofLayer,
                ofLayer ? indexIn(rig_.layers, fields.text(u"layer"_s), u"layer"_s)
                        : indexIn(rig_.slots, fields.text(u"slot"_s), u"slot"_s),
                {}};
    track.steps = steps(track, keyText);
    gesture.steps.push_back(std::move(track));
}

int RigReader::boneNamed(const QString& id) const
{
    const auto found = std::ranges::find(rig_.bones, id, &Bone::id);
    if (found == rig_.bones.end()) {
        throw Defect{u"there is no bone \"%1\" before this place"_s.arg(id.left(40))};
    }
    return static_cast<int>(found - rig_.bones.begin());
}

std::pair<int, Channel> RigReader::channelNamed(const Fields& fields) const
{
    return {boneNamed(fields.text(u"bone"_s)),
            static_cast<Channel>(indexOf(channelNames, fields.text(u"ch"_s), u"channel"_s))};
}

int RigReader::drawInSlot(int slot, const QString& part) const
{
    if (part == u"none") {
        return -1;
    }
    for (std::size_t i = 0; i < rig_.draws.size(); ++i) {
        if (rig_.draws[i].slot == slot && rig_.draws[i].part == part) {
            return static_cast<int>(i);
        }
    }
    throw Defect{u"\"%1\" is not drawn in this slot"_s.arg(part.left(40))};
}

QStringList RigReader::keyTexts(const QString& text)
{
    QStringList entries = text.split(u';');
    keys_ += entries.size();
    if (entries.size() > maxKeys || keys_ > maxAllKeys) {
        throw Defect{u"there are more than %1 keys, or %2 in all"_s.arg(maxKeys).arg(maxAllKeys)};
    }
    return entries;
}

std::vector<Key> RigReader::keys(const QString& text)
{
    std::vector<Key> keys;
    for (const QString& entry : keyTexts(text)) {
        const QStringList words = entry.simplified().split(u' ');
        if (words.size() < 2 || words.size() > 3) {
            throw Defect{u"\"%1\" is no key"_s.arg(entry.left(40))};
        }
        Key key{.timeMs = keyTime(words[0], keys.empty() ? -1 : keys.back().timeMs), .value = {}};
        if (words[1] != u"*") {
            key.value = numberOf(words[1], u"a key"_s);
        }
        if (words.size() == 3) {
            key.ease = static_cast<Ease>(indexOf(easeNames, words[2], u"ease"_s));
        }
        keys.push_back(key);
    }
    return keys;
}

std::vector<Step> RigReader::steps(const Steps& track, const QString& text)
{
    std::vector<Step> steps;
    for (const QString& entry : keyTexts(text)) {
        const QStringList words = entry.simplified().split(u' ');
        if (words.size() != 2) {
            throw Defect{u"\"%1\" is no key"_s.arg(entry.left(40))};
        }
        Step step{keyTime(words[0], steps.empty() ? -1 : steps.back().timeMs), {}};
        if (words[1] != u"*") {
            step.value = track.ofLayer ? static_cast<int>(numberOf(words[1], u"a depth"_s))
                                       : drawInSlot(track.target, words[1]);
        }
        steps.push_back(step);
    }
    return steps;
}

double RigReader::keyTime(const QString& text, double after) const
{
    const double time = numberOf(text, u"the time of a key"_s);
    if (time <= after || time < 0 || time > rig_.gestures.back().lengthMs) {
        throw Defect{u"the keys must rise in time within the gesture (%1)"_s.arg(time)};
    }
    return time;
}

} // namespace narrator

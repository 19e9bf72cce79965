#include "rig/rig_reader.h"

#include "rig/drawing_rules.h"

#include <QStringList>

#include <algorithm>

namespace rig {

namespace {

constexpr std::size_t maxBones = 64;
constexpr std::size_t maxDraws = 200;
constexpr qsizetype maxGestures = 100;
constexpr std::size_t maxTracks = 200;
constexpr std::size_t maxSines = 64;
constexpr qsizetype maxKeys = 64; ///< of a track
constexpr qsizetype maxAllKeys = 20'000;
constexpr double minGestureMs = 50;
constexpr double maxGestureMs = 30'000;

const QStringList& requiredGestures()
{
    static const QStringList names{"Alert",        "Announce",    "announce",       "blink",    "confused",
                                   "Congratulate", "Decline",     "Congratulate_2", "DoMagic1", "DoMagic2",
                                   "Explain",      "GestureDown", "Greet",          "RestPose", "Sad",
                                   "sad",          "Search",      "Show",           "suggest",  "Think",
                                   "think",        "Thinking",    "Uncertain"};
    return names;
}

const QStringList channelNames{"rot", "x", "y", "sx", "sy"};
const QStringList easeNames{"lin", "in", "out", "inout", "back", "hold"};
const QStringList shapeNames{"Rest", "M", "F", "T", "S", "E", "A", "O", "U"};

/// The place of `name` among names that something may have.
template <typename Names>
int indexOf(const Names& names, const QString& name, const char* otherwise)
{
    const auto found = std::ranges::find(names, name);
    if (found == names.end())
        throw defectIn(name, otherwise);
    return static_cast<int>(found - names.begin());
}

int indexOrAdd(std::vector<QString>& names, const QString& name)
{
    const auto found = std::ranges::find(names, name);
    if (found != names.end())
        return static_cast<int>(found - names.begin());
    names.push_back(name);
    return static_cast<int>(names.size()) - 1;
}

double numberOf(const QString& text, const QString& what)
{
    // Times in a gesture are the largest numbers there are.
    const auto number = plainNumber(text, maxGestureMs + 1);
    if (!number)
        throw Defect{QString("\"%1\" is no number for %2").arg(text.left(40), what)};
    return *number;
}

double within(double low, double value, double high, const QString& what)
{
    if (value < low || value > high)
        throw Defect{QString("%1 must be %2 to %3").arg(what).arg(low).arg(high)};
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
            if (!needed.contains(name) && !allowed.contains(name))
                throw defectIn(name, "the attribute \"%1\" is not allowed");
        }
        for (const QString& name : needed)
            if (!has(name))
                throw Defect{QString("the attribute \"%1\" is missing").arg(name)};
    }

    [[nodiscard]] bool has(const QString& name) const { return attributes_.hasAttribute(name); }
    [[nodiscard]] QString text(const QString& name) const { return attributes_.value(name).toString(); }

    [[nodiscard]] double number(const QString& name) const
    {
        return numberOf(text(name), QString("the attribute \"%1\"").arg(name));
    }

    [[nodiscard]] QPointF pair(const QString& name) const
    {
        const auto numbers = plainNumbers(text(name));
        if (!numbers || numbers->size() != 2)
            throw Defect{QString("the attribute \"%1\" must be two numbers").arg(name)};
        return {numbers->front(), numbers->back()};
    }

private:
    const QXmlStreamAttributes& attributes_;
};

void RigReader::start(const QString& name, const QXmlStreamAttributes& attributes, qint64 line)
{
    static const QStringList target{"bone", "ch", "slot", "layer"};
    static const struct
    {
        QString name;
        Inside place;
        QStringList needed, allowed;
        void (RigReader::*read)(const Fields&);
    } table[]{
        {"character", Inside::Nothing, {"version", "name", "size"}, {}, &RigReader::character},
        {"bone", Inside::Character, {"id", "at"}, {"parent"}, &RigReader::bone},
        {"draw", Inside::Character, {"part", "bone"}, {"slot", "layer"}, &RigReader::draw},
        {"rest", Inside::Character, {"value"}, target, &RigReader::rest},
        {"idle", Inside::Character, {"bone", "ch", "amp", "ms"}, {"phase"}, &RigReader::idle},
        {"blink", Inside::Character, {"bone", "ch", "value"}, {}, &RigReader::blink},
        {"look", Inside::Character, {"bone", "x", "y"}, {}, &RigReader::look},
        {"mouth", Inside::Character, {"shape", "part"}, {}, &RigReader::mouth},
        {"gesture", Inside::Character, {"name"}, {"ms", "same"}, &RigReader::gesture},
        {"track", Inside::Gesture, {"keys"}, target, &RigReader::track},
    };
    for (const auto& row : table)
        if (row.name == name && row.place == inside_ && open_.isEmpty()) {
            line_ = line;
            if (name != u"character" && name != u"gesture")
                open_ = name;
            return (this->*row.read)({attributes, row.needed, row.allowed});
        }
    throw defectIn(name, "the element \"%1\" does not belong here");
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
    if (inside_ != Inside::Done)
        throw Defect{"there is no character in the file"};
    for (std::size_t i = 0; i < rig_.draws.size(); ++i)
        if (!parts.contains(rig_.draws[i].part))
            throw Defect{QString("there is no part \"%1\" in the drawing").arg(rig_.draws[i].part),
                         drawLines_[i]};
    if (rig_.draws.empty())
        throw Defect{"nothing is drawn", endLine_};
    for (int shape = 0; shape < static_cast<int>(mouth::shapeCount); ++shape)
        if (!shapes_.contains(shape))
            throw Defect{QString("the mouth shape \"%1\" is missing").arg(shapeNames[shape]), endLine_};
    for (const QString& name : requiredGestures())
        if (!rig_.gestureOfName.contains(name))
            throw Defect{QString("the gesture \"%1\" is missing").arg(name), endLine_};
    Rig rig = rig_;
    rig.drawing = drawing;
    return rig;
}

void RigReader::character(const Fields& fields)
{
    inside_ = Inside::Character;
    if (fields.text("version") != u"1")
        throw Defect{"this version of the format is not known"};
    const QPointF size = fields.pair("size");
    within(50, size.x(), 400, "the width");
    within(50, size.y(), 400, "the height");
    rig_.size = QSizeF(size.x(), size.y());
}

void RigReader::bone(const Fields& fields)
{
    const QString id = fields.text("id");
    if (rig_.bones.size() == maxBones)
        throw Defect{QString("there are more than %1 bones").arg(maxBones)};
    if (std::ranges::find(rig_.bones, id, &Bone::id) != rig_.bones.end())
        throw defectIn(id, "the bone \"%1\" is there twice");
    const int parent = fields.has("parent") ? boneNamed(fields.text("parent")) : -1;
    rig_.bones.push_back({id, parent, fields.pair("at")});
    rig_.rest.bones.push_back({0, 0, 0, 1, 1});
}

void RigReader::draw(const Fields& fields)
{
    if (rig_.draws.size() == maxDraws)
        throw Defect{QString("there are more than %1 draws").arg(maxDraws)};
    Draw draw{fields.text("part"), boneNamed(fields.text("bone"))};
    if (fields.has("slot"))
        draw.slot = indexOrAdd(rig_.slots, fields.text("slot"));
    if (fields.has("layer"))
        draw.layer = indexOrAdd(rig_.layers, fields.text("layer"));
    rig_.draws.push_back(draw);
    drawLines_.push_back(line_);
    rig_.rest.slots.resize(rig_.slots.size(), -1);
    rig_.rest.layers.resize(rig_.layers.size(), 0);
}

void RigReader::rest(const Fields& fields)
{
    const QString slotName = "slot";
    if (fields.has(slotName)) {
        const int slot = indexOf(rig_.slots, fields.text(slotName), R"(there is no slot "%1")");
        rig_.rest.slots[slot] = drawInSlot(slot, fields.text("value"));
        return;
    }
    const auto [bone, channel] = channelNamed(fields);
    rig_.rest.bones[bone][static_cast<std::size_t>(channel)] = fields.number("value");
}

void RigReader::idle(const Fields& fields)
{
    const auto [bone, channel] = channelNamed(fields);
    const double period = within(100, fields.number("ms"), 10'000, "the period");
    const double phase = fields.has("phase") ? fields.number("phase") : 0;
    if (rig_.sines.size() == maxSines)
        throw Defect{QString("there are more than %1 idle movements").arg(maxSines)};
    rig_.sines.push_back({bone, channel, fields.number("amp"), period, phase});
}

void RigReader::blink(const Fields& fields)
{
    const auto [bone, channel] = channelNamed(fields);
    if (rig_.lids.size() == maxBones)
        throw Defect{QString("there are more than %1 lids").arg(maxBones)};
    rig_.lids.push_back({bone, channel, fields.number("value")});
}

void RigReader::look(const Fields& fields)
{
    if (rig_.glances.size() == maxBones)
        throw Defect{QString("there are more than %1 looks").arg(maxBones)};
    rig_.glances.push_back({boneNamed(fields.text("bone")), QPointF(fields.number("x"), fields.number("y"))});
}

void RigReader::mouth(const Fields& fields)
{
    const int shape = indexOf(shapeNames, fields.text("shape"), R"(there is no mouth shape "%1")");
    const QString part = fields.text("part");
    const auto draw = std::ranges::find(rig_.draws, part, &Draw::part);
    if (draw == rig_.draws.end() || draw->slot < 0 || (rig_.mouthSlot >= 0 && draw->slot != rig_.mouthSlot))
        throw defectIn(part, "\"%1\" is not drawn in the slot of the mouth");
    rig_.mouthSlot = draw->slot;
    rig_.mouths[shape] = static_cast<int>(draw - rig_.draws.begin());
    shapes_.insert(shape);
}

void RigReader::gesture(const Fields& fields)
{
    const QString name = fields.text("name");
    const bool alias = fields.has("same");
    inside_ = alias ? Inside::Alias : Inside::Gesture;
    if (!isWord(name))
        throw defectIn(name, "\"%1\" is no name for a gesture");
    if (rig_.gestureOfName.contains(name))
        throw defectIn(name, "the gesture \"%1\" is there twice");
    if (rig_.gestureOfName.size() == maxGestures)
        throw Defect{QString("there are more than %1 gestures").arg(maxGestures)};
    if (alias) {
        const auto same = rig_.gestureOfName.constFind(fields.text("same"));
        if (same == rig_.gestureOfName.cend())
            throw defectIn(fields.text("same"), "there is no gesture \"%1\" before this one");
        const int index = *same; // the entry moves when the table grows
        rig_.gestureOfName.insert(name, index);
        return;
    }
    const double length = within(minGestureMs, fields.number("ms"), maxGestureMs, "the length");
    rig_.gestureOfName.insert(name, static_cast<int>(rig_.gestures.size()));
    rig_.gestures.push_back({name, length, {}, {}});
}

void RigReader::track(const Fields& fields)
{
    Gesture& gesture = rig_.gestures.back();
    if (gesture.curves.size() + gesture.steps.size() == maxTracks)
        throw Defect{QString("there are more than %1 tracks").arg(maxTracks)};
    const QString keyText = fields.text("keys");
    const bool ofLayer = fields.has("layer");
    if (!ofLayer && !fields.has("slot")) {
        const auto [bone, channel] = channelNamed(fields);
        gesture.curves.push_back({bone, channel, keys(keyText)});
        return;
    }
    Steps track{ofLayer,
                ofLayer ? indexOf(rig_.layers, fields.text("layer"), R"(there is no layer "%1")")
                        : indexOf(rig_.slots, fields.text("slot"), R"(there is no slot "%1")"),
                {}};
    track.steps = steps(track, keyText);
    gesture.steps.push_back(std::move(track));
}

int RigReader::boneNamed(const QString& id) const
{
    const auto found = std::ranges::find(rig_.bones, id, &Bone::id);
    if (found == rig_.bones.end())
        throw defectIn(id, "there is no bone \"%1\" before this place");
    return static_cast<int>(found - rig_.bones.begin());
}

std::pair<int, Channel> RigReader::channelNamed(const Fields& fields) const
{
    return {boneNamed(fields.text("bone")),
            static_cast<Channel>(indexOf(channelNames, fields.text("ch"), R"(there is no channel "%1")"))};
}

int RigReader::drawInSlot(int slot, const QString& part) const
{
    if (part == u"none")
        return -1;
    for (std::size_t i = 0; i < rig_.draws.size(); ++i)
        if (rig_.draws[i].slot == slot && rig_.draws[i].part == part)
            return static_cast<int>(i);
    throw defectIn(part, "\"%1\" is not drawn in this slot");
}

QStringList RigReader::keyTexts(const QString& text)
{
    QStringList entries = text.split(u';');
    keys_ += entries.size();
    if (entries.size() > maxKeys || keys_ > maxAllKeys)
        throw Defect{QString("there are more than %1 keys, or %2 in all").arg(maxKeys).arg(maxAllKeys)};
    return entries;
}

std::vector<Key> RigReader::keys(const QString& text)
{
    std::vector<Key> keys;
    for (const QString& entry : keyTexts(text)) {
        const QStringList words = entry.simplified().split(u' ');
        if (words.size() < 2 || words.size() > 3)
            throw defectIn(entry, "\"%1\" is no key");
        Key key{.timeMs = keyTime(words[0], keys.empty() ? -1 : keys.back().timeMs), .value = {}};
        if (words[1] != u"*")
            key.value = numberOf(words[1], "a key");
        if (words.size() == 3)
            key.ease = static_cast<Ease>(indexOf(easeNames, words[2], R"(there is no ease "%1")"));
        keys.push_back(key);
    }
    return keys;
}

std::vector<Step> RigReader::steps(const Steps& track, const QString& text)
{
    std::vector<Step> steps;
    for (const QString& entry : keyTexts(text)) {
        const QStringList words = entry.simplified().split(u' ');
        if (words.size() != 2)
            throw defectIn(entry, "\"%1\" is no key");
        Step step{keyTime(words[0], steps.empty() ? -1 : steps.back().timeMs), {}};
        if (words[1] != u"*") {
            step.value = track.ofLayer ? static_cast<int>(numberOf(words[1], "a depth"))
                                       : drawInSlot(track.target, words[1]);
        }
        steps.push_back(step);
    }
    return steps;
}

double RigReader::keyTime(const QString& text, double after) const
{
    const double time = numberOf(text, "the time of a key");
    if (time <= after || time < 0 || time > rig_.gestures.back().lengthMs)
        throw Defect{QString("the keys must rise in time within the gesture (%1)").arg(time)};
    return time;
}

} // namespace rig

#include "rig/rig_reader.h"

#include "rig/drawing_rules.h"

#include <QStringList>

#include <algorithm>
#include <limits>

namespace rig {

namespace {

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
int indexOf(const QStringList& names, const QString& name, const char* otherwise)
{
    const qsizetype index = names.indexOf(name);
    if (index < 0)
        throw defectIn(name, otherwise);
    return static_cast<int>(index);
}

double numberOf(const QString& text)
{
    // Times in a gesture are the largest numbers there are.
    const auto number = plainNumber(text, maxGestureMs + 1);
    if (!number)
        throw defectIn(text, "\"%1\" is no number");
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

    [[nodiscard]] double number(const QString& name) const { return numberOf(text(name)); }

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
    constexpr int anyNumber = std::numeric_limits<int>::max();
    static const struct
    {
        QString name;
        Inside inside;
        int most; ///< of them in the character, or in the gesture
        QStringList needed, allowed;
        void (RigReader::*read)(const Fields&);
    } table[]{
        {"character", Inside::Nothing, 1, {"version", "name", "size"}, {}, &RigReader::character},
        {"bone", Inside::Character, 64, {"id", "at"}, {"parent"}, &RigReader::bone},
        {"draw", Inside::Character, 200, {"part", "bone"}, {"slot", "layer"}, &RigReader::draw},
        {"rest", Inside::Character, anyNumber, {"value"}, {"bone", "ch", "slot"}, &RigReader::rest},
        {"idle", Inside::Character, 64, {"bone", "ch", "amp", "ms"}, {"phase"}, &RigReader::idle},
        {"blink", Inside::Character, 64, {"bone", "ch", "value"}, {}, &RigReader::blink},
        {"look", Inside::Character, 64, {"bone", "x", "y"}, {}, &RigReader::look},
        {"mouth", Inside::Character, anyNumber, {"shape", "part"}, {}, &RigReader::mouth},
        {"gesture", Inside::Character, 100, {"name"}, {"ms", "same"}, &RigReader::gesture},
        {"track", Inside::Gesture, 200, {"keys"}, {"bone", "ch", "slot", "layer"}, &RigReader::track},
    };
    for (const auto& [element, inside, most, needed, allowed, read] : table)
        if (element == name && inside == inside_) {
            inside_ = Inside::Leaf;
            line_ = line;
            if (++counts_[name] > most)
                throw Defect{QString("there are more than %1 %2s").arg(most).arg(name)};
            return (this->*read)({attributes, needed, allowed});
        }
    throw defectIn(name, "the element \"%1\" does not belong here");
}

void RigReader::end(const QString& name)
{
    inside_ = name == u"character" ? Inside::Done : name == u"track" ? Inside::Gesture : Inside::Character;
    if (inside_ != Inside::Done)
        return;
    if (rig_.draws.empty())
        throw Defect{"nothing is drawn"};
    if (const auto* const missing = std::ranges::find(rig_.mouths, -1); missing != rig_.mouths.end())
        throw defectIn(shapeNames[missing - rig_.mouths.begin()], "the mouth shape \"%1\" is missing");
    for (const QString& gesture : requiredGestures())
        if (!rig_.gestureOfName.contains(gesture))
            throw defectIn(gesture, "the gesture \"%1\" is missing");
}

Rig RigReader::finish(const QSet<QString>& parts, const QRectF& drawing) const
{
    if (inside_ != Inside::Done)
        throw Defect{"there is no character in the file"};
    for (std::size_t i = 0; i < rig_.draws.size(); ++i)
        if (!parts.contains(rig_.draws[i].part))
            throw Defect{QString("there is no part \"%1\" in the drawing").arg(rig_.draws[i].part),
                         drawLines_[i]};
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
    rig_.mouths.fill(-1);
}

void RigReader::bone(const Fields& fields)
{
    const QString id = fields.text("id");
    if (std::ranges::find(rig_.bones, id, &Bone::id) != rig_.bones.end())
        throw defectIn(id, "the bone \"%1\" is there twice");
    const int parent = fields.has("parent") ? boneNamed(fields.text("parent")) : -1;
    rig_.bones.push_back({id, parent, fields.pair("at")});
    rig_.rest.bones.push_back({0, 0, 0, 1, 1});
}

void RigReader::draw(const Fields& fields)
{
    const auto switchNamed = [&](const QString& kind, double atRest) {
        if (!fields.has(kind))
            return -1;
        const QString name = kind + ' ' + fields.text(kind);
        if (!switches_.contains(name)) {
            switches_.push_back(name);
            rig_.rest.switches.push_back(atRest);
        }
        return static_cast<int>(switches_.indexOf(name));
    };
    rig_.draws.push_back({fields.text("part"), boneNamed(fields.text("bone")), switchNamed("slot", -1),
                          switchNamed("layer", 0)});
    drawLines_.push_back(line_);
}

void RigReader::rest(const Fields& fields)
{
    const Place place = placeOf(fields);
    rig_.rest[place] = valueOf(place, fields.text("value"));
}

void RigReader::idle(const Fields& fields)
{
    const double period = within(100, fields.number("ms"), 10'000, "the period");
    const double phase = fields.has("phase") ? fields.number("phase") : 0;
    rig_.sines.push_back({placeOf(fields), fields.number("amp"), period, phase});
}

void RigReader::blink(const Fields& fields)
{
    rig_.lids.push_back({placeOf(fields), fields.number("value")});
}

void RigReader::look(const Fields& fields)
{
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
}

void RigReader::gesture(const Fields& fields)
{
    const QString name = fields.text("name");
    if (!isWord(name))
        throw defectIn(name, "\"%1\" is no name for a gesture");
    if (rig_.gestureOfName.contains(name))
        throw defectIn(name, "the gesture \"%1\" is there twice");
    if (fields.has("same")) {
        const auto same = rig_.gestureOfName.constFind(fields.text("same"));
        if (same == rig_.gestureOfName.cend())
            throw defectIn(fields.text("same"), "there is no gesture \"%1\" before this one");
        const int index = *same; // the entry moves when the table grows
        rig_.gestureOfName.insert(name, index);
        return;
    }
    inside_ = Inside::Gesture;
    counts_["track"] = 0;
    const double length = within(minGestureMs, fields.number("ms"), maxGestureMs, "the length");
    rig_.gestureOfName.insert(name, static_cast<int>(rig_.gestures.size()));
    rig_.gestures.push_back({name, length, {}});
}

void RigReader::track(const Fields& fields)
{
    const QStringList entries = fields.text("keys").split(u';');
    keys_ += entries.size();
    if (entries.size() > maxKeys || keys_ > maxAllKeys)
        throw Defect{QString("there are more than %1 keys, or %2 in all").arg(maxKeys).arg(maxAllKeys)};
    Track track{placeOf(fields), {}};
    double after = -1;
    for (const QString& entry : entries) {
        track.keys.push_back(key(track.place, entry, after));
        after = track.keys.back().timeMs;
    }
    rig_.gestures.back().tracks.push_back(std::move(track));
}

Key RigReader::key(const Place& place, const QString& text, double after) const
{
    const bool eased = place.bone >= 0;
    const QStringList words = text.simplified().split(u' ');
    if (words.size() < 2 || words.size() > (eased ? 3 : 2))
        throw defectIn(text, "\"%1\" is no key");
    Key key{numberOf(words[0]), {}, eased ? Ease::InOut : Ease::Hold};
    if (key.timeMs <= after || key.timeMs < 0 || key.timeMs > rig_.gestures.back().lengthMs)
        throw defectIn(text, "the keys must rise in time within the gesture (%1)");
    if (words[1] != u"*")
        key.value = valueOf(place, words[1]);
    if (words.size() == 3)
        key.ease = static_cast<Ease>(indexOf(easeNames, words[2], R"(there is no ease "%1")"));
    return key;
}

Place RigReader::placeOf(const Fields& fields) const
{
    for (const QString kind : {"slot", "layer"})
        if (fields.has(kind))
            return {-1, indexOf(switches_, kind + ' ' + fields.text(kind), R"(there is no %1)")};
    return {boneNamed(fields.text("bone")),
            indexOf(channelNames, fields.text("ch"), R"(there is no channel "%1")")};
}

double RigReader::valueOf(const Place& place, const QString& text) const
{
    if (place.bone >= 0 || !switches_[place.index].startsWith("slot "))
        return numberOf(text);
    if (text == u"none")
        return -1;
    for (std::size_t i = 0; i < rig_.draws.size(); ++i)
        if (rig_.draws[i].slot == place.index && rig_.draws[i].part == text)
            return static_cast<double>(i);
    throw defectIn(text, "\"%1\" is not drawn in this slot");
}

int RigReader::boneNamed(const QString& id) const
{
    const auto found = std::ranges::find(rig_.bones, id, &Bone::id);
    if (found == rig_.bones.end())
        throw defectIn(id, "there is no bone \"%1\" before this place");
    return static_cast<int>(found - rig_.bones.begin());
}

} // namespace rig

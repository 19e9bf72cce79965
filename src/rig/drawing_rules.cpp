#include "rig/drawing_rules.h"

#include <QLineF>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace rig {

namespace {

constexpr qsizetype maxPathCharacters = 16'000;
constexpr qsizetype maxAllPathCharacters = 512'000;
// Painting takes its time for the pixels that an outline encloses and, as the edges that cross a line of
// pixels are kept in order one by one, for every edge as many steps as there are others beside it. All that
// is drawn may cost as much as so many pixels, on a picture of the width below.
constexpr double costOfStep = 16; ///< a pixel costs 1
constexpr double maxCost = 50'000'000;
constexpr double pictureWidth = 400;
constexpr double maxReach = 1000; ///< what lies farther out is not painted
constexpr double maxStrokeWidth = 40;

enum class Kind { Number, Width, Numbers, Share, Paint, Colour, Word, Path, Transform };

/// What the value of an attribute must be.
const QHash<QString, Kind>& kinds()
{
    static const QHash<QString, Kind> table = [] {
        const std::pair<Kind, const char*> rows[]{
            {Kind::Number, "x y width height x1 y1 x2 y2 cx cy r rx ry fx fy"},
            {Kind::Width, "stroke-width"},
            {Kind::Numbers, "viewBox"},
            {Kind::Share, "opacity fill-opacity stroke-opacity stop-opacity offset"},
            {Kind::Paint, "fill stroke"},
            {Kind::Colour, "stop-color"},
            {Kind::Word, "version baseProfile stroke-linejoin stroke-linecap fill-rule gradientUnits "
                         "spreadMethod id"},
            {Kind::Path, "d"},
            {Kind::Transform, "transform gradientTransform"},
        };
        QHash<QString, Kind> kindOfName;
        for (const auto& [kind, names] : rows)
            for (const QString& name : QString(names).split(u' '))
                kindOfName.insert(name, kind);
        return kindOfName;
    }();
    return table;
}

const QSet<QString>& elements()
{
    static const QSet<QString> table{"svg",  "metadata",       "defs",          "g",
                                     "path", "ellipse",        "circle",        "rect",
                                     "stop", "linearGradient", "radialGradient"};
    return table;
}

/// The outline of an element that is one by its name.
QPainterPath shape(const QString& name, const QXmlStreamAttributes& attributes)
{
    const auto number = [&](const QString& key, double otherwise = 0) {
        return plainNumber(attributes.value(key)).value_or(otherwise);
    };
    QPainterPath outline;
    if (name == u"rect") {
        outline.addRect(number("x"), number("y"), number("width"), number("height"));
    } else if (name == u"circle" || name == u"ellipse") {
        const double radius = number("r");
        outline.addEllipse(QPointF(number("cx"), number("cy")), number("rx", radius), number("ry", radius));
    }
    return outline;
}

/// At least as long as the outline: curves count by their control points.
double lengthOf(const QPainterPath& outline)
{
    double length = 0;
    for (int i = 1; i < outline.elementCount(); ++i)
        if (!outline.elementAt(i).isMoveTo())
            length += QLineF(outline.elementAt(i - 1), outline.elementAt(i)).length();
    return length;
}

} // namespace

Defect defectIn(QStringView quotation, const char* text)
{
    constexpr qsizetype longest = 40;
    return {QString(text).arg(quotation.left(longest))};
}

void DrawingRules::element(const QString& name, const QXmlStreamAttributes& attributes, int depth,
                           qint64 line)
{
    if (!elements().contains(name) || (name == u"svg") != (depth == 0))
        throw defectIn(name, "the element \"%1\" does not belong here");
    for (const QXmlStreamAttribute& entry : attributes) {
        if (!entry.namespaceUri().isEmpty())
            throw defectIn(entry.qualifiedName(), "the attribute \"%1\" is not allowed");
        attribute(name, entry.name().toString(), entry.value(), line);
    }
    enter(attributes, depth);
    spend(name == u"path" ? std::exchange(outline_, {}) : shape(name, attributes));
    const QString id = attributes.value("id").toString();
    if (id.isEmpty())
        return;
    if (ids_.contains(id))
        throw Defect{QString("the id \"%1\" is used twice").arg(id)};
    ids_.insert(id);
    if (name.endsWith(u"Gradient"))
        gradients_.insert(id);
    else if (name == u"g" && depth == 1)
        parts_.insert(id);
}

void DrawingRules::checkReferences() const
{
    for (auto it = references_.cbegin(); it != references_.cend(); ++it)
        if (!gradients_.contains(it.key()))
            throw Defect{QString("there is no gradient \"%1\"").arg(it.key()), it.value()};
}

void DrawingRules::attribute(const QString& element, const QString& name, QStringView value, qint64 line)
{
    const auto kind = kinds().constFind(name);
    if (kind == kinds().cend())
        throw Defect{QString(R"(the attribute "%1" of "%2" is not allowed)").arg(name.left(40), element)};
    bool good = true;
    switch (*kind) {
    case Kind::Number:
        good = plainNumber(value).has_value();
        break;
    case Kind::Width:
        good = plainNumber(value, maxStrokeWidth).has_value();
        break;
    case Kind::Numbers:
        good = plainNumbers(value).has_value();
        break;
    case Kind::Share: {
        const auto share = plainNumber(value);
        good = share && *share >= 0 && *share <= 1;
        break;
    }
    case Kind::Colour:
        good = isColour(value);
        break;
    case Kind::Word:
        good = isWord(value);
        break;
    case Kind::Transform:
        good = plainTransform(value).has_value();
        break;
    case Kind::Paint:
        return paint(value, line);
    case Kind::Path:
        return path(value);
    }
    if (!good)
        throw Defect{QString(R"("%1" is no value for the attribute "%2")").arg(value.left(40), name)};
}

void DrawingRules::paint(QStringView value, qint64 line)
{
    if (value == u"none" || isColour(value))
        return;
    const bool reference = value.startsWith(u"url(#") && value.endsWith(u')');
    const QStringView id = reference ? value.sliced(5).chopped(1) : QStringView();
    if (!isWord(id))
        throw defectIn(value, "\"%1\" is no colour");
    if (!references_.contains(id.toString()))
        references_.insert(id.toString(), line);
}

void DrawingRules::path(QStringView data)
{
    pathCharacters_ += data.size();
    if (data.size() > maxPathCharacters || pathCharacters_ > maxAllPathCharacters)
        throw Defect{"the outlines are too long"};
    QStringView bad;
    const auto outline = outlineOf(data, bad);
    if (!outline)
        throw defectIn(bad, "\"%1\" is no part of an outline");
    outline_ = *outline;
}

void DrawingRules::enter(const QXmlStreamAttributes& attributes, int depth)
{
    paints_.resize(depth);
    Paint paint = paints_.empty() ? Paint() : paints_.back();
    if (const auto box = plainNumbers(attributes.value("viewBox"));
        paints_.empty() && box && box->size() == 4) {
        const double scale = pictureWidth / std::max(1.0, (*box)[2]);
        paint.transform.scale(scale, scale);
    }
    if (const auto transform = plainTransform(attributes.value("transform")))
        paint.transform = *transform * paint.transform;
    if (attributes.hasAttribute("stroke"))
        paint.stroked = attributes.value("stroke") != u"none";
    if (const auto width = plainNumber(attributes.value("stroke-width")))
        paint.strokeWidth = std::abs(*width);
    paints_.push_back(paint);
}

void DrawingRules::spend(const QPainterPath& outline)
{
    if (outline.isEmpty())
        return;
    const Paint& paint = paints_.back();
    const QPainterPath drawn = paint.transform.map(outline);
    // No line becomes wider than by the length of the transform's columns taken together.
    const double widening = std::hypot(std::hypot(paint.transform.m11(), paint.transform.m12()),
                                       std::hypot(paint.transform.m21(), paint.transform.m22()));
    const double strokeWidth = paint.stroked ? paint.strokeWidth * widening : 0;
    const QRectF box = drawn.controlPointRect();
    const double width = std::clamp(box.width() + strokeWidth, 1.0, maxReach);
    const double height = std::clamp(box.height() + strokeWidth, 1.0, maxReach);
    const auto painting = [&](double edges) {
        return width * height + costOfStep * edges * std::min(edges / height, width);
    };
    const double length = lengthOf(drawn);
    cost_ += painting(length);
    if (paint.stroked)
        cost_ += painting(2 * length + outline.elementCount() * strokeWidth * std::numbers::pi);
    if (!(cost_ <= maxCost))
        throw Defect{"the drawing takes too long to paint"};
}

} // namespace rig

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

const QString reference = "url(#";

bool isPaint(QStringView text)
{
    return text == u"none" || isColour(text) ||
           (text.startsWith(reference) && text.endsWith(u')') &&
            isWord(text.sliced(reference.size()).chopped(1)));
}

using Rule = bool (*)(QStringView);

/// What the value of an attribute must be.
const QHash<QString, Rule>& rules()
{
    static const QHash<QString, Rule> table = [] {
        const std::pair<const char*, Rule> rows[]{
            {"x y width height x1 y1 x2 y2 cx cy r rx ry fx fy",
             [](QStringView text) { return plainNumber(text).has_value(); }},
            {"stroke-width", [](QStringView text) { return plainNumber(text, maxStrokeWidth).has_value(); }},
            {"opacity fill-opacity stroke-opacity stop-opacity offset",
             [](QStringView text) { return std::abs(plainNumber(text).value_or(2) - 0.5) <= 0.5; }},
            {"viewBox", [](QStringView text) { return plainNumbers(text).has_value(); }},
            {"fill stroke", isPaint},
            {"stop-color", isColour},
            {"version baseProfile stroke-linejoin stroke-linecap fill-rule gradientUnits spreadMethod id",
             isWord},
            {"transform gradientTransform",
             [](QStringView text) { return plainTransform(text).has_value(); }},
            {"d", [](QStringView) { return true; }}, // outline() looks at it
        };
        QHash<QString, Rule> ruleOfName;
        for (const auto& [names, rule] : rows)
            for (const QString& name : QString(names).split(u' '))
                ruleOfName.insert(name, rule);
        return ruleOfName;
    }();
    return table;
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
    static const QStringList known =
        QString("svg metadata defs g path rect circle ellipse linearGradient radialGradient stop")
            .split(u' ');
    if (!known.contains(name) || (name == u"svg") != (depth == 0))
        throw defectIn(name, "the element \"%1\" does not belong here");
    for (const QXmlStreamAttribute& entry : attributes)
        attribute(name, entry, line);
    enter(attributes, depth);
    spend(outline(name, attributes));
    const QString id = attributes.value("id").toString();
    if (id.isEmpty())
        return;
    if (ids_.contains(id))
        throw defectIn(id, "the id \"%1\" is used twice");
    ids_.insert(id);
    if (name.endsWith(u"Gradient"))
        gradients_.insert(id);
    else if (name == u"g" && depth == 1)
        parts_.insert(id);
}

void DrawingRules::checkReferences() const
{
    for (const auto& [id, line] : references_)
        if (!gradients_.contains(id))
            throw Defect{QString("there is no gradient \"%1\"").arg(id), line};
}

void DrawingRules::attribute(const QString& element, const QXmlStreamAttribute& entry, qint64 line)
{
    const QString name = entry.qualifiedName().toString().left(40);
    const auto rule = rules().constFind(name);
    if (rule == rules().cend() || !entry.namespaceUri().isEmpty())
        throw Defect{QString(R"(the attribute "%1" of "%2" is not allowed)").arg(name, element)};
    const QStringView value = entry.value();
    if (!(*rule)(value))
        throw Defect{QString(R"("%1" is no value for the attribute "%2")").arg(value.left(40), name)};
    if (*rule == isPaint && value.startsWith(reference))
        references_.emplace(value.sliced(reference.size()).chopped(1).toString(), line);
}

QPainterPath DrawingRules::outline(const QString& name, const QXmlStreamAttributes& attributes)
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
    } else if (name == u"path") {
        const QStringView data = attributes.value("d");
        pathCharacters_ += data.size();
        if (data.size() > maxPathCharacters || pathCharacters_ > maxAllPathCharacters)
            throw Defect{"the outlines are too long"};
        QStringView bad;
        const auto drawn = outlineOf(data, bad);
        if (!drawn)
            throw defectIn(bad, "\"%1\" is no part of an outline");
        outline = *drawn;
    }
    return outline;
}

void DrawingRules::readViewBox(QStringView value)
{
    const auto box = plainNumbers(value).value_or(std::vector<double>());
    if (box.size() != 4 || box[2] < 1 || box[3] < 1)
        throw Defect{"the root must have a viewBox of four numbers"};
    viewBox_ = QRectF(box[0], box[1], box[2], box[3]);
}

void DrawingRules::enter(const QXmlStreamAttributes& attributes, int depth)
{
    paints_.resize(depth + 1);
    Paint paint = paints_.back();
    if (depth == 0) {
        readViewBox(attributes.value("viewBox"));
        const double scale = pictureWidth / viewBox_.width();
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

#include "narrator/drawing_rules.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace narrator {

namespace {

constexpr qsizetype maxPathCharacters = 16'000;
constexpr qsizetype maxAllPathCharacters = 512'000;
// Stroking is what costs time. What is drawn may cost as much as this many numbers of an outline, an arc
// and a circle as much as those of the curves that they are made of.
constexpr int maxCost = 15'000;
constexpr int costOfArc = 20;
constexpr double maxStrokeWidth = 40;

enum class Kind { Number, Width, Numbers, Share, Paint, Colour, Word, Id, Path, Transform };

const QHash<QString, Kind>& kinds()
{
    static const QHash<QString, Kind> table{
        {u"id"_s, Kind::Id},
        {u"d"_s, Kind::Path},
        {u"transform"_s, Kind::Transform},
        {u"gradientTransform"_s, Kind::Transform},
        {u"fill"_s, Kind::Paint},
        {u"stroke"_s, Kind::Paint},
        {u"stop-color"_s, Kind::Colour},
        {u"opacity"_s, Kind::Share},
        {u"fill-opacity"_s, Kind::Share},
        {u"stroke-opacity"_s, Kind::Share},
        {u"stop-opacity"_s, Kind::Share},
        {u"offset"_s, Kind::Share},
        {u"viewBox"_s, Kind::Numbers},
        {u"stroke-width"_s, Kind::Width},
        {u"x"_s, Kind::Number},
        {u"y"_s, Kind::Number},
        {u"width"_s, Kind::Number},
        {u"height"_s, Kind::Number},
        {u"x1"_s, Kind::Number},
        {u"y1"_s, Kind::Number},
        {u"x2"_s, Kind::Number},
        {u"y2"_s, Kind::Number},
        {u"cx"_s, Kind::Number},
        {u"cy"_s, Kind::Number},
        {u"r"_s, Kind::Number},
        {u"rx"_s, Kind::Number},
        {u"ry"_s, Kind::Number},
        {u"fx"_s, Kind::Number},
        {u"fy"_s, Kind::Number},
        {u"version"_s, Kind::Word},
        {u"baseProfile"_s, Kind::Word},
        {u"stroke-linejoin"_s, Kind::Word},
        {u"stroke-linecap"_s, Kind::Word},
        {u"fill-rule"_s, Kind::Word},
        {u"gradientUnits"_s, Kind::Word},
        {u"spreadMethod"_s, Kind::Word},
    };
    return table;
}

const QSet<QString>& elements()
{
    static const QSet<QString> table{u"svg"_s,  u"metadata"_s,       u"defs"_s,          u"g"_s,
                                     u"path"_s, u"ellipse"_s,        u"circle"_s,        u"rect"_s,
                                     u"stop"_s, u"linearGradient"_s, u"radialGradient"_s};
    return table;
}

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool isColour(QStringView text)
{
    const auto isHex = [](QChar c) {
        return isDigit(c) || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
    };
    return (text.size() == 4 || text.size() == 7) && text[0] == u'#' &&
           std::all_of(text.begin() + 1, text.end(), isHex);
}

bool isSeparator(QChar c)
{
    return c == u' ' || c == u',' || c == u'\n' || c == u'\t' || c == u'\r';
}

/// Takes the number at the front of `text` off it; empty if there is none.
QStringView takeNumber(QStringView& text)
{
    qsizetype end = !text.isEmpty() && (text[0] == u'-' || text[0] == u'+') ? 1 : 0;
    while (end < text.size() && isDigit(text[end])) {
        ++end;
    }
    if (end < text.size() && text[end] == u'.') {
        ++end;
    }
    while (end < text.size() && isDigit(text[end])) {
        ++end;
    }
    const QStringView number = text.first(end);
    text = text.sliced(end);
    return number;
}

/// One or more of matrix(), translate(), rotate() and scale().
bool isTransform(QStringView text)
{
    for (text = text.trimmed(); !text.isEmpty(); text = text.trimmed()) {
        const qsizetype open = text.indexOf(u'(');
        const qsizetype close = text.indexOf(u')');
        if (open < 0 || close < open) {
            return false;
        }
        const QStringView name = text.first(open).trimmed();
        const auto numbers = plainNumbers(text.sliced(open + 1, close - open - 1));
        const std::size_t count = numbers ? numbers->size() : 0;
        const bool good = (name == u"matrix" && count == 6) ||
                          ((name == u"translate" || name == u"scale") && (count == 1 || count == 2)) ||
                          (name == u"rotate" && (count == 1 || count == 3));
        if (!good) {
            return false;
        }
        text = text.sliced(close + 1);
    }
    return true;
}

} // namespace

bool isWord(QStringView text)
{
    const auto fits = [](QChar c) {
        return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || isDigit(c) || c == u'-' || c == u'.' ||
               c == u'_';
    };
    return !text.isEmpty() && text.size() <= 64 && std::ranges::all_of(text, fits);
}

std::optional<double> plainNumber(QStringView text, double limit)
{
    QStringView rest = text;
    if (takeNumber(rest).isEmpty() || !rest.isEmpty()) {
        return {};
    }
    bool good = false;
    const double value = text.toDouble(&good);
    if (!good || !std::isfinite(value) || std::abs(value) > limit) {
        return {};
    }
    return value;
}

std::optional<std::vector<double>> plainNumbers(QStringView text)
{
    std::vector<double> numbers;
    for (qsizetype i = 0; i < text.size();) {
        qsizetype end = i;
        while (end < text.size() && !isSeparator(text[end])) {
            ++end;
        }
        if (end > i) {
            const auto number = plainNumber(text.sliced(i, end - i));
            if (!number) {
                return {};
            }
            numbers.push_back(*number);
        }
        i = end + 1;
    }
    return numbers;
}

void DrawingRules::element(const QString& name, const QXmlStreamAttributes& attributes, int depth,
                           qint64 line)
{
    if (!elements().contains(name) || (name == u"svg") != (depth == 0)) {
        throw Defect{u"the element \"%1\" does not belong here"_s.arg(name.left(40))};
    }
    for (const QXmlStreamAttribute& entry : attributes) {
        if (!entry.namespaceUri().isEmpty()) {
            throw Defect{u"the attribute \"%1\" is not allowed"_s.arg(entry.qualifiedName().left(40))};
        }
        attribute(name, entry.name().toString(), entry.value(), line);
    }
    if (name == u"circle" || name == u"ellipse" || name == u"rect") {
        spend(costOfArc);
    }
    const QString id = attributes.value(u"id"_s).toString();
    if (id.isEmpty()) {
        return;
    }
    if (ids_.contains(id)) {
        throw Defect{u"the id \"%1\" is used twice"_s.arg(id)};
    }
    ids_.insert(id);
    if (name.endsWith(u"Gradient")) {
        gradients_.insert(id);
    } else if (name == u"g" && depth == 1) {
        parts_.insert(id);
    }
}

void DrawingRules::checkReferences() const
{
    for (auto it = references_.cbegin(); it != references_.cend(); ++it) {
        if (!gradients_.contains(it.key())) {
            throw Defect{u"there is no gradient \"%1\""_s.arg(it.key()), it.value()};
        }
    }
}

void DrawingRules::attribute(const QString& element, const QString& name, QStringView value, qint64 line)
{
    const auto kind = kinds().constFind(name);
    if (kind == kinds().cend()) {
        throw Defect{u"the attribute \"%1\" of \"%2\" is not allowed"_s.arg(name.left(40), element)};
    }
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
    case Kind::Id:
        good = isWord(value);
        break;
    case Kind::Transform:
        good = isTransform(value);
        break;
    case Kind::Paint:
        return paint(value, line);
    case Kind::Path:
        return path(value);
    }
    if (!good) {
        throw Defect{u"\"%1\" is no value for the attribute \"%2\""_s.arg(value.left(40), name)};
    }
}

void DrawingRules::paint(QStringView value, qint64 line)
{
    if (value == u"none" || isColour(value)) {
        return;
    }
    const bool reference = value.startsWith(u"url(#") && value.endsWith(u')');
    const QStringView id = reference ? value.sliced(5).chopped(1) : QStringView();
    if (!isWord(id)) {
        throw Defect{u"\"%1\" is no colour"_s.arg(value.left(40))};
    }
    if (!references_.contains(id.toString())) {
        references_.insert(id.toString(), line);
    }
}

void DrawingRules::path(QStringView data)
{
    pathCharacters_ += data.size();
    if (data.size() > maxPathCharacters || pathCharacters_ > maxAllPathCharacters) {
        throw Defect{u"the outlines are too long"_s};
    }
    for (QStringView rest = data; !rest.isEmpty();) {
        const QChar c = rest[0];
        if (isSeparator(c) || u"MmLlHhVvCcSsQqTtAaZz"_s.contains(c)) {
            spend(c == u'A' || c == u'a' ? costOfArc : 0);
            rest = rest.sliced(1);
            continue;
        }
        const QStringView number = takeNumber(rest);
        if (!plainNumber(number)) {
            throw Defect{
                u"\"%1\" is no number of an outline"_s.arg(QStringView(number.data(), rest.end()).left(20))};
        }
        spend(1);
    }
}

void DrawingRules::spend(int cost)
{
    cost_ += cost;
    if (cost_ > maxCost) {
        throw Defect{u"the drawing has too many outlines"_s};
    }
}

} // namespace narrator

#include "rig/svg_values.h"

#include <QString>

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>

namespace rig {

namespace {

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool isSeparator(QChar c)
{
    return c == u' ' || c == u',' || c == u'\n' || c == u'\t' || c == u'\r';
}

/// Takes the number at the front of `text` off it; empty if there is none.
QStringView takeNumber(QStringView& text)
{
    qsizetype end = !text.isEmpty() && (text[0] == u'-' || text[0] == u'+') ? 1 : 0;
    while (end < text.size() && isDigit(text[end]))
        ++end;
    if (end < text.size() && text[end] == u'.')
        ++end;
    while (end < text.size() && isDigit(text[end]))
        ++end;
    const QStringView number = text.first(end);
    text = text.sliced(end);
    return number;
}

std::optional<QTransform> function(QStringView name, const std::optional<std::vector<double>>& numbers)
{
    const std::size_t count = numbers ? numbers->size() : 0;
    const auto at = [&](std::size_t i, double otherwise) { return i < count ? (*numbers)[i] : otherwise; };
    if (name == u"matrix" && count == 6)
        return QTransform(at(0, 1), at(1, 0), at(2, 0), at(3, 1), at(4, 0), at(5, 0));
    if (name == u"translate" && (count == 1 || count == 2))
        return QTransform::fromTranslate(at(0, 0), at(1, 0));
    if (name == u"scale" && (count == 1 || count == 2))
        return QTransform::fromScale(at(0, 1), at(1, at(0, 1)));
    if (name == u"rotate" && (count == 1 || count == 3)) {
        QTransform turn = QTransform::fromTranslate(at(1, 0), at(2, 0));
        turn.rotate(at(0, 0));
        turn.translate(-at(1, 0), -at(2, 0));
        return turn;
    }
    return {};
}

/// Follows path data and keeps account of where they lead.
class Pen
{
public:
    /// Carries out one command with as many numbers as it takes.
    void draw(QChar command, const std::array<double, 7>& n)
    {
        const QPointF origin = command.isLower() ? at_ : QPointF();
        const auto point = [&](std::size_t i) { return origin + QPointF(n.at(i), n.at(i + 1)); };
        const QPointF mirrored =
            2 * at_ - control_; // of the control point before, where a curve goes on smoothly
        switch (command.toUpper().unicode()) {
        case u'M':
            at_ = start_ = control_ = point(0);
            return reach(at_);
        case u'Z':
            return curveTo({start_});
        case u'H':
            return curveTo({QPointF(origin.x() + n[0], at_.y())});
        case u'V':
            return curveTo({QPointF(at_.x(), origin.y() + n[0])});
        case u'C':
            return curveTo({point(0), point(2), point(4)});
        case u'S':
            return curveTo({mirrored, point(0), point(2)});
        case u'Q':
            return curveTo({point(0), point(2)});
        case u'T':
            return curveTo({mirrored, point(0)});
        case u'A':
            return arcTo(std::abs(n[0]), std::abs(n[1]), point(5));
        default:
            return curveTo({point(0)});
        }
    }

    [[nodiscard]] Outline outline() const
    {
        return {length_, QRectF(QPointF(left_, top_), QPointF(right_, bottom_)), corners_};
    }

private:
    /// Past control points to the last of the points; to a single one straight on.
    void curveTo(std::initializer_list<QPointF> points)
    {
        for (const QPointF& point : points) {
            control_ = points.size() > 1 ? at_ : point;
            length_ += std::hypot(point.x() - at_.x(), point.y() - at_.y());
            ++corners_;
            at_ = point;
            reach(point);
        }
    }

    /// An arc is no longer than its whole ellipse, which grows if it is too small for the way.
    void arcTo(double radiusX, double radiusY, const QPointF& to)
    {
        const double way = std::hypot(to.x() - at_.x(), to.y() - at_.y());
        const double radius = std::max({radiusX, radiusY, way});
        constexpr double turn = 6.3;
        constexpr int pieces = 8;
        reach(at_ - QPointF(2 * radius, 2 * radius));
        reach(at_ + QPointF(2 * radius, 2 * radius));
        length_ += turn * radius;
        corners_ += pieces;
        at_ = control_ = to;
        reach(to);
    }

    void reach(const QPointF& point)
    {
        left_ = std::min(left_, point.x());
        right_ = std::max(right_, point.x());
        top_ = std::min(top_, point.y());
        bottom_ = std::max(bottom_, point.y());
    }

    QPointF at_, start_, control_;
    double length_ = 0;
    double left_ = 1e9, top_ = 1e9, right_ = -1e9, bottom_ = -1e9;
    int corners_ = 0;
};

int numbersOf(QChar command)
{
    switch (command.toUpper().unicode()) {
    case u'Z':
        return 0;
    case u'H':
    case u'V':
        return 1;
    case u'S':
    case u'Q':
        return 4;
    case u'C':
        return 6;
    case u'A':
        return 7;
    default:
        return 2;
    }
}

void skipSeparators(QStringView& text)
{
    while (!text.isEmpty() && isSeparator(text[0]))
        text = text.sliced(1);
}

/// Takes the numbers of one command off the front of `text`; false if they are not there.
bool takeNumbers(QStringView& text, QChar command, std::array<double, 7>& numbers)
{
    for (int i = 0; i < numbersOf(command); ++i) {
        skipSeparators(text);
        QStringView rest = text;
        const QStringView number = takeNumber(rest);
        const auto value = plainNumber(number);
        const bool flag = command.toUpper() == u'A' && (i == 3 || i == 4); // other readers let flags touch
        if (!value || (flag && number != u"0" && number != u"1"))
            return false;
        numbers.at(static_cast<std::size_t>(i)) = *value;
        text = rest;
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
    if (takeNumber(rest).isEmpty() || !rest.isEmpty())
        return {};
    bool good = false;
    const double value = text.toDouble(&good);
    if (!good || !std::isfinite(value) || std::abs(value) > limit)
        return {};
    return value;
}

std::optional<std::vector<double>> plainNumbers(QStringView text)
{
    std::vector<double> numbers;
    for (qsizetype i = 0; i < text.size();) {
        qsizetype end = i;
        while (end < text.size() && !isSeparator(text[end]))
            ++end;
        if (end > i) {
            const auto number = plainNumber(text.sliced(i, end - i));
            if (!number)
                return {};
            numbers.push_back(*number);
        }
        i = end + 1;
    }
    return numbers;
}

std::optional<QTransform> plainTransform(QStringView text)
{
    QTransform all;
    for (text = text.trimmed(); !text.isEmpty(); text = text.trimmed()) {
        const qsizetype open = text.indexOf(u'(');
        const qsizetype close = text.indexOf(u')');
        if (open < 0 || close < open)
            return {};
        const auto one =
            function(text.first(open).trimmed(), plainNumbers(text.sliced(open + 1, close - open - 1)));
        if (!one)
            return {};
        all = *one * all;
        text = text.sliced(close + 1);
    }
    return all;
}

std::optional<Outline> outlineOf(QStringView data, QStringView& bad)
{
    Pen pen;
    QChar command;
    std::array<double, 7> numbers{};
    QStringView rest = data;
    for (skipSeparators(rest); !rest.isEmpty(); skipSeparators(rest)) {
        bad = rest;
        if (QString("MmLlHhVvCcSsQqTtAaZz").contains(rest[0])) {
            command = rest[0];
            rest = rest.sliced(1);
        } else if (command.isNull() || numbersOf(command) == 0) {
            return {};
        }
        bad = rest;
        if (!takeNumbers(rest, command, numbers))
            return {};
        pen.draw(command, numbers);
        if (command.toUpper() == u'M') // further pairs are lines
            command = command.isLower() ? u'l' : u'L';
    }
    return pen.outline();
}

} // namespace rig

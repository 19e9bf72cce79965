#include "rig/svg_values.h"

#include <QString>

#include <algorithm>
#include <array>
#include <cmath>

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
    if (name == u"rotate" && (count == 1 || count == 3)) {
        QTransform turn = QTransform::fromTranslate(at(1, 0), at(2, 0));
        turn.rotate(at(0, 0));
        turn.translate(-at(1, 0), -at(2, 0));
        return turn;
    }
    return {};
}

void skipSeparators(QStringView& text)
{
    while (!text.isEmpty() && isSeparator(text[0]))
        text = text.sliced(1);
}

/// Takes the points of one command off the front of `text` and draws it; false if they are not there.
bool draw(QPainterPath& path, QChar command, QStringView& text)
{
    std::array<double, 6> n{};
    const std::size_t count = command == u'Z' ? 0 : command == u'C' ? n.size() : 2;
    for (std::size_t i = 0; i < count; ++i) {
        skipSeparators(text);
        QStringView rest = text;
        const auto value = plainNumber(takeNumber(rest));
        if (!value)
            return false;
        n.at(i) = *value;
        text = rest;
    }
    if (command == u'M')
        path.moveTo(n[0], n[1]);
    else if (command == u'L')
        path.lineTo(n[0], n[1]);
    else if (command == u'C')
        path.cubicTo(n[0], n[1], n[2], n[3], n[4], n[5]);
    else
        path.closeSubpath();
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

bool isColour(QStringView text)
{
    const auto isHex = [](QChar c) {
        return isDigit(c) || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
    };
    return (text.size() == 4 || text.size() == 7) && text[0] == u'#' &&
           std::all_of(text.begin() + 1, text.end(), isHex);
}

std::optional<QPainterPath> outlineOf(QStringView data, QStringView& bad)
{
    QPainterPath path;
    QChar command;
    for (skipSeparators(data); !data.isEmpty(); skipSeparators(data)) {
        bad = data;
        const bool named = QStringView(u"MLCZ").contains(data[0]);
        if (named)
            command = data[0];
        else if (command == u'M')
            command = u'L'; // further points are lines
        if (command.isNull() || (!named && command == u'Z') || (path.elementCount() == 0 && command != u'M'))
            return {};
        data = data.sliced(named ? 1 : 0);
        bad = data;
        if (!draw(path, command, data))
            return {};
    }
    return path;
}

} // namespace rig

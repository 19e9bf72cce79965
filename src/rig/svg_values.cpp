#include "rig/svg_values.h"

#include <QRegularExpression>
#include <QString>

#include <algorithm>
#include <cmath>

namespace rig {

namespace {

const QStringView commands = u"MLCZ";

QRegularExpression whole(const QString& pattern)
{
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern));
}

std::optional<QTransform> function(QStringView name, const std::vector<double>& n)
{
    if (name == u"matrix" && n.size() == 6)
        return QTransform(n[0], n[1], n[2], n[3], n[4], n[5]);
    if (name == u"translate" && (n.size() == 1 || n.size() == 2))
        return QTransform::fromTranslate(n[0], n.size() == 2 ? n[1] : 0);
    if (name == u"rotate" && n.size() == 1)
        return QTransform().rotate(n[0]);
    if (name == u"rotate" && n.size() == 3)
        return QTransform::fromTranslate(n[1], n[2]).rotate(n[0]).translate(-n[1], -n[2]);
    return {};
}

/// Draws one command with all its points; false if these are not as many as it takes.
bool draw(QPainterPath& path, QChar command, const std::vector<double>& n)
{
    if (command == u'Z') {
        path.closeSubpath();
        return n.empty();
    }
    const std::size_t count = command == u'C' ? 6 : 2;
    if (n.empty() || n.size() % count != 0)
        return false;
    for (std::size_t i = 0; i < n.size(); i += count)
        if (command == u'C')
            path.cubicTo(n[i], n[i + 1], n[i + 2], n[i + 3], n[i + 4], n[i + 5]);
        else if (command == u'M' && i == 0)
            path.moveTo(n[i], n[i + 1]);
        else
            path.lineTo(n[i], n[i + 1]); // further points of a move are lines
    return true;
}

} // namespace

bool isWord(QStringView text)
{
    static const QRegularExpression word = whole("[\\w.-]{1,64}");
    return word.match(text).hasMatch();
}

bool isColour(QStringView text)
{
    static const QRegularExpression colour = whole("#([0-9a-fA-F]{3}){1,2}");
    return colour.match(text).hasMatch();
}

std::optional<double> plainNumber(QStringView text, double limit)
{
    const auto plain = [](QChar c) { return QStringView(u"0123456789.+-").contains(c); };
    bool good = false;
    const double value = text.toDouble(&good);
    if (!good || !std::ranges::all_of(text, plain) || std::abs(value) > limit)
        return {};
    return value;
}

std::optional<std::vector<double>> plainNumbers(QStringView text)
{
    std::vector<double> numbers;
    for (const QString& word : text.toString().replace(u',', u' ').split(u' ', Qt::SkipEmptyParts)) {
        const auto number = plainNumber(word);
        if (!number)
            return {};
        numbers.push_back(*number);
    }
    return numbers;
}

std::optional<QTransform> plainTransform(QStringView text)
{
    static const QRegularExpression pattern(R"(\s*(\w+)\s*\(([^()]*)\)\s*)");
    QTransform all;
    for (QRegularExpressionMatch match; !text.isEmpty(); text = text.sliced(match.capturedEnd())) {
        match = pattern.match(text, 0, QRegularExpression::NormalMatch,
                              QRegularExpression::AnchorAtOffsetMatchOption);
        const auto numbers = plainNumbers(match.capturedView(2));
        const auto one = numbers ? function(match.capturedView(1), *numbers) : std::nullopt;
        if (!one)
            return {};
        all = *one * all;
    }
    return all;
}

std::optional<QPainterPath> outlineOf(QStringView data, QStringView& bad)
{
    // A sign or a second point, too, begins another number.
    static const QRegularExpression seam(R"((\.\d*)(?=\.)|(?=[-+]))");
    QPainterPath path;
    for (data = data.trimmed(); !data.isEmpty(); data = data.sliced(bad.size())) {
        const auto* const next =
            std::find_if(data.begin() + 1, data.end(), [](QChar c) { return commands.contains(c); });
        bad = QStringView(data.begin(), next);
        const auto numbers = plainNumbers(bad.sliced(1).toString().replace(seam, "\\1 "));
        if (!commands.contains(data[0]) || (path.elementCount() == 0 && data[0] != u'M') || !numbers ||
            !draw(path, data[0], *numbers))
            return {};
    }
    return path;
}

} // namespace rig

#pragma once

#include <QRectF>
#include <QStringView>
#include <QTransform>

#include <optional>
#include <vector>

namespace rig {

/// At most 64 Latin letters, digits, hyphens, dots and underscores.
[[nodiscard]] bool isWord(QStringView text);

/// A finite plain number within +-`limit`, or none.
[[nodiscard]] std::optional<double> plainNumber(QStringView text, double limit = 10'000);

/// Numbers separated by blanks or commas; none if one of them is no plain number.
[[nodiscard]] std::optional<std::vector<double>> plainNumbers(QStringView text);

/// One or more of matrix(), translate(), rotate() and scale().
[[nodiscard]] std::optional<QTransform> plainTransform(QStringView text);

/// What can be said of an outline without painting it. Curves count by their control points, so that
/// nothing of the outline is longer or lies farther out.
struct Outline
{
    double length = 0;
    QRectF box;
    int corners = 0;
};

/// The outline that path data describe; `bad` is set to the first place that is none.
[[nodiscard]] std::optional<Outline> outlineOf(QStringView data, QStringView& bad);

} // namespace rig

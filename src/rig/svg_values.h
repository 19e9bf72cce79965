#pragma once

#include <QPainterPath>
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

/// One or more of matrix(), translate() and rotate().
[[nodiscard]] std::optional<QTransform> plainTransform(QStringView text);

/// #rgb or #rrggbb.
[[nodiscard]] bool isColour(QStringView text);

/// The outline that path data of the commands M, L, C and Z describe; `bad` is set to the first place that
/// is none.
[[nodiscard]] std::optional<QPainterPath> outlineOf(QStringView data, QStringView& bad);

} // namespace rig

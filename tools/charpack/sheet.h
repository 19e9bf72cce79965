#pragma once

#include "narrator/figure.h"

#include <QImage>

/// Every gesture of a character in a row of poses evenly spread over its time.
[[nodiscard]] QImage drawSheet(narrator::Figure& figure, int poses);

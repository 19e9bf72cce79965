#pragma once

#include <QString>

namespace stage {

class Balloon;

/// From now on balloons are known to screen readers as a text with the name "Host says".
void describeBalloons();

/// Tells a screen reader that the balloon no longer shows the words `before`.
void announceWords(Balloon& balloon, const QString& before);

} // namespace stage

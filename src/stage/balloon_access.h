#pragma once

#include <QString>

class QLabel;

namespace stage {

/// A label whose words come one by one is from now on known to screen readers as a text.
void describeAsText(QLabel& label);

/// Tells a screen reader that the label no longer shows the words `before`.
void announceWords(QLabel& label, const QString& before);

} // namespace stage

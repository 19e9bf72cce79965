#pragma once

#include <QPoint>
#include <qnamespace.h>

class QWidget;

namespace stage {

/// Gives a click at a place on the screen to what lies there on `form`. Returns whether the form is there.
/// Whatever the click leads to, also the end of the form, has happened on return.
bool clickThrough(QWidget& form, const QPoint& place, Qt::MouseButton button);

} // namespace stage

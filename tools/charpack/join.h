#pragma once

#include <QByteArray>
#include <QStringList>

/// One character file out of a drawing (SVG), a rig and gestures: the gestures are put into the rig's
/// character element, and that into the metadata of the drawing. Throws std::runtime_error with file and
/// line if one of them is no XML.
[[nodiscard]] QByteArray joinCharacter(const QString& drawing, const QString& rig,
                                       const QStringList& gestures);

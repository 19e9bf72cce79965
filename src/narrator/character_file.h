#pragma once

#include "narrator/rig.h"

#include <QByteArray>
#include <QString>

namespace narrator {

/// A character as its file has it: the rig and the drawing on which its draws are found by name.
struct CharacterFile
{
    Rig rig;
    QByteArray drawing; ///< SVG that has passed every check
};

/// Reads and checks the file at `path`. Throws LoadFailure with path, line and the first defect.
[[nodiscard]] CharacterFile readCharacterFile(const QString& path);

/// The same for the content of a file; `name` stands for it in the failure.
[[nodiscard]] CharacterFile readCharacter(const QByteArray& bytes, const QString& name);

} // namespace narrator

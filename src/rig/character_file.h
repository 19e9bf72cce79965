#pragma once

#include "rig/rig.h"

#include <QByteArray>
#include <QString>

#include <stdexcept>

namespace rig {

/// Thrown when a character file is missing or unusable: says which file, the line and the first defect.
class FileFailure : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// A character as its file has it: the rig and the drawing on which its draws are found by name.
struct CharacterFile
{
    Rig rig;
    QByteArray drawing; ///< SVG that has passed every check
};

/// Reads and checks the file at `path`. Throws FileFailure.
[[nodiscard]] CharacterFile readCharacterFile(const QString& path);

/// The same for the content of a file; `name` stands for it in the failure.
[[nodiscard]] CharacterFile readCharacter(const QByteArray& bytes, const QString& name);

} // namespace rig

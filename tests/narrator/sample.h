#pragma once

#include "narrator/rig.h"

#include <QByteArray>
#include <QString>

#include <string>

namespace sample {

/// A small character file: one element a line, an arm with two hands and one gesture under all names.
/// Greet takes a second: the arm is raised to 90 degrees at 200 ms, the hand open from 100 to 900 ms.
[[nodiscard]] QByteArray character();
[[nodiscard]] narrator::Rig rig();

/// What the reader says about a file, "fine" if it takes it.
[[nodiscard]] std::string verdict(const QByteArray& bytes);

} // namespace sample

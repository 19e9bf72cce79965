#pragma once

#include "voice/synthesiser.h"

#include <string>

namespace voice {

/// libflite with its voice rms. There may be one at a time in the program: the library's state is global.
[[nodiscard]] std::unique_ptr<Synthesiser> makeFliteSynthesiser();

/// The sounds that the voice says a word with, in its own names.
[[nodiscard]] std::string soundsOf(const std::string& word);

} // namespace voice

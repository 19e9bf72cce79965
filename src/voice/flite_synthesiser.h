#pragma once

#include "voice/synthesiser.h"

namespace voice {

/// libflite with its voice rms. There may be one at a time in the program: the library's state is global.
[[nodiscard]] std::unique_ptr<Synthesiser> makeFliteSynthesiser();

} // namespace voice

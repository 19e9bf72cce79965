#pragma once

#include "voice/sound_device.h"

namespace voice {

/// Opens ALSA's device "default".
[[nodiscard]] std::unique_ptr<SoundDevice> openAlsaDevice();

} // namespace voice

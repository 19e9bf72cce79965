#pragma once

#include "narrator/sound_device.h"

namespace narrator {

/// Opens ALSA's device "default".
[[nodiscard]] std::unique_ptr<SoundDevice> openAlsaDevice();

} // namespace narrator

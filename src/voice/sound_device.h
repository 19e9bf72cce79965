#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>

namespace voice {

/// Where samples are heard. Used by one thread only; any call may take as long as it likes.
class SoundDevice
{
public:
    SoundDevice() = default;
    SoundDevice(const SoundDevice&) = delete;
    SoundDevice& operator=(const SoundDevice&) = delete;
    virtual ~SoundDevice() = default;

    /// Returns once there is room for all of the samples; false if they will never be heard.
    virtual bool write(std::span<const std::int16_t> samples) = 0;
    /// How long until a sample written now will be heard.
    virtual std::chrono::milliseconds delay() = 0;
    /// Silence at once: what has been written and not heard is forgotten.
    virtual void drop() = 0;
};

/// Opens the device; none if there is none.
using SoundDeviceFactory = std::function<std::unique_ptr<SoundDevice>()>;

/// Opens ALSA's device "default".
[[nodiscard]] std::unique_ptr<SoundDevice> openAlsaDevice();

} // namespace voice

#include "voice/sound_device.h"
#include "voice/synthesiser.h"

#include <alsa/asoundlib.h>

#include <algorithm>

namespace voice {

namespace {

constexpr unsigned bufferMicroseconds = 60'000;
constexpr int mostFailures = 3; ///< of one writing; running dry is one

/// The library would write its troubles to the error stream.
void keepQuiet(const char*, int, const char*, int, const char*, ...) {}

class AlsaDevice final : public SoundDevice
{
public:
    explicit AlsaDevice(snd_pcm_t* pcm) : pcm_(pcm) {}
    ~AlsaDevice() override { snd_pcm_close(pcm_); }
    bool write(std::span<const std::int16_t> samples) override
    {
        for (int failures = 0; !samples.empty();) {
            const snd_pcm_sframes_t written = snd_pcm_writei(pcm_, samples.data(), samples.size());
            if (written > 0)
                samples = samples.subspan(written);
            else if (++failures > mostFailures || snd_pcm_recover(pcm_, static_cast<int>(written), 1) < 0)
                return false;
        }
        return true;
    }

    std::chrono::milliseconds delay() override
    {
        snd_pcm_sframes_t frames = 0;
        if (snd_pcm_delay(pcm_, &frames) < 0)
            frames = 0;
        return spanOf(std::max<snd_pcm_sframes_t>(frames, 0));
    }

    void drop() override
    {
        snd_pcm_drop(pcm_);
        snd_pcm_prepare(pcm_);
    }

private:
    snd_pcm_t* pcm_;
};

} // namespace

std::unique_ptr<SoundDevice> openAlsaDevice()
{
    snd_lib_error_set_handler(keepQuiet);
    snd_pcm_t* pcm = nullptr;
    if (snd_pcm_open(&pcm, "default", SND_PCM_STREAM_PLAYBACK, 0) < 0)
        return nullptr;
    auto device = std::make_unique<AlsaDevice>(pcm);
    constexpr int resampled = 1;
    if (snd_pcm_set_params(pcm, SND_PCM_FORMAT_S16, SND_PCM_ACCESS_RW_INTERLEAVED, 1, sampleRate, resampled,
                           bufferMicroseconds) < 0)
        return nullptr;
    return device;
}

} // namespace voice

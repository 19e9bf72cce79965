#pragma once

#include "voice/speaker.h"

namespace support {

/// Says every text with the same times, as far as time has come; `now` is moved by the test.
struct ScriptedSpeaker final : voice::Speaker
{
    using Milliseconds = std::chrono::milliseconds;

    Ticket start(const QString&) override
    {
        begun = now;
        speaking = true;
        return ++tickets;
    }
    void stop(Ticket) override { speaking = false; }
    void giveUpSound(Ticket) override { script.dies = Milliseconds::min(); }
    Progress progress(Ticket, std::size_t known, Milliseconds) override
    {
        const Milliseconds time = now - begun;
        Progress progress{{}, time >= script.whole, time >= script.dies ? Sound::Lost : Sound::Waiting};
        if (time >= script.made && known == 0)
            progress.fresh = {speech};
        if (time >= script.opens && time < script.dies) {
            progress.sound = Sound::Playing;
            progress.played = std::min(speech.length, (time - script.opens) * script.percent / 100);
        }
        return progress;
    }
    void setMuted(bool) override {}
    [[nodiscard]] bool muted() const override { return false; }

    struct Script
    {
        Milliseconds made{0};  ///< times since the text was begun
        Milliseconds whole{0}; ///< when it turns out that no more will be made
        Milliseconds opens{0}, dies{std::chrono::hours(1000)};
        int percent = 100; ///< of the right speed
    };

    Script script;
    voice::SpeechTimes speech;
    Milliseconds now{0}, begun{0};
    Ticket tickets = 0;
    bool speaking = false;
};

} // namespace support

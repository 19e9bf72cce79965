#pragma once

#include "narrator/request_queue.h"
#include "rig/gaze.h"
#include "rig/motion.h"
#include "voice/voice.h"

#include <QString>

#include <chrono>
#include <functional>
#include <optional>

namespace narrator {

/// What there is to see of the host at one moment.
struct Frame
{
    rig::Pose pose;
    QString text;       ///< the one being said, as it was given; empty for none
    qsizetype said = 0; ///< how many of its characters have been said
};

/// Turns requests and time into frames: the gesture or speech being carried out, with breathing,
/// blinks and the mouth laid over it. Time is passed in and never runs backwards.
class Player final : private Performer
{
public:
    using Milliseconds = std::chrono::milliseconds;

    /// `random` gives numbers from 0 up to 1; rig and voice must outlive the player.
    Player(const rig::Rig& rig, voice::Voice& voice, std::function<double()> random, Milliseconds now);

    void play(const QString& gesture, Milliseconds now);
    void speak(const QString& text, Milliseconds now);
    void stop(Milliseconds now);
    /// Ends the text being said, if there is one; the next request begins.
    void skip(Milliseconds now);

    /// What there is to look at while nothing is being carried out.
    void see(const rig::Sights& sights) { sights_ = sights; }

    [[nodiscard]] Frame frame(Milliseconds now);

    /// Nothing is being carried out, and the figure has come to rest.
    [[nodiscard]] bool idle(Milliseconds now) const;

private:
    void begin(const Request& request, Milliseconds start) override;
    std::optional<Milliseconds> ended(Milliseconds now) override;
    void finish(Milliseconds time) override;

    void turnTo(const rig::Gesture* gesture, Milliseconds time);
    [[nodiscard]] double lidsClosed(Milliseconds now);

    const rig::Rig& rig_;
    voice::Voice& voice_;
    std::function<double()> random_;
    rig::Gaze gaze_;
    rig::Sights sights_;
    RequestQueue queue_;
    rig::Motion motion_;
    Milliseconds motionStart_;
    Milliseconds requestStart_;
    Milliseconds nextBlink_;
    QString text_;            ///< being said, empty for none
    Milliseconds reading_{0}; ///< the time text_ takes to be read
};

/// How long a text stays: the longer of 1.5 s and the time its characters take to be read; nothing if
/// there is nothing to read.
[[nodiscard]] std::chrono::milliseconds readingTime(const QString& text);

} // namespace narrator

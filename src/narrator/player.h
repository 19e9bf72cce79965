#pragma once

#include "rig/gaze.h"
#include "rig/motion.h"
#include "voice/voice.h"

#include <QString>

#include <chrono>
#include <deque>
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

/// Carries out one request after another and turns time into frames: the gesture or speech of the moment,
/// with breathing, blinks and the mouth laid over it. Time is passed in and never runs backwards; it may make
/// leaps, and what happened in between is caught up with.
class Player
{
public:
    using Milliseconds = std::chrono::milliseconds;

    /// `random` gives numbers from 0 up to 1; rig and voice must outlive the player.
    Player(const rig::Rig& rig, voice::Voice& voice, std::function<double()> random, Milliseconds now);

    void play(const QString& gesture, Milliseconds now) { add({false, gesture}, now); }
    void speak(const QString& text, Milliseconds now) { add({true, text}, now); }
    void stop(Milliseconds now);
    /// Ends the text being said, if there is one; the next request begins.
    void skip(Milliseconds now);

    /// From now on nothing moves but from the pose of one gesture to that of the next.
    void keepStill(bool still) { still_ = still; }

    /// Asked for what there is to look at, now and then while nothing is being carried out.
    void onLook(std::function<rig::Sights()> sights) { sights_ = std::move(sights); }

    [[nodiscard]] Frame frame(Milliseconds now);

    /// Nothing is being carried out, and the figure has come to rest.
    [[nodiscard]] bool idle(Milliseconds now) const;

private:
    /// One thing the host was asked to do.
    struct Request
    {
        bool speech = false;
        QString text; ///< the words or the gesture's name
    };

    void add(Request request, Milliseconds now);
    void advance(Milliseconds now);
    /// Begins the next request, if there is one.
    void begin(Milliseconds start);
    /// The time at which the request begun last came to its end, none if that is later than `now`.
    [[nodiscard]] std::optional<Milliseconds> ended(Milliseconds now);
    void finish(Milliseconds time);

    void turnTo(const rig::Gesture* gesture, Milliseconds time);
    [[nodiscard]] rig::Pose pose(Milliseconds now);
    [[nodiscard]] double lidsClosed(Milliseconds now);

    const rig::Rig& rig_;
    voice::Voice& voice_;
    std::function<double()> random_;
    rig::Gaze gaze_;
    std::function<rig::Sights()> sights_ = [] { return rig::Sights(); };
    bool still_ = false;
    std::deque<Request> waiting_;
    bool running_ = false; ///< a request is being carried out
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

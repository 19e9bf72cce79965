#pragma once

#include <QPointF>

#include <chrono>
#include <functional>

namespace rig {

/// Where there is something to look at, seen from the eyes: from -1 to 1 to the right and downwards.
struct Sights
{
    QPointF question;
    QPointF pointer;
};

/// Where a figure at rest looks: mostly ahead, now and then at the question or the pointer. Time never
/// runs backwards.
class Gaze
{
public:
    using Milliseconds = std::chrono::milliseconds;

    /// `random` gives numbers from 0 up to 1 and must outlive the gaze.
    Gaze(std::function<double()>& random, Milliseconds now);

    /// From -1 to 1 to the right and downwards. A figure that is not at rest looks ahead. `sights` is asked
    /// only when it does not.
    QPointF at(Milliseconds now, bool resting, const std::function<Sights()>& sights);

private:
    void choose(Milliseconds now);

    std::function<double()>& random_;
    QPointF Sights::*target_ = nullptr; ///< none: ahead
    QPointF seen_;
    Milliseconds last_;
    Milliseconds next_;
};

} // namespace rig

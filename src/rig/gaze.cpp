#include "rig/gaze.h"

#include <cmath>

namespace rig {

using namespace std::chrono_literals;

namespace {

constexpr auto leastAhead = 2500ms;
constexpr auto leastAside = 900ms;
constexpr double turnMs = 70; ///< in which the eyes go most of their way
constexpr double shareOfQuestion = 0.6;

} // namespace

Gaze::Gaze(std::function<double()>& random, Milliseconds now)
    : random_(random), last_(now), next_(now + leastAhead)
{
}

QPointF Gaze::at(Milliseconds now, bool resting, const std::function<Sights()>& sights)
{
    if (now >= next_)
        choose(now);
    QPointF wanted;
    if (resting && target_)
        wanted = sights().*target_;
    const double left = std::exp(-static_cast<double>((now - last_).count()) / turnMs);
    seen_ = wanted + (seen_ - wanted) * left;
    last_ = now;
    return seen_;
}

void Gaze::choose(Milliseconds now)
{
    target_ = target_ ? nullptr : random_() < shareOfQuestion ? &Sights::question : &Sights::pointer;
    const double share = random_();
    next_ = now + (target_ ? leastAside + Milliseconds(static_cast<qint64>(share * 1500))
                           : leastAhead + Milliseconds(static_cast<qint64>(share * 4000)));
}

} // namespace rig

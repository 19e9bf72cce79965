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

QPointF Gaze::at(Milliseconds now, bool resting, const Sights& sights)
{
    if (now >= next_)
        choose(now);
    QPointF wanted;
    if (resting && target_ != Target::Ahead)
        wanted = target_ == Target::Question ? sights.question : sights.pointer;
    const double left = std::exp(-static_cast<double>((now - last_).count()) / turnMs);
    seen_ = wanted + (seen_ - wanted) * left;
    last_ = now;
    return seen_;
}

void Gaze::choose(Milliseconds now)
{
    if (target_ == Target::Ahead) {
        target_ = random_() < shareOfQuestion ? Target::Question : Target::Pointer;
        next_ = now + leastAside + Milliseconds(static_cast<qint64>(random_() * 1500));
    } else {
        target_ = Target::Ahead;
        next_ = now + leastAhead + Milliseconds(static_cast<qint64>(random_() * 4000));
    }
}

} // namespace rig

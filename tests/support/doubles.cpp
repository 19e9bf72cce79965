#include "support/doubles.h"

#include <algorithm>

namespace support {

void SteppedClock::start(QTimer& timer)
{
    due_[&timer] = now_ + timer.intervalAsDuration();
}

void SteppedClock::advance(std::chrono::milliseconds span)
{
    const auto end = now_ + span;
    while (!due_.empty()) {
        const auto next = std::ranges::min_element(due_, {}, &decltype(due_)::value_type::second);
        if (next->second > end)
            break;
        QTimer* const timer = next->first;
        now_ = next->second;
        if (timer->isSingleShot())
            due_.erase(next);
        else
            next->second += timer->intervalAsDuration();
        QMetaObject::invokeMethod(timer, "timeout");
    }
    now_ = std::max(now_, end); // a tick may have advanced further
}

float ScriptedRandom::next()
{
    if (numbers.empty()) {
        constexpr float round[] = {0, 0.25F, 0.5F, 0.75F, 0.999F};
        return round[drawn_++ % std::size(round)];
    }
    const float number = numbers.front();
    numbers.pop_front();
    return number;
}

void RecordingHost::Load(const QString& id, const QString& path)
{
    if (missing_)
        throw narrator::LoadFailure("no such file");
    log_ << "Load " + id + " " + path.section('/', -1);
}

} // namespace support

#include "bank/progress.h"

#include <ostream>
#include <utility>

namespace bank {

void Progress::begin(std::string what, long long total)
{
    what_ = std::move(what);
    total_ = total;
    done_ = 0;
}

void Progress::step(long long things)
{
    constexpr long long glanceEvery = 512; // a look at the clock costs as much as some of the work
    done_ += things;
    unseen_ += things;
    if (terminal_ && unseen_ >= glanceEvery) {
        unseen_ = 0;
        show();
    }
}

void Progress::show()
{
    const auto now = Clock::now();
    if (now < due_)
        return;
    due_ = now + std::chrono::milliseconds(100);
    shown_ = true;
    *terminal_ << "\r\x1b[K" << what_ << ' ' << done_;
    if (total_ > 0)
        *terminal_ << " of " << total_;
    *terminal_ << std::flush;
}

void Progress::clear()
{
    if (std::exchange(shown_, false))
        *terminal_ << "\r\x1b[K" << std::flush;
}

} // namespace bank

#include "narrator/request_queue.h"

#include <utility>

namespace narrator {

void RequestQueue::add(Request request, std::chrono::milliseconds now)
{
    advance(now);
    waiting_.push_back(std::move(request));
    if (!running_)
        next(now);
    advance(now);
}

void RequestQueue::stop(std::chrono::milliseconds now)
{
    waiting_.clear();
    if (std::exchange(running_, false))
        performer_.finish(now);
}

void RequestQueue::skip(std::chrono::milliseconds now)
{
    if (!std::exchange(running_, false))
        return;
    performer_.finish(now);
    if (!waiting_.empty()) {
        next(now);
        advance(now);
    }
}

void RequestQueue::advance(std::chrono::milliseconds now)
{
    while (running_) {
        const auto end = performer_.ended(now);
        if (!end)
            return;
        running_ = false;
        performer_.finish(*end);
        if (!waiting_.empty())
            next(*end);
    }
}

void RequestQueue::next(std::chrono::milliseconds start)
{
    const Request request = std::move(waiting_.front());
    waiting_.pop_front();
    running_ = true;
    performer_.begin(request, start);
}

} // namespace narrator

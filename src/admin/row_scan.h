#pragma once

#include "db/round.h"
#include "toolkit/clock.h"

#include <functional>

namespace admin {

/// Looks for one row in a round past all of them, in slices between the events of the window, so that it
/// answers however many rows there are.
class RowScan
{
public:
    using Wanted = std::function<bool(const db::Passed& row)>;
    /// Told the row that was wanted, or null when the round has met none.
    using Result = std::function<void(const db::Passed* row)>;

    /// The timer gives the turns; each one is to call slice().
    void setTimer(toolkit::Timer* timer);
    [[nodiscard]] toolkit::Timer* timer() const { return timer_; }

    /// Ends the scan before, if there is one.
    void begin(const db::Round& round, Wanted wanted, Result result);
    void stop();
    [[nodiscard]] bool isRunning() const { return task_.has_value(); }
    /// The rows that it has passed.
    [[nodiscard]] qint64 passed() const { return task_ ? task_->passed : 0; }

    /// A Failure ends the scan.
    void slice();

private:
    struct Task
    {
        db::Round round;
        Wanted wanted;
        Result result;
        qint64 passed = 0;
    };

    std::optional<Task> task_;
    toolkit::Timer* timer_ = nullptr;
};

} // namespace admin

#include "admin/row_scan.h"

#include <QDeadlineTimer>

#include <algorithm>
#include <utility>

namespace admin {

void RowScan::setTimer(toolkit::Timer* timer)
{
    timer_ = timer;
    timer_->setSingleShot(true);
}

void RowScan::begin(const db::Round& round, Wanted wanted, Result result)
{
    task_ = Task{round, std::move(wanted), std::move(result)};
    timer_->setEnabled(true);
}

void RowScan::stop()
{
    task_.reset();
    timer_->setEnabled(false);
}

void RowScan::slice()
{
    constexpr qint64 rowsAtOnce = 200;
    constexpr int sliceMs = 12;

    if (!task_)
        return;
    Task task = *std::exchange(task_, std::nullopt);
    const QDeadlineTimer deadline(sliceMs);
    do {
        const auto rows = task.round.next(rowsAtOnce);
        const auto found = std::ranges::find_if(rows, task.wanted);
        if (rows.empty() || found != rows.end()) {
            task.result(rows.empty() ? nullptr : &*found);
            return;
        }
        task.passed += static_cast<qint64>(rows.size());
    } while (!deadline.hasExpired());
    task_ = std::move(task);
    timer_->setEnabled(true);
}

} // namespace admin

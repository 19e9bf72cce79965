#include "db/round.h"

#include <utility>

namespace db {

Round::Round(const Recordset& rows, Fields fields) : rows_(&rows), fields_(fields), fromFirst_(!rows.hasRow())
{
    if (!fromFirst_)
        end_ = at_ = rows.bookmark();
}

std::vector<Passed> Round::next(qint64 most)
{
    auto passed = rows_->behind(at_, most, fields_);
    if (passed.empty() && !std::exchange(fromFirst_, true))
        passed = rows_->behind({}, most, fields_);
    if (fromFirst_ && end_) // that row itself may be gone
        std::erase_if(passed, [&](const Passed& row) { return isBehind(row.place, *end_); });
    if (!passed.empty())
        at_ = passed.back().place;
    return passed;
}

} // namespace db

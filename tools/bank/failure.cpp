#include "bank/failure.h"

#include <algorithm>

namespace bank {
namespace {

constexpr qsizetype mostTold = 50; ///< a wrong file is wrong in every line

} // namespace

void Complaints::add(const Place& place, const QString& reason)
{
    lines_ << place.text() + ": " + reason;
}

void Complaints::warn(const Place& place, const QString& reason)
{
    warnings_ << place.text() + ": warning: " + reason;
}

void Complaints::throwIfAny() const
{
    if (lines_.empty())
        return;
    QStringList told = lines_.first(std::min(lines_.size(), mostTold));
    if (told.size() < lines_.size())
        told << QString("... and %1 more faults").arg(lines_.size() - told.size());
    throw Failure(told.join(u'\n'));
}

} // namespace bank

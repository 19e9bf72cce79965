#include "bank/failure.h"

#include <algorithm>

namespace bank {
namespace {

constexpr qsizetype mostTold = 50; ///< a wrong file is wrong in every line

} // namespace

void Complaints::add(const Place& place, const QString& reason)
{
    lines_ << place.text() + QStringLiteral(": ") + reason;
}

void Complaints::warn(const Place& place, const QString& reason)
{
    warnings_ << place.text() + QStringLiteral(": warning: ") + reason;
}

void Complaints::throwIfAny() const
{
    if (lines_.empty()) {
        return;
    }
    QStringList told = lines_.first(std::min(lines_.size(), mostTold));
    if (told.size() < lines_.size()) {
        told << QStringLiteral("... and %1 more faults").arg(lines_.size() - told.size());
    }
    throw Failure(told.join(u'\n'));
}

} // namespace bank

#include "bank/failure.h"

namespace bank {

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
    if (!lines_.empty()) {
        throw Failure(lines_.join(u'\n'));
    }
}

} // namespace bank

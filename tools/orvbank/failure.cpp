#include "bank/failure.h"

namespace bank {

void Complaints::add(const Place& place, const QString& reason)
{
    QString where = QString::fromStdString(place.file);
    if (place.line > 0) {
        where += QStringLiteral(":%1").arg(place.line);
    }
    lines_ << where + QStringLiteral(": ") + reason;
}

void Complaints::throwIfAny() const
{
    if (!lines_.empty()) {
        throw Failure(lines_.join(u'\n'));
    }
}

} // namespace bank

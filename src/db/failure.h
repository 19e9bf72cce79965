#pragma once

#include <QString>

#include <stdexcept>

namespace db {

/// The one exception of this library. Its message is whole sentences for a message box: what was
/// attempted on which file, why it failed and what to do next.
class Failure : public std::runtime_error
{
public:
    enum class Cause {
        Missing,      ///< no such file, or it was moved away while it was open
        Unreadable,   ///< a folder, a device, or a file that this user may not read
        NotADatabase, ///< an empty file or one of another kind
        Damaged,
        Locked, ///< another program kept the file for itself longer than we wait
        ReadOnly,
        NoTable,
        NoField,
        RowGone,    ///< the row was deleted by another program since we stepped on it
        RowChanged, ///< the row was changed by another program since we read it
        Other
    };

    Failure(Cause cause, const QString& message) : std::runtime_error(message.toStdString()), cause_(cause) {}

    [[nodiscard]] QString message() const { return QString::fromUtf8(what()); }
    [[nodiscard]] Cause cause() const noexcept { return cause_; }

private:
    Cause cause_;
};

} // namespace db

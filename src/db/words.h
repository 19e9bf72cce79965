#pragma once

#include "db/failure.h"

#include <SQLiteCpp/Exception.h>

namespace db {

/// What was being done to the file when it failed.
enum class Attempt { Open, Read, Change };

struct Reason
{
    Failure::Cause cause;
    const char* why;    ///< goes after "cannot be read: "
    const char* advice; ///< a whole sentence
};

namespace reasons {
inline constexpr Reason missing = {Failure::Cause::Missing, "the file is missing",
                                   "Put the question bank there and start again."};
inline constexpr Reason folder = {Failure::Cause::Unreadable, "there is a folder of this name",
                                  "Move the folder away, put the question bank there and start again."};
inline constexpr Reason device = {Failure::Cause::Unreadable, "it is not an ordinary file",
                                  "Put the question bank in its place and start again."};
inline constexpr Reason forbidden = {Failure::Cause::Unreadable, "the system does not let you use it",
                                     "Allow yourself access to the file and its folder, and start again."};
inline constexpr Reason empty = {Failure::Cause::NotADatabase, "the file is empty",
                                 "Put a filled question bank in its place and start again."};
inline constexpr Reason foreign = {Failure::Cause::NotADatabase,
                                   "it is a file of another kind, or it is damaged",
                                   "Put a question bank in its place and start again."};
inline constexpr Reason refused = {Failure::Cause::Other, "it does not accept one of the values",
                                   "Change the values and try again."};
inline constexpr Reason rowGone = {Failure::Cause::RowGone,
                                   "another program has deleted the current row in the meantime",
                                   "Move to another row and try again."};
inline constexpr Reason rowChanged = {Failure::Cause::RowChanged,
                                      "this row was changed in the meantime by another window or program",
                                      "Move to another row and back to see it as it is now."};
inline constexpr Reason noNumberLeft = {Failure::Cause::Other,
                                        "the highest possible question number is already taken",
                                        "Give that question a lower number and try again."};
inline constexpr Reason idIsAssigned = {Failure::Cause::Other,
                                        "the number of a question is given by the question bank itself",
                                        "Set only the other fields."};
inline constexpr Reason openedToRead = {Failure::Cause::ReadOnly, "these rows were opened only for reading",
                                        "Open them for changes first."};
inline constexpr Reason noCurrentRow = {Failure::Cause::Other, "there is no current row",
                                        "Move to a row first."};
inline constexpr Reason pastTheEnd = {Failure::Cause::Other, "there are no more rows in this direction",
                                      "Move the other way or to the first row."};
} // namespace reasons

Failure failed(Attempt attempt, const QString& path, const Reason& reason);
Failure failed(Attempt attempt, const QString& path, const SQLite::Exception& error);
Failure noTable(const QString& path, const QString& table);
Failure noField(const QString& path, const QString& table, const QString& field);
Failure noNumbers(const QString& path, const QString& table, const QString& field);

} // namespace db

#pragma once

#include <QtGlobal>

namespace db {

/// Where a cursor can stand.
enum class Position {
    Empty,  ///< there was no row when the cursor was last sent to one end
    Before, ///< in front of the first row
    Row,
    Gap, ///< where the current row was deleted
    After
};

/// A place among the rows of one recordset, to send it back there.
struct Bookmark
{
    Position position = Position::Empty;
    qint64 key = 0;
    qint64 index = 0; ///< in a list of keys; in a gap that of the row behind it
};

/// Of two rows of one recordset.
[[nodiscard]] inline bool isBehind(const Bookmark& place, const Bookmark& other)
{
    return place.index == other.index ? place.key > other.key : place.index > other.index;
}

} // namespace db

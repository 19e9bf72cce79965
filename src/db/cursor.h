#pragma once

#include "db/handle.h"
#include "db/layout.h"
#include "db/statements.h"

#include <memory>

namespace db {

/// A place among the keys of a query's rows. It never holds a row.
class Cursor
{
public:
    enum class Position {
        Empty,  ///< there was no row when the cursor was last sent to one end
        Before, ///< in front of the first row
        Row,
        Gap, ///< where the current row was deleted
        After
    };

    /// Where a cursor stands, to send it back there.
    struct Bookmark
    {
        Position position = Position::Empty;
        qint64 key = 0;
        qint64 index = 0; ///< in a list of keys; in a gap that of the row behind it
    };

    virtual ~Cursor() = default;
    Cursor() = default;
    Cursor(const Cursor&) = delete;
    Cursor& operator=(const Cursor&) = delete;
    Cursor(Cursor&&) = delete;
    Cursor& operator=(Cursor&&) = delete;

    [[nodiscard]] Position position() const { return mark_.position; }
    [[nodiscard]] qint64 key() const { return mark_.key; }
    [[nodiscard]] const Bookmark& bookmark() const { return mark_; }
    void goTo(const Bookmark& mark) { mark_ = mark; }

    virtual void first() = 0;
    virtual void last() = 0;

    /// Moves past `skipped` rows to the one behind them, or off the end.
    virtual void step(sql::Direction direction, qint64 skipped) = 0;

    virtual void added(qint64 key) = 0;
    virtual void deleted() = 0;

private:
    Bookmark mark_;
};

/// A cursor before the first row of `query`; call first() to use it.
std::unique_ptr<Cursor> makecursor(Handle& handle, const Query& query, const Layout& layout);

} // namespace db

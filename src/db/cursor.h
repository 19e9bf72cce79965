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

    virtual ~Cursor() = default;
    Cursor() = default;
    Cursor(const Cursor&) = delete;
    Cursor& operator=(const Cursor&) = delete;
    Cursor(Cursor&&) = delete;
    Cursor& operator=(Cursor&&) = delete;

    [[nodiscard]] Position position() const { return position_; }
    [[nodiscard]] qint64 key() const { return key_; }

    virtual void first() = 0;
    virtual void last() = 0;

    /// Moves past `skipped` rows to the one behind them, or off the end.
    virtual void step(sql::Direction direction, qint64 skipped) = 0;

    virtual void added(qint64 key) = 0;
    virtual void deleted() = 0;

protected:
    void settle(Position position, qint64 key = 0);

private:
    Position position_ = Position::Empty;
    qint64 key_ = 0;
};

/// A cursor before the first row of `query`; call first() to use it.
std::unique_ptr<Cursor> makecursor(Handle& handle, const Query& query, const Layout& layout);

} // namespace db

#pragma once

#include "db/bookmark.h"
#include "db/handle.h"
#include "db/layout.h"
#include "db/statements.h"

#include <memory>
#include <vector>

namespace db {

/// A place among the keys of a query's rows. It never holds a row.
class Cursor
{
public:
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

    /// The places of the next rows behind `place`, at most `most`; without a row there, from the first one
    /// on.
    [[nodiscard]] virtual std::vector<Bookmark> behind(const Bookmark& place, qint64 most) = 0;

    virtual void added(qint64 key) = 0;
    virtual void deleted() = 0;

private:
    Bookmark mark_;
};

/// A cursor before the first row of `query`; call first() to use it.
std::unique_ptr<Cursor> makecursor(Handle& handle, const Query& query, const Layout& layout);

} // namespace db

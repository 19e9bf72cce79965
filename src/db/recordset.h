#pragma once

#include "db/bookmark.h"
#include "db/connection.h"

#include <QAnyStringView>
#include <QStringList>

#include <memory>
#include <vector>

namespace db {

enum class Lock {
    ReadOnly,
    Optimistic ///< rows may be changed; the file is locked only while a change is written
};

/// A row that was read in passing.
struct Passed
{
    Bookmark place;
    QStringList texts; ///< of the fields that were asked for; empty if the row is gone
};

/// A cursor over the rows of a query: it holds keys and the current row, which is read when a field of it is
/// asked for, or, where it may be changed, when the cursor gets there.
/// Field names are those of the query, without regard to letter case. Any call may throw Failure.
class Recordset
{
public:
    Recordset();
    ~Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    /// Stands on the first row afterwards. An open recordset is closed first.
    void Open(const Query& query, Connection& connection, Lock lock);
    void Close() noexcept;

    /// Stands on a row.
    [[nodiscard]] bool hasRow() const;
    /// Before the first row, after the last row; both where there was no row at all.
    [[nodiscard]] bool Bof() const;
    [[nodiscard]] bool Eof() const;

    /// Moves drop an edit that was not written. One row past either end is Eof or Bof, a move further
    /// than that a Failure. MoveFirst and MoveLast are never a Failure for want of rows. A move that fails
    /// changes nothing.
    void MoveFirst();
    void MoveLast();
    void MoveNext() { Move(1); }
    void MovePrevious() { Move(-1); }

    /// By `rows` forward, or backward if negative; 0 reads the row anew.
    void Move(qint64 rows);

    [[nodiscard]] Bookmark bookmark() const;
    void goTo(const Bookmark& place);

    /// Reads the next rows behind `place`, at most `most`, and stays where it is. Without a row at that place
    /// these are the first ones.
    [[nodiscard]] std::vector<Passed> behind(const Bookmark& place, qint64 most, Fields fields) const;

    /// The number under which the file keeps the current row; no other row of the table has it, whatever its
    /// fields hold.
    [[nodiscard]] qint64 key() const;

    /// The field of the current row, or of the edit in progress. Null reads as "" and 0.
    [[nodiscard]] QString text(QAnyStringView field) const;
    [[nodiscard]] qint64 number(QAnyStringView field) const;

    /// Begins a new row; it exists, and is the current one, after Update().
    void AddNew();
    void set(QAnyStringView field, const QString& value);
    void set(QAnyStringView field, qint64 value);

    /// Writes the fields that were set as one transaction; without any edit it does nothing. When it
    /// fails, the file is unchanged, the edit is dropped and the recordset stands where it stood before.
    /// A row that was read and has been changed by somebody else since then is a Failure (RowChanged)
    /// until it is read anew; that the tallies of a question have grown does not count.
    void Update();

    /// Deletes the current row at once, with the same regard for changes by others. The moves go on from
    /// its place.
    void Delete();

private:
    struct State;
    [[nodiscard]] State& state() const;

    std::unique_ptr<State> state_;
};

} // namespace db

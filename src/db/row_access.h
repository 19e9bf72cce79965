#pragma once

#include "db/handle.h"
#include "db/layout.h"

#include <QAnyStringView>
#include <QStringList>

#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace db {

struct Cell
{
    QString text;
    qint64 number = 0;
};

/// A row as it was read, in the order of its source's fields.
using Row = std::vector<Cell>;
using FieldIndex = std::size_t;
using FieldValues = std::map<FieldIndex, Value>;

/// Reads and writes single rows of one source in one file, by their keys. A recordset owns one.
class RowAccess
{
public:
    /// Throws NoTable or NoField where the file does not have what the source reads.
    RowAccess(std::shared_ptr<Handle> handle, const Source& source);

    [[nodiscard]] Handle& handle() const { return *handle_; }
    [[nodiscard]] const Layout& layout() const { return layout_; }

    /// Throws NoField.
    [[nodiscard]] FieldIndex indexOf(QAnyStringView field) const;
    /// The number of a question, which only an insertion gives.
    [[nodiscard]] bool isId(FieldIndex field) const;

    /// None if there is no row with this key any more.
    [[nodiscard]] std::optional<Row> find(qint64 key) const;
    /// As find(), but throws RowGone.
    [[nodiscard]] Row read(qint64 key) const;

    /// The texts of `fields` in the rows with these keys, read at once; nothing for a row that is gone.
    [[nodiscard]] std::vector<QStringList> texts(const std::vector<qint64>& keys,
                                                 const std::vector<FieldIndex>& fields) const;

    // Each of these is one durable transaction.
    /// The new row and its key.
    [[nodiscard]] std::pair<qint64, Row> insert(const FieldValues& values);
    /// The row as written. Throws RowGone, or RowChanged where it was never read or others have written more
    /// than its counters since it was `asRead`.
    [[nodiscard]] Row change(qint64 key, const std::optional<Row>& asRead, const FieldValues& values);
    void remove(qint64 key, const std::optional<Row>& asRead);

    [[nodiscard]] Failure refusal(Attempt attempt, const Reason& reason) const;

private:
    [[nodiscard]] std::optional<Row> findNow(qint64 key) const;
    [[nodiscard]] Row readNow(qint64 key) const;
    void requireUnchanged(qint64 key, const std::optional<Row>& asRead) const;
    [[nodiscard]] bool isCounter(FieldIndex field) const;
    [[nodiscard]] qint64 nextId() const;
    [[nodiscard]] std::pair<std::vector<const char*>, std::vector<Value>>
    listed(const FieldValues& values) const;
    void execute(const std::string& sql, const std::vector<Value>& values, const Reason& ifNoRow) const;

    std::shared_ptr<Handle> handle_;
    const Source& source_;
    Layout layout_;
};

} // namespace db

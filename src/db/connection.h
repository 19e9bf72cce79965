#pragma once

#include "db/failure.h"
#include "db/schema.h"
#include "db/statements.h"

#include <chrono>
#include <memory>

namespace db {

class Handle;
class Recordset;

/// The file "orv.orv" in the directory that is current now. Throws Failure if that directory is gone.
QString databasepath();

/// One connection to a question bank. Its recordsets share the open file with it, so either may go first.
/// Every call here may throw Failure.
class Connection
{
public:
    /// Opens an existing file, which stays as it is when it cannot be used. `patience` is how long every
    /// later call waits for a file that another program has locked.
    void Open(const QString& path, std::chrono::milliseconds patience = std::chrono::seconds(3));

    /// The rows of `query` for reading, on the first row.
    Recordset Execute(const Query& query);

    /// Throws NoTable or NoField unless the file has `table` with all of its fields.
    void require(const schema::Table& table);

private:
    friend class Recordset;
    [[nodiscard]] const std::shared_ptr<Handle>& handle() const;

    std::shared_ptr<Handle> handle_;
};

/// A new connection to databasepath().
std::unique_ptr<Connection> opendatabase();

} // namespace db

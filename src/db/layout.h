#pragma once

#include "db/handle.h"
#include "db/sql.h"

#include <QStringList>

namespace db {

/// How one file keeps a table, which depends on the tool that made the file.
struct Layout
{
    std::string key;            ///< the name under which each row has a unique number
    bool idIsRowNumber = false; ///< the engine numbers new questions, and the key is in their order
};

/// Throws NoTable or NoField unless the file has `table` with all of `fields`.
Layout layoutOf(Handle& handle, const QString& table, const QStringList& fields);
Layout layoutOf(Handle& handle, const schema::Table& table);
Layout layoutOf(Handle& handle, const Source& source);

} // namespace db

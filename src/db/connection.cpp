#include "db/connection.h"

#include "db/handle.h"
#include "db/layout.h"

#include <QDir>

namespace db {

QString databasepath()
{
    const QString directory = QDir::currentPath();
    if (directory.isEmpty())
        throw failed(Attempt::Open, schema::fileName, reasons::missing);
    return directory + (directory.endsWith(u'/') ? "" : "/") + schema::fileName;
}

std::unique_ptr<Connection> opendatabase()
{
    auto connection = std::make_unique<Connection>();
    connection->Open(databasepath());
    return connection;
}

void Connection::Open(const QString& path, std::chrono::milliseconds patience)
{
    handle_ = std::make_shared<Handle>(path, patience);
}

void Connection::require(const schema::Table& table)
{
    layoutOf(*handle(), table);
}

const std::shared_ptr<Handle>& Connection::handle() const
{
    if (!handle_)
        throw Failure(Failure::Cause::Other, "No question bank has been opened yet. Open one first.");
    return handle_;
}

} // namespace db

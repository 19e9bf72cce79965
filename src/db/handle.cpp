#include "db/handle.h"

#include "db/sql.h"

#include <QFile>
#include <QFileInfo>

#include <cstdint>
#include <filesystem>
#include <optional>

namespace db {
namespace {

using std::filesystem::file_type;

// Looks at the file without opening it: closing a descriptor of our own would drop the locks that other
// connections of this process hold on the same file.
std::optional<Reason> unusable(const std::string& path)
{
    std::error_code error;
    const auto type = std::filesystem::status(path, error).type();
    if (type == file_type::not_found)
        return reasons::missing;
    if (type == file_type::none)
        return reasons::forbidden;
    if (type == file_type::directory)
        return reasons::folder;
    if (type != file_type::regular)
        return reasons::device;
    // The engine takes a file of one byte for an empty database.
    constexpr std::uintmax_t headerSize = 100;
    const auto size = std::filesystem::file_size(path, error);
    return size == 0           ? std::optional(reasons::empty)
           : size < headerSize ? std::optional(reasons::foreign)
                               : std::nullopt;
}

SQLite::Database openExisting(const QString& path, std::chrono::milliseconds patience)
{
    if (const auto reason = unusable(QFile::encodeName(path).toStdString()))
        throw failed(Attempt::Open, path, *reason);
    try {
        SQLite::Database database(path.toStdString(), SQLite::OPEN_READWRITE,
                                  static_cast<int>(patience.count()));
        database.exec(sql::durable); // reads the schema too, so that an unusable file fails here
        return database;
    } catch (const SQLite::Exception& error) {
        throw failed(Attempt::Open, path, error);
    }
}

} // namespace

Handle::Handle(const QString& path, std::chrono::milliseconds patience)
    : path_(QFileInfo(path).absoluteFilePath()), database_(openExisting(path_, patience))
{
}

SQLite::Statement Handle::prepared(const std::string& sql, std::span<const Value> values)
{
    SQLite::Statement statement(database_, sql);
    int place = 0;
    for (const Value& value : values) {
        ++place;
        if (const auto* number = std::get_if<qint64>(&value))
            statement.bind(place, static_cast<int64_t>(*number));
        else
            statement.bind(place, std::get<QString>(value).toStdString());
    }
    return statement;
}

} // namespace db

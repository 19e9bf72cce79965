#include "bank/create.h"

#include "bank/new_file.h"
#include "db/sql.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <SQLiteCpp/VariadicBind.h>
#include <sqlite3.h>

namespace bank {
namespace {

namespace schema = db::schema;

std::string creation(const schema::Table& table)
{
    std::string fields;
    for (const std::string_view field : table.fields) {
        const bool isTally = std::ranges::count(schema::tallies, field) > 0;
        fields += fields.empty() ? "" : ", ";
        fields += field;
        fields += field == schema::questionId ? " INTEGER PRIMARY KEY"
                  : isTally                   ? " INTEGER DEFAULT 1"
                                              : " TEXT";
    }
    return std::string("CREATE TABLE ") + table.name + " (" + fields + ");";
}

SQLite::Statement insertionInto(SQLite::Database& database, const schema::Table& table)
{
    return {database, db::sql::insertion(table.name, table.fields)};
}

} // namespace

void createDatabase(const std::filesystem::path& file, const Bank& bank,
                    const std::optional<Account>& account, Progress& progress)
{
    SQLite::Database database(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    for (const schema::Table& table : schema::tables)
        database.exec(creation(table));
    database.exec(std::string("CREATE INDEX questions_by_level ON ") + schema::questions.name + " (" +
                  schema::level + ")");
    SQLite::Transaction transaction(database);
    auto question = insertionInto(database, schema::questions);
    insert(bank.questions, question, progress);
    for (const Prompt& prompt : bank.prompts) {
        auto insertion = insertionInto(database, schema::locking);
        SQLite::bind(insertion, prompt.message.toStdString());
        insertion.exec();
    }
    if (account) {
        auto insertion = insertionInto(database, schema::users);
        SQLite::bind(insertion, account->name, account->password);
        insertion.exec();
    }
    transaction.commit();
    writeNew(file, contentOf(database), Readers::Owner);
}

QByteArray contentOf(SQLite::Database& database)
{
    sqlite3_int64 size = 0;
    unsigned char* const bytes = sqlite3_serialize(database.getHandle(), "main", &size, 0);
    if (!bytes)
        throw SQLite::Exception(database.getHandle());
    QByteArray content(reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(size));
    sqlite3_free(bytes);
    // With a write-ahead log a copy would keep part of what is written to it in a second file.
    constexpr qsizetype writeVersion = 18;
    content[writeVersion] = content[writeVersion + 1] = 1;
    return content;
}

} // namespace bank

#include "bank/create.h"

#include "bank/failure.h"
#include "bank/lines.h"
#include "bank/new_file.h"

#include <SQLiteCpp/SQLiteCpp.h>

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

void makeTables(const std::filesystem::path& file)
{
    SQLite::Database database(file.string(), SQLite::OPEN_READWRITE);
    // The journal mode is named because some builds of SQLite start with another one, and a database
    // that is to be copied as one file must not keep part of its content in a second.
    std::string sql = "PRAGMA journal_mode = DELETE;";
    for (const schema::Table& table : schema::tables)
        sql += creation(table);
    database.exec(sql + "CREATE INDEX questions_by_level ON " + schema::questions.name + " (" +
                  schema::level + ")");
}

} // namespace

void createDatabase(const std::filesystem::path& file, const Bank& bank,
                    const std::optional<Account>& account, Progress& progress)
{
    NewFile newFile(file);
    const QString temporary = nameOf(std::filesystem::absolute(newFile.temporary()));
    try {
        makeTables(newFile.temporary());
        Store store(newFile.temporary(), progress);
        store.changing([&] {
            store.addQuestions(bank.questions);
            store.addPrompts(bank.prompts);
            if (account)
                store.addAccount(*account);
        });
    } catch (const db::Failure& failure) {
        throw Failure(failure.message().replace(temporary, nameOf(file)));
    } catch (const SQLite::Exception& error) {
        throw Failure(QString("%1 cannot be written: %2").arg(nameOf(file), QString::fromUtf8(error.what())));
    }
    newFile.publish();
}

} // namespace bank

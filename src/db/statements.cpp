#include "db/statements.h"

#include "db/sql.h"

#include <array>

namespace db {
namespace {

constexpr std::array levelField = {schema::level};
constexpr std::array idField = {schema::questionId};

using Order = Source::Order;
constexpr Source questionIdsOfLevelSource = {schema::questions.name, idField, levelField, {},
                                             Order::KeyListed,       true};
constexpr Source questionsOfLevelSource = {
    schema::questions.name, schema::questionFields, levelField, schema::tallies, Order::Key, true};
constexpr Source questionByKeySource = {schema::questions.name, schema::questionFields, {},
                                        schema::tallies,        Order::OneKey,          true};
constexpr Source allQuestionsSource = {
    schema::questions.name, schema::questionFields, {}, schema::tallies, Order::Id, true};
constexpr Source promptMessagesSource = {
    schema::locking.name, schema::messageFields, {}, {}, Order::Key, false};
constexpr Source accountSource = {
    schema::users.name, schema::accountFields, schema::accountFields, {}, Order::Key, false};

// "one<between>two<between>three", each followed by `after`.
std::string joined(Fields fields, const std::string& after, const std::string& between)
{
    std::string text;
    for (const char* field : fields)
        text.append(text.empty() ? "" : between).append(field).append(after);
    return text;
}

std::string where(const std::string& filter, const std::string& more = {})
{
    if (filter.empty() && more.empty())
        return {};
    return " where " + filter + (filter.empty() || more.empty() ? "" : " and ") + more;
}

std::string filterOf(const Source& source, const std::string& key)
{
    return source.order == Source::Order::OneKey ? key + " = ?" : joined(source.filter, " = ?", " and ");
}

} // namespace

namespace statements {

Query questionIdsOfLevel(const QString& level)
{
    return {&questionIdsOfLevelSource, {level}};
}

Query questionsOfLevel(const QString& level)
{
    return {&questionsOfLevelSource, {level}};
}

Query questionByKey(qint64 key)
{
    return {&questionByKeySource, {key}};
}

Query allQuestions()
{
    return {&allQuestionsSource, {}};
}

Query promptMessages()
{
    return {&promptMessagesSource, {}};
}

Query account(const QString& name, const QString& password)
{
    return {&accountSource, {name, password}};
}

} // namespace statements

namespace sql {

const char* const durable = "pragma synchronous = full";

const char* const tableKind =
    "select type, wr from pragma_table_list where schema = 'main' and name = ? collate nocase";
const char* const columns = "select name, pk, type from pragma_table_xinfo(?)";
const char* const keyIndexes = "select 1 from pragma_index_list(?) where origin = 'pk'";

namespace {
// A foreign file may hold its numbers as text.
const std::string idAsNumber = std::string("cast(") + schema::questionId + " as integer)";
} // namespace

const std::string strayId = std::string("select 1 from ") + schema::questions.name + " where typeof(" +
                            schema::questionId + ") <> 'integer' limit 1";
const std::string largestId = "select max(" + idAsNumber + ") from " + schema::questions.name;

std::string keys(const Source& source, const std::string& key)
{
    const std::string id = source.order == Source::Order::Id ? idAsNumber + ", " : "";
    return "select " + key + " from " + source.table + where(filterOf(source, key)) + " order by " + id + key;
}

std::string neighbours(const Source& source, const std::string& key, Direction direction, bool fromKey)
{
    const bool forward = direction == Direction::Forward;
    const std::string start = fromKey ? key + (forward ? " > ?" : " < ?") : "";
    return "select " + key + " from " + source.table + where(filterOf(source, key), start) + " order by " +
           key + (forward ? "" : " desc") + " limit ? offset ?";
}

std::string row(const Source& source, const std::string& key)
{
    return "select " + joined(source.fields, "", ", ") + " from " + source.table + where(key + " = ?");
}

std::string insertion(const char* table, Fields fields)
{
    const std::string into = std::string("insert into ") + table;
    if (fields.empty())
        return into + " default values";
    std::string places = "?";
    for (std::size_t i = 1; i < fields.size(); ++i)
        places += ", ?";
    return into + " (" + joined(fields, "", ", ") + ") values (" + places + ")";
}

std::string change(const char* table, Fields fields, const std::string& key)
{
    return std::string("update ") + table + " set " + joined(fields, " = ?", ", ") + where(key + " = ?");
}

std::string deletion(const char* table, const std::string& key)
{
    return std::string("delete from ") + table + where(key + " = ?");
}

} // namespace sql
} // namespace db

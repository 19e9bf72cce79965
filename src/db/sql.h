#pragma once

#include "db/schema.h"

#include <string>

namespace db {

/// What a query reads: the rows of one table whose `filter` fields equal the values bound in their order.
struct Source
{
    enum class Order {
        Key,       ///< walked row by row, only the current key is kept
        OneKey,    ///< the one row with a key, the first value; without `filter`
        KeyListed, ///< the keys are listed when it is opened
        Id,        ///< by question_id; walked where that is the key, else listed
    };

    const char* table;
    Fields fields;
    Fields filter;
    Fields counters; ///< of `fields`, those that may change without making another row of it
    Order order;
    bool hasId; ///< its rows are numbered by question_id
};

/// Texts of the statements. `key` is the name under which the file's table gives each row's unique number.
namespace sql {

extern const char* const durable;

extern const char* const tableKind;  ///< table -> type, whether it lacks row numbers
extern const char* const columns;    ///< table -> name, place in the primary key and type of each column
extern const char* const keyIndexes; ///< table -> one row if its primary key is kept in an index
extern const std::string strayId;    ///< one row if the number of a question is no whole number
extern const std::string largestId;

enum class Direction { Forward, Backward };

/// filter values -> all keys, in the order of the source.
std::string keys(const Source& source, const std::string& key);

/// filter values, [the key to start from,] how many, rows to skip -> the next keys in this direction.
std::string neighbours(const Source& source, const std::string& key, Direction direction, bool fromKey);

/// key -> the fields of its row.
std::string row(const Source& source, const std::string& key);

/// a value for each field ->
std::string insertion(const char* table, Fields fields);

/// a value for each field, key ->
std::string change(const char* table, Fields fields, const std::string& key);

/// key ->
std::string deletion(const char* table, const std::string& key);

} // namespace sql
} // namespace db

#pragma once

#include "db/value.h"

#include <vector>

namespace db {

struct Source;

/// One of the statements below with its values. Values are bound, so nothing typed can change a statement.
struct Query
{
    const Source* source = nullptr;
    std::vector<Value> values;
};

/// Every query of the system. The field names that each one offers are given in brackets.
namespace statements {

/// [question_id] of the questions of a level, "1", "2" or "3"; listed once, when it is executed.
Query questionIdsOfLevel(const QString& level);

/// [all fields] of the questions of a level, in the order of questionIdsOfLevel().
Query questionsOfLevel(const QString& level);

/// [all fields] of one question, by the key of its row (see Recordset::key()).
Query questionByKey(qint64 key);

/// [all fields] of all questions in the order of question_id.
Query allQuestions();

/// [message] of all prompt messages, the oldest first.
Query promptMessages();

/// [username, password] of the accounts that match both; the caller trims what was typed.
Query account(const QString& name, const QString& password);

} // namespace statements
} // namespace db

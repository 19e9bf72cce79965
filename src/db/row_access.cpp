#include "db/row_access.h"

#include "db/sql.h"

#include <algorithm>
#include <limits>

namespace db {

RowAccess::RowAccess(std::shared_ptr<Handle> handle, const Source& source)
    : handle_(std::move(handle)), source_(source), layout_(layoutOf(*handle_, source))
{
}

FieldIndex RowAccess::indexOf(QAnyStringView field) const
{
    for (FieldIndex i = 0; i < source_.fields.size(); ++i)
        if (QAnyStringView::compare(field, source_.fields[i], Qt::CaseInsensitive) == 0)
            return i;
    throw noField(handle_->path(), QString::fromLatin1(source_.table), field.toString());
}

bool RowAccess::isId(FieldIndex field) const
{
    return source_.fields[field] == std::string_view(schema::questionId);
}

bool RowAccess::isCounter(FieldIndex field) const
{
    return std::ranges::any_of(source_.counters,
                               [&](std::string_view name) { return name == source_.fields[field]; });
}

Failure RowAccess::refusal(Attempt attempt, const Reason& reason) const
{
    return failed(attempt, handle_->path(), reason);
}

std::optional<Row> RowAccess::find(qint64 key) const
{
    return handle_->reading([&] { return findNow(key); });
}

Row RowAccess::read(qint64 key) const
{
    return handle_->reading([&] { return readNow(key); });
}

Row RowAccess::readNow(qint64 key) const
{
    if (auto row = findNow(key))
        return *std::move(row);
    throw refusal(Attempt::Read, reasons::rowGone);
}

std::optional<Row> RowAccess::findNow(qint64 key) const
{
    const Value bound = key;
    auto statement = handle_->prepared(sql::row(source_, layout_.key), {&bound, 1});
    if (!statement.executeStep())
        return std::nullopt;
    Row row;
    for (int i = 0; i < statement.getColumnCount(); ++i) {
        const auto column = statement.getColumn(i);
        const qint64 number = column.getInt64();
        const char* const text = column.getText(); // only now the engine knows the size in UTF-8
        row.push_back({QString::fromUtf8(text, column.getBytes()), number});
    }
    return row;
}

std::vector<QStringList> RowAccess::texts(const std::vector<qint64>& keys,
                                          const std::vector<FieldIndex>& fields) const
{
    return handle_->readingAtOnce([&] {
        std::vector<QStringList> rows(keys.size());
        auto statement = handle_->prepared(sql::row(source_, layout_.key));
        for (std::size_t i = 0; i < keys.size(); ++i) {
            statement.reset();
            statement.bind(1, static_cast<int64_t>(keys[i]));
            if (!statement.executeStep())
                continue;
            for (const FieldIndex field : fields) {
                const auto column = statement.getColumn(static_cast<int>(field));
                const char* const text = column.getText();
                rows[i] << QString::fromUtf8(text, column.getBytes());
            }
        }
        return rows;
    });
}

// Rows are read back before anybody else can change them, so that they are what was written.
std::pair<qint64, Row> RowAccess::insert(const FieldValues& values)
{
    return handle_->changing([&] {
        auto [fields, bound] = listed(values);
        const bool weAssignId = source_.hasId && !layout_.idIsRowNumber;
        const qint64 id = weAssignId ? nextId() : 0;
        if (weAssignId) {
            fields.push_back(schema::questionId);
            bound.emplace_back(id);
        }
        execute(sql::insertion(source_.table, fields), bound, reasons::refused);
        const qint64 key = layout_.key == schema::questionId ? id : handle_->lastRowNumber();
        return std::pair(key, readNow(key));
    });
}

Row RowAccess::change(qint64 key, const std::optional<Row>& asRead, const FieldValues& values)
{
    return handle_->changing([&] {
        requireUnchanged(key, asRead);
        auto [fields, bound] = listed(values);
        bound.emplace_back(key);
        execute(sql::change(source_.table, fields, layout_.key), bound, reasons::rowGone);
        return readNow(key);
    });
}

void RowAccess::remove(qint64 key, const std::optional<Row>& asRead)
{
    handle_->changing([&] {
        requireUnchanged(key, asRead);
        execute(sql::deletion(source_.table, layout_.key), {key}, reasons::rowGone);
    });
}

// Within the transaction that is about to write: nobody else can change the row any more.
void RowAccess::requireUnchanged(qint64 key, const std::optional<Row>& asRead) const
{
    const Row now = readNow(key);
    bool same = asRead.has_value();
    for (FieldIndex i = 0; same && i < now.size(); ++i)
        same = isCounter(i) || now[i].text == (*asRead)[i].text;
    if (!same)
        throw refusal(Attempt::Change, reasons::rowChanged);
}

qint64 RowAccess::nextId() const
{
    auto statement = handle_->prepared(sql::largestId);
    statement.executeStep();
    const qint64 largest = statement.getColumn(0).getInt64();
    if (largest == std::numeric_limits<qint64>::max())
        throw refusal(Attempt::Change, reasons::noNumberLeft);
    return largest + 1;
}

std::pair<std::vector<const char*>, std::vector<Value>> RowAccess::listed(const FieldValues& values) const
{
    std::pair<std::vector<const char*>, std::vector<Value>> lists;
    for (const auto& [index, value] : values) {
        lists.first.push_back(source_.fields[index]);
        lists.second.push_back(value);
    }
    return lists;
}

void RowAccess::execute(const std::string& sql, const std::vector<Value>& values, const Reason& ifNoRow) const
{
    if (handle_->prepared(sql, values).exec() != 1)
        throw refusal(Attempt::Change, ifNoRow);
}

} // namespace db

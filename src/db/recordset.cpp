#include "db/recordset.h"

#include "db/connection.h"
#include "db/cursor.h"

#include <algorithm>
#include <limits>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace db {

using Place = Cursor::Place;

/// The open state of a recordset.
class Recordset::Core
{
public:
    Core(const Query& query, std::shared_ptr<Handle> handle, Lock lock)
        : handle_(std::move(handle)),
          source_(*query.source),
          layout_(layoutOf(*handle_, source_)),
          cursor_(makecursor(*handle_, query, layout_)),
          lock_(lock)
    {
        cursor_->first();
    }

    [[nodiscard]] bool isAt(Place end) const
    {
        return !(edit_ && edit_->isNew) && (cursor_->place() == end || cursor_->place() == Place::Empty);
    }

    // The cursor to be moved: what belongs to the row that it leaves is forgotten.
    Cursor& leave()
    {
        edit_.reset();
        row_.reset();
        return *cursor_;
    }

    void move(qint64 rows);
    QString text(QAnyStringView field);
    qint64 number(QAnyStringView field);
    void addNew();
    void set(QAnyStringView field, Value value);
    void update();
    void cancel() { edit_.reset(); }
    void remove();

private:
    struct Cell
    {
        QString text;
        qint64 number = 0;
    };
    using Row = std::vector<Cell>;
    using FieldIndex = std::size_t;

    struct Edit
    {
        bool isNew = false;
        std::map<FieldIndex, Value> values;
    };

    [[nodiscard]] Failure refusal(Attempt attempt, const Reason& reason) const
    {
        return failed(attempt, handle_->path(), reason);
    }

    [[nodiscard]] FieldIndex indexOf(QAnyStringView field) const;
    [[nodiscard]] bool isCounter(FieldIndex field) const;
    void requireRow(Attempt attempt) const;
    void requireChangeable() const;
    void requireUnchanged() const;
    [[nodiscard]] const Value* edited(FieldIndex field) const;
    const Cell& cell(FieldIndex field);
    [[nodiscard]] Row readRow(qint64 key) const;
    [[nodiscard]] qint64 nextId() const;
    [[nodiscard]] std::pair<std::vector<const char*>, std::vector<Value>> listed(const Edit& edit) const;
    qint64 insert(const Edit& edit);
    qint64 change(const Edit& edit);
    void execute(const std::string& sql, const std::vector<Value>& values, const Reason& ifNoRow);

    std::shared_ptr<Handle> handle_;
    const Source& source_;
    Layout layout_;
    std::unique_ptr<Cursor> cursor_;
    Lock lock_;
    std::optional<Row> row_;
    std::optional<Edit> edit_;
};

void Recordset::Core::move(qint64 rows)
{
    Cursor& cursor = leave();
    if (rows == 0)
        return;
    const Place end = rows > 0 ? Place::After : Place::Before;
    if (cursor.place() == Place::Empty || cursor.place() == end)
        throw refusal(Attempt::Read, reasons::pastTheEnd);
    if (rows > 0)
        cursor.step(sql::Direction::Forward, rows - 1);
    else
        cursor.step(sql::Direction::Backward, -(rows + 1));
}

QString Recordset::Core::text(QAnyStringView field)
{
    const FieldIndex index = indexOf(field);
    if (const Value* value = edited(index)) {
        const auto* number = std::get_if<qint64>(value);
        return number ? QString::number(*number) : std::get<QString>(*value);
    }
    return cell(index).text;
}

qint64 Recordset::Core::number(QAnyStringView field)
{
    const FieldIndex index = indexOf(field);
    if (const Value* value = edited(index)) {
        const auto* text = std::get_if<QString>(value);
        return text ? text->toLongLong() : std::get<qint64>(*value);
    }
    return cell(index).number;
}

void Recordset::Core::addNew()
{
    requireChangeable();
    edit_ = Edit{.isNew = true, .values = {}};
}

void Recordset::Core::set(QAnyStringView field, Value value)
{
    requireChangeable();
    const FieldIndex index = indexOf(field);
    if (source_.fields[index] == std::string_view(schema::questionId))
        throw refusal(Attempt::Change, reasons::idIsAssigned);
    if (!edit_) {
        requireRow(Attempt::Change);
        edit_ = Edit{.isNew = false, .values = {}};
    }
    edit_->values.insert_or_assign(index, std::move(value));
}

void Recordset::Core::update()
{
    const std::optional<Edit> edit = std::exchange(edit_, std::nullopt);
    if (!edit)
        return;
    // Read back before anybody else can change it, so that it is what was written.
    const auto [key, row] = handle_->changing([&] {
        const qint64 written = edit->isNew ? insert(*edit) : change(*edit);
        return std::pair(written, readRow(written));
    });
    if (edit->isNew)
        cursor_->added(key);
    row_ = row;
}

void Recordset::Core::remove()
{
    requireChangeable();
    cancel();
    requireRow(Attempt::Change);
    handle_->changing([&] {
        requireUnchanged();
        execute(sql::deletion(source_.table, layout_.key), {cursor_->key()}, reasons::rowGone);
    });
    row_.reset();
    cursor_->deleted();
}

Recordset::Core::FieldIndex Recordset::Core::indexOf(QAnyStringView field) const
{
    for (FieldIndex i = 0; i < source_.fields.size(); ++i)
        if (QAnyStringView::compare(field, source_.fields[i], Qt::CaseInsensitive) == 0)
            return i;
    throw noField(handle_->path(), QString::fromLatin1(source_.table), field.toString());
}

void Recordset::Core::requireRow(Attempt attempt) const
{
    if (cursor_->place() != Place::Row)
        throw refusal(attempt, reasons::noCurrentRow);
}

void Recordset::Core::requireChangeable() const
{
    if (lock_ == Lock::ReadOnly)
        throw refusal(Attempt::Change, reasons::openedToRead);
}

// Within the transaction that is about to write: nobody else can change the row any more.
void Recordset::Core::requireUnchanged() const
{
    if (!row_)
        return;
    const Row now = readRow(cursor_->key());
    for (FieldIndex i = 0; i < now.size(); ++i)
        if (now[i].text != (*row_)[i].text && !isCounter(i))
            throw refusal(Attempt::Change, reasons::rowChanged);
}

bool Recordset::Core::isCounter(FieldIndex field) const
{
    return std::ranges::any_of(source_.counters,
                               [&](std::string_view name) { return name == source_.fields[field]; });
}

const Value* Recordset::Core::edited(FieldIndex field) const
{
    if (!edit_)
        return nullptr;
    const auto found = edit_->values.find(field);
    return found == edit_->values.end() ? nullptr : &found->second;
}

const Recordset::Core::Cell& Recordset::Core::cell(FieldIndex field)
{
    static const Cell null;
    if (edit_ && edit_->isNew)
        return null;
    requireRow(Attempt::Read);
    if (!row_)
        row_ = handle_->reading([this] { return readRow(cursor_->key()); });
    return (*row_)[field];
}

Recordset::Core::Row Recordset::Core::readRow(qint64 key) const
{
    const Value bound = key;
    auto statement = handle_->prepared(sql::row(source_, layout_.key), {&bound, 1});
    if (!statement.executeStep())
        throw refusal(Attempt::Read, reasons::rowGone);
    Row row;
    for (int i = 0; i < statement.getColumnCount(); ++i) {
        const auto column = statement.getColumn(i);
        const qint64 number = column.getInt64();
        const char* const text = column.getText(); // only now the engine knows the size in UTF-8
        row.push_back({QString::fromUtf8(text, column.getBytes()), number});
    }
    return row;
}

qint64 Recordset::Core::nextId() const
{
    auto statement = handle_->prepared(sql::largestId);
    statement.executeStep();
    const qint64 largest = statement.getColumn(0).getInt64();
    if (largest == std::numeric_limits<qint64>::max())
        throw refusal(Attempt::Change, reasons::noNumberLeft);
    return largest + 1;
}

std::pair<std::vector<const char*>, std::vector<Value>> Recordset::Core::listed(const Edit& edit) const
{
    std::pair<std::vector<const char*>, std::vector<Value>> lists;
    for (const auto& [index, value] : edit.values) {
        lists.first.push_back(source_.fields[index]);
        lists.second.push_back(value);
    }
    return lists;
}

qint64 Recordset::Core::insert(const Edit& edit)
{
    auto [fields, values] = listed(edit);
    const bool weAssignId = source_.hasId && !layout_.idIsRowNumber;
    const qint64 id = weAssignId ? nextId() : 0;
    if (weAssignId) {
        fields.push_back(schema::questionId);
        values.emplace_back(id);
    }
    execute(sql::insertion(source_.table, fields), values, reasons::refused);
    return layout_.key == schema::questionId ? id : handle_->lastRowNumber();
}

qint64 Recordset::Core::change(const Edit& edit)
{
    requireUnchanged();
    auto [fields, values] = listed(edit);
    values.emplace_back(cursor_->key());
    execute(sql::change(source_.table, fields, layout_.key), values, reasons::rowGone);
    return cursor_->key();
}

void Recordset::Core::execute(const std::string& sql, const std::vector<Value>& values, const Reason& ifNoRow)
{
    if (handle_->prepared(sql, values).exec() != 1)
        throw refusal(Attempt::Change, ifNoRow);
}

Recordset::Recordset() = default;
Recordset::~Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;

void Recordset::Open(const Query& query, Connection& connection, Lock lock)
{
    Close();
    core_ = std::make_unique<Core>(query, connection.handle(), lock);
}

void Recordset::Close() noexcept
{
    core_.reset();
}

Recordset::Core& Recordset::core() const
{
    if (!core_) {
        throw Failure(Failure::Cause::Other,
                      "These rows of the question bank have been closed. Open them again first.");
    }
    return *core_;
}

bool Recordset::Bof() const
{
    return core().isAt(Place::Before);
}

bool Recordset::Eof() const
{
    return core().isAt(Place::After);
}

void Recordset::MoveFirst()
{
    core().leave().first();
}

void Recordset::MoveLast()
{
    core().leave().last();
}

void Recordset::Move(qint64 rows)
{
    core().move(rows);
}

QString Recordset::text(QAnyStringView field) const
{
    return core().text(field);
}

qint64 Recordset::number(QAnyStringView field) const
{
    return core().number(field);
}

void Recordset::AddNew()
{
    core().addNew();
}

void Recordset::set(QAnyStringView field, const QString& value)
{
    core().set(field, value);
}

void Recordset::set(QAnyStringView field, qint64 value)
{
    core().set(field, value);
}

void Recordset::Update()
{
    core().update();
}

void Recordset::CancelUpdate()
{
    core().cancel();
}

void Recordset::Delete()
{
    core().remove();
}

} // namespace db

#include "db/recordset.h"

#include "db/cursor.h"
#include "db/row_access.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <utility>

namespace db {

using sql::Direction;

/// What an open recordset holds.
struct Recordset::State
{
    struct Edit
    {
        bool isNew = false;
        FieldValues values;
    };

    State(const Query& query, const std::shared_ptr<Handle>& handle, Lock openedFor)
        : access(handle, *query.source), cursor(makecursor(*handle, query, access.layout())), lock(openedFor)
    {
    }

    [[nodiscard]] bool isAt(Position end) const
    {
        return !(edit && edit->isNew) && (cursor->position() == end || cursor->position() == Position::Empty);
    }

    void requireRow(Attempt attempt) const
    {
        if (cursor->position() != Position::Row)
            throw access.refusal(attempt, reasons::noCurrentRow);
    }

    void requireChangeable() const
    {
        if (lock == Lock::ReadOnly)
            throw access.refusal(Attempt::Change, reasons::openedToRead);
    }

    // A row that may be changed is read at once, so that a move that fails leaves everything as it was.
    void move(Direction direction, const std::function<void()>& step)
    {
        const Bookmark former = cursor->bookmark();
        try {
            step();
            row = lock == Lock::Optimistic ? arrived(direction) : std::nullopt;
        } catch (const Failure&) {
            cursor->goTo(former);
            throw;
        }
        edit.reset();
    }

    // The row under the cursor. Keys whose rows others have deleted are passed over.
    std::optional<Row> arrived(Direction direction)
    {
        while (cursor->position() == Position::Row) {
            if (auto found = access.find(cursor->key()))
                return found;
            cursor->step(direction, 0);
        }
        return std::nullopt;
    }

    void refresh()
    {
        if (lock == Lock::Optimistic && cursor->position() == Position::Row)
            row = access.read(cursor->key());
        else
            row.reset();
        edit.reset();
    }

    [[nodiscard]] const Value* edited(FieldIndex field) const
    {
        if (!edit)
            return nullptr;
        const auto found = edit->values.find(field);
        return found == edit->values.end() ? nullptr : &found->second;
    }

    const Cell& cell(FieldIndex field)
    {
        static const Cell null;
        if (edit && edit->isNew)
            return null;
        requireRow(Attempt::Read);
        if (!row)
            row = access.read(cursor->key());
        return (*row)[field];
    }

    void set(QAnyStringView field, Value value)
    {
        requireChangeable();
        const FieldIndex index = access.indexOf(field);
        if (access.isId(index))
            throw access.refusal(Attempt::Change, reasons::idIsAssigned);
        if (!edit) {
            requireRow(Attempt::Change);
            edit = Edit{.isNew = false, .values = {}};
        }
        edit->values.insert_or_assign(index, std::move(value));
    }

    RowAccess access;
    std::unique_ptr<Cursor> cursor;
    Lock lock;
    std::optional<Row> row; ///< the current one, once it has been read
    std::optional<Edit> edit;
};

Recordset::Recordset() = default;
Recordset::~Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;

Recordset Connection::Execute(const Query& query)
{
    Recordset result;
    result.Open(query, *this, Lock::ReadOnly);
    return result;
}

void Recordset::Open(const Query& query, Connection& connection, Lock lock)
{
    Close();
    auto opened = std::make_unique<State>(query, connection.handle(), lock);
    opened->move(Direction::Forward, [&] { opened->cursor->first(); });
    state_ = std::move(opened);
}

void Recordset::Close() noexcept
{
    state_.reset();
}

Recordset::State& Recordset::state() const
{
    if (!state_) {
        throw Failure(Failure::Cause::Other,
                      "These rows of the question bank have been closed. Open them again first.");
    }
    return *state_;
}

bool Recordset::Bof() const
{
    return state().isAt(Position::Before);
}

bool Recordset::hasRow() const
{
    return state().cursor->position() == Position::Row;
}

bool Recordset::Eof() const
{
    return state().isAt(Position::After);
}

void Recordset::MoveFirst()
{
    state().move(Direction::Forward, [this] { state().cursor->first(); });
}

void Recordset::MoveLast()
{
    state().move(Direction::Backward, [this] { state().cursor->last(); });
}

void Recordset::Move(qint64 rows)
{
    Cursor& cursor = *state().cursor;
    if (rows == 0) {
        state().refresh();
        return;
    }
    const Position end = rows > 0 ? Position::After : Position::Before;
    if (cursor.position() == Position::Empty || cursor.position() == end)
        throw state().access.refusal(Attempt::Read, reasons::pastTheEnd);
    const Direction direction = rows > 0 ? Direction::Forward : Direction::Backward;
    const qint64 skipped = rows > 0 ? rows - 1 : -(rows + 1);
    state().move(direction, [&] { cursor.step(direction, skipped); });
}

Bookmark Recordset::bookmark() const
{
    return state().cursor->bookmark();
}

void Recordset::goTo(const Bookmark& place)
{
    state().move(Direction::Forward, [&] { state().cursor->goTo(place); });
}

std::vector<Passed> Recordset::behind(const Bookmark& place, qint64 most, Fields fields) const
{
    std::vector<FieldIndex> indexes;
    indexes.reserve(fields.size());
    for (const char* field : fields)
        indexes.push_back(state().access.indexOf(field));
    const auto places = state().cursor->behind(place, most);
    std::vector<qint64> keys(places.size());
    std::ranges::transform(places, keys.begin(), &Bookmark::key);
    const auto texts = state().access.texts(keys, indexes);
    std::vector<Passed> rows;
    rows.reserve(places.size());
    for (std::size_t i = 0; i < places.size(); ++i)
        rows.push_back({places[i], texts[i]});
    return rows;
}

qint64 Recordset::key() const
{
    state().requireRow(Attempt::Read);
    return state().cursor->key();
}

QString Recordset::text(QAnyStringView field) const
{
    const FieldIndex index = state().access.indexOf(field);
    if (const Value* value = state().edited(index)) {
        const auto* number = std::get_if<qint64>(value);
        return number ? QString::number(*number) : std::get<QString>(*value);
    }
    return state().cell(index).text;
}

qint64 Recordset::number(QAnyStringView field) const
{
    const FieldIndex index = state().access.indexOf(field);
    if (const Value* value = state().edited(index)) {
        const auto* text = std::get_if<QString>(value);
        return text ? text->toLongLong() : std::get<qint64>(*value);
    }
    return state().cell(index).number;
}

void Recordset::AddNew()
{
    state().requireChangeable();
    state().edit = State::Edit{.isNew = true, .values = {}};
}

void Recordset::set(QAnyStringView field, const QString& value)
{
    state().set(field, value);
}

void Recordset::set(QAnyStringView field, qint64 value)
{
    state().set(field, value);
}

void Recordset::Update()
{
    State& rows = state();
    const auto edit = std::exchange(rows.edit, std::nullopt);
    if (!edit)
        return;
    if (edit->isNew) {
        auto [key, row] = rows.access.insert(edit->values);
        rows.cursor->added(key);
        rows.row = std::move(row);
    } else {
        rows.row = rows.access.change(rows.cursor->key(), rows.row, edit->values);
    }
}

void Recordset::Delete()
{
    State& rows = state();
    rows.requireChangeable();
    rows.edit.reset();
    rows.requireRow(Attempt::Change);
    rows.access.remove(rows.cursor->key(), rows.row);
    rows.row.reset();
    rows.cursor->deleted();
}

} // namespace db

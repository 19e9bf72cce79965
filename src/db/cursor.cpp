#include "db/cursor.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace db {
namespace {

using sql::Direction;

/// Keeps the current key alone: each move asks the engine for the next key in the order of the key.
class Walk final : public Cursor
{
public:
    Walk(Handle& handle, Query query, const Layout& layout)
        : handle_(handle), query_(std::move(query)), key_(layout.key)
    {
    }

    void first() override { toEnd(Direction::Forward); }
    void last() override { toEnd(Direction::Backward); }

    void step(Direction direction, qint64 skipped) override
    {
        if (const auto found = neighbour(direction, keyAt(bookmark()).has_value(), skipped))
            goTo({Position::Row, *found});
        else
            goTo({direction == Direction::Forward ? Position::After : Position::Before});
    }

    std::vector<Bookmark> behind(const Bookmark& place, qint64 most) override
    {
        std::vector<Bookmark> places;
        for (const qint64 next : keys(Direction::Forward, keyAt(place), 0, most))
            places.push_back({Position::Row, next});
        return places;
    }

    void added(qint64 key) override { goTo({Position::Row, key}); }
    void deleted() override { goTo({Position::Gap, key()}); }

private:
    void toEnd(Direction direction)
    {
        const auto found = neighbour(direction, false, 0);
        goTo({found ? Position::Row : Position::Empty, found.value_or(0)});
    }

    static std::optional<qint64> keyAt(const Bookmark& place)
    {
        const bool hasKey = place.position == Position::Row || place.position == Position::Gap;
        return hasKey ? std::optional(place.key) : std::nullopt;
    }

    std::optional<qint64> neighbour(Direction direction, bool fromKey, qint64 skipped)
    {
        const auto found = keys(direction, fromKey ? std::optional(key()) : std::nullopt, skipped, 1);
        return found.empty() ? std::nullopt : std::optional(found.front());
    }

    std::vector<qint64> keys(Direction direction, std::optional<qint64> from, qint64 skipped, qint64 most)
    {
        return handle_.reading([&] {
            std::vector<Value> values = query_.values;
            if (from)
                values.emplace_back(*from);
            values.insert(values.end(), {most, skipped});
            auto statement =
                handle_.prepared(sql::neighbours(*query_.source, key_, direction, from.has_value()), values);
            std::vector<qint64> found;
            while (statement.executeStep())
                found.push_back(statement.getColumn(0).getInt64());
            return found;
        });
    }

    Handle& handle_;
    Query query_;
    std::string key_;
};

/// Keeps the keys that matched when it was made, for results that are counted and rewound.
class List final : public Cursor
{
public:
    List(Handle& handle, const Query& query, const Layout& layout)
    {
        handle.reading([&] {
            auto statement = handle.prepared(sql::keys(*query.source, layout.key), query.values);
            while (statement.executeStep())
                keys_.push_back(statement.getColumn(0).getInt64());
        });
    }

    void first() override { keys_.empty() ? goTo({}) : goToIndex(0); }
    void last() override { keys_.empty() ? goTo({}) : goToIndex(size() - 1); }

    void step(Direction direction, qint64 skipped) override
    {
        const qint64 here = position() == Position::Before  ? -1
                            : position() == Position::After ? size()
                                                            : bookmark().index;
        const qint64 next = position() == Position::Gap ? here : here + 1;
        if (direction == Direction::Forward)
            skipped < size() - next ? goToIndex(next + skipped) : goTo({Position::After});
        else
            skipped < here ? goToIndex(here - 1 - skipped) : goTo({Position::Before});
    }

    std::vector<Bookmark> behind(const Bookmark& place, qint64 most) override
    {
        std::vector<Bookmark> places;
        const qint64 first = place.position == Position::Row ? place.index + 1 : 0;
        for (qint64 index = first; index < std::min(size(), first + most); ++index)
            places.push_back(at(index));
        return places;
    }

    void added(qint64 key) override
    {
        keys_.push_back(key);
        last();
    }

    void deleted() override
    {
        keys_.erase(keys_.begin() + bookmark().index);
        goTo({Position::Gap, 0, bookmark().index});
    }

private:
    [[nodiscard]] qint64 size() const { return static_cast<qint64>(keys_.size()); }

    [[nodiscard]] Bookmark at(qint64 index) const
    {
        return {Position::Row, keys_[static_cast<std::size_t>(index)], index};
    }

    void goToIndex(qint64 index) { goTo(at(index)); }

    std::vector<qint64> keys_;
};

} // namespace

std::unique_ptr<Cursor> makecursor(Handle& handle, const Query& query, const Layout& layout)
{
    const auto order = query.source->order;
    if (order == Source::Order::Key || (order == Source::Order::Id && layout.idIsRowNumber))
        return std::make_unique<Walk>(handle, query, layout);
    return std::make_unique<List>(handle, query, layout);
}

} // namespace db

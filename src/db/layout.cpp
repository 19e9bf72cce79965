#include "db/layout.h"

#include <algorithm>
#include <array>
#include <vector>

namespace db {
namespace {

struct Column
{
    QString name;
    bool inPrimaryKey;
    bool keepsWholeNumbers; ///< and makes such of texts that look like them
};

bool named(const Column& column, const QString& name)
{
    return column.name.compare(name, Qt::CaseInsensitive) == 0;
}

const Column* find(const std::vector<Column>& columns, const QString& name)
{
    const auto found =
        std::find_if(columns.begin(), columns.end(), [&](const Column& c) { return named(c, name); });
    return found == columns.end() ? nullptr : &*found;
}

std::vector<Column> columnsOf(Handle& handle, const Value& table)
{
    std::vector<Column> columns;
    auto statement = handle.prepared(sql::columns, {&table, 1});
    while (statement.executeStep()) {
        const QString type = QString::fromUtf8(statement.getColumn(2).getText());
        columns.push_back({QString::fromUtf8(statement.getColumn(0).getText()),
                           statement.getColumn(1).getInt() != 0, type.contains("int", Qt::CaseInsensitive)});
    }
    return columns;
}

// Any of the names of the row number may be taken by a column of the table.
QString rowNumberName(const std::vector<Column>& columns)
{
    for (const auto& name : {"rowid", "_rowid_", "oid"})
        if (!find(columns, name))
            return name;
    return {};
}

bool isOnlyPrimaryKey(const std::vector<Column>& columns, const QString& name)
{
    const Column* const column = find(columns, name);
    return column && column->inPrimaryKey &&
           std::count_if(columns.begin(), columns.end(), [](const Column& c) { return c.inPrimaryKey; }) == 1;
}

Layout readLayout(Handle& handle, const QString& table, const QStringList& fields)
{
    const Value name = table;
    auto kind = handle.prepared(sql::tableKind, {&name, 1});
    if (!kind.executeStep() || kind.getColumn(0).getString() == "view")
        throw noTable(handle.path(), table);
    const bool hasRowNumbers = kind.getColumn(1).getInt() == 0;
    const auto columns = columnsOf(handle, name);
    for (const QString& field : fields)
        if (!find(columns, field))
            throw noField(handle.path(), table, field);
    const QString id = QString::fromLatin1(schema::questionId);
    const bool idIsPrimaryKey = isOnlyPrimaryKey(columns, id);
    const QString key = hasRowNumbers ? rowNumberName(columns) : idIsPrimaryKey ? id : QString();
    if (key.isEmpty())
        throw noTable(handle.path(), table);
    if (key == id && (!find(columns, id)->keepsWholeNumbers || handle.prepared(sql::strayId).executeStep()))
        throw noNumbers(handle.path(), table, id);
    // A primary key without an index of its own is another name of the row number.
    const bool alias = idIsPrimaryKey && !handle.prepared(sql::keyIndexes, {&name, 1}).executeStep();
    return {key.toStdString(), alias};
}

QStringList texts(Fields fields)
{
    QStringList list;
    for (const char* field : fields)
        list << QString::fromLatin1(field);
    return list;
}

} // namespace

Layout layoutOf(Handle& handle, const QString& table, const QStringList& fields)
{
    return handle.reading([&] { return readLayout(handle, table, fields); });
}

Layout layoutOf(Handle& handle, const schema::Table& table)
{
    return layoutOf(handle, QString::fromLatin1(table.name), texts(table.fields));
}

Layout layoutOf(Handle& handle, const Source& source)
{
    return layoutOf(handle, QString::fromLatin1(source.table), texts(source.fields) + texts(source.filter));
}

} // namespace db

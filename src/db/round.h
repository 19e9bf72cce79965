#pragma once

#include "db/recordset.h"

#include <optional>

namespace db {

/// A walk past all rows of a recordset: from behind the one where it stands to the last one, on from the
/// first, and that row itself at the end. The recordset must stay open, but may move meanwhile.
class Round
{
public:
    /// `fields` are what is read of each row.
    Round(const Recordset& rows, Fields fields);

    /// The next rows, at most `most`; none when the round is over. May throw Failure.
    [[nodiscard]] std::vector<Passed> next(qint64 most);

private:
    const Recordset* rows_;
    Fields fields_;
    Bookmark at_;
    std::optional<Bookmark> end_; ///< none if the recordset stood on no row
    bool fromFirst_;
};

} // namespace db

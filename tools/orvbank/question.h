#pragma once

#include <QString>

#include <array>
#include <string>
#include <vector>

namespace bank {

/// A line of a source file, counted from 1; line 0 stands for the file (or folder) as a whole.
struct Place
{
    std::string file;
    int line = 0;
};

/// One question as its author wrote it. A text that the author left out is empty.
struct Question
{
    Place place; ///< first line of the record
    QString level;
    QString topic;
    QString text;
    std::array<QString, 4> options;
    QString right; ///< letter of the right option, A to D
    QString why;

    /// Text of the right option; `right` must be a letter from A to D.
    [[nodiscard]] const QString& rightOption() const
    {
        return options.at(static_cast<std::size_t>(right.at(0).unicode() - u'A'));
    }
};

/// What the host says, after the player's name, before an answer is locked.
struct Prompt
{
    Place place;
    QString message;
};

struct Bank
{
    std::vector<Question> questions;
    std::vector<Prompt> prompts;
};

} // namespace bank

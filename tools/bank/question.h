#pragma once

#include <QString>

#include <array>
#include <string>
#include <vector>

namespace bank {

/// Line and column of a text in the file of its question; line 0 if that is not known.
struct Spot
{
    int line = 0;
    int column = 0;
};

/// Where something stands: a line and column of a file, both counted from 1 (columns in code points), or a
/// row of a database. What is 0 is not known; with nothing known it is the file (or folder) as a whole.
struct Place
{
    QString file;
    int line = 0;
    int column = 0;
    qint64 id = 0; ///< question_id

    [[nodiscard]] Spot spot() const { return {line, column}; }
    /// "file:line:column" or "file: question id".
    [[nodiscard]] QString text() const;
};

/// The texts of a question, under the names that they have in the source files.
enum class Field { Level, Topic, Question, A, B, C, D, Right, Why };
inline constexpr std::array<const char*, 9> fieldNames = {"level", "topic", "question", "A",  "B",
                                                          "C",     "D",     "right",    "why"};
inline constexpr std::array<Field, 4> optionFields = {Field::A, Field::B, Field::C, Field::D};

/// Those that the database holds.
inline constexpr std::array<Field, 7> playedFields = {Field::Level, Field::Question, Field::A,    Field::B,
                                                      Field::C,     Field::D,        Field::Right};

[[nodiscard]] inline QString nameOf(Field field)
{
    return QString::fromLatin1(fieldNames.at(static_cast<std::size_t>(field)));
}

/// One question as its author wrote it. A text that the author left out is empty.
struct Question
{
    Place place; ///< first line of the record
    std::array<Spot, fieldNames.size()> spots{};
    QString level;
    QString topic;
    QString text;
    std::array<QString, 4> options;
    QString right; ///< letter of the right option, A to D
    QString why;
    QString key; ///< text of the right option where the source gives it instead of the letter
    std::array<qint64, 4> tallies{1, 1, 1, 1}; ///< how often each option was chosen, plus 1

    [[nodiscard]] QString& at(Field field);
    [[nodiscard]] const QString& at(Field field) const { return const_cast<Question*>(this)->at(field); }

    [[nodiscard]] Spot& spot(Field field) { return spots.at(static_cast<std::size_t>(field)); }

    /// Where the text of the field stands, or else the question.
    [[nodiscard]] Place placeOf(Field field) const;

    /// Index of the right option, -1 while `right` is no letter from A to D.
    [[nodiscard]] int rightIndex() const;

    /// Text of the right option; `right` must be a letter from A to D.
    [[nodiscard]] const QString& rightOption() const
    {
        return options.at(static_cast<std::size_t>(rightIndex()));
    }

    /// Sets `right` to the letter of the option that equals `key` as the game compares them, or to "".
    void findRight();
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

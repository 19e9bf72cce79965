#pragma once

#include <QStringList>

namespace db {

/// Form in which texts are equal that differ in nothing but case, blanks and the way accents are encoded.
[[nodiscard]] QString folded(const QString& text);
/// Whether they have the same form.
[[nodiscard]] bool isSame(const QString& a, const QString& b);
/// The same without accents and apostrophes.
[[nodiscard]] QString searchable(const QString& text);

[[nodiscard]] bool holdsNumber(const QString& text);

/// Words that somebody looks for, in the form of searchable().
class SearchWords
{
public:
    explicit SearchWords(const QString& typed);

    [[nodiscard]] bool isEmpty() const { return words_.isEmpty(); }
    /// Each word stands somewhere in the texts.
    [[nodiscard]] bool areIn(const QStringList& texts) const;

private:
    QStringList words_;
};

/// What a question asks about, to find others that ask nearly the same.
struct QuestionWords
{
    explicit QuestionWords(const QString& question);

    QStringList words; ///< searchable, without the little ones of English questions
    QString numbers;   ///< and names that hold some, and what stands between them in a calculation
};

} // namespace db

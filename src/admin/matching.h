#pragma once

#include <QSet>
#include <QStringList>

namespace admin {

/// Words that an owner looks for. Neither letter case nor the way an accent is written matters.
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

/// What a question asks about, to find those that ask nearly the same: its words without the little ones,
/// each by its first letters, and its numbers.
class Likeness
{
public:
    explicit Likeness(const QString& question);

    /// There is enough of it to be compared.
    [[nodiscard]] bool isTelling() const { return words_.size() + numbers_.size() > 1; }
    /// The numbers are the same, and half of all words of both.
    [[nodiscard]] bool isNear(const QString& question) const;

private:
    QSet<QString> words_;
    QStringList numbers_; ///< and names that hold digits, in their order
};

} // namespace admin

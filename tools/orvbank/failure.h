#pragma once

#include "bank/question.h"

#include <QStringList>

#include <stdexcept>

namespace bank {

/// The one exception of this library. Its message says on which file what went wrong; it may have
/// several lines, each a complaint of its own.
class Failure : public std::runtime_error
{
public:
    explicit Failure(const QString& message) : std::runtime_error(message.toStdString()) {}
};

/// Collects the complaints about a source, so that its author sees all of them in one go.
class Complaints
{
public:
    void add(const Place& place, const QString& reason);
    [[nodiscard]] bool empty() const { return lines_.empty(); }

    /// Throws a Failure of one line "file:line: reason" per complaint, if there is any.
    void throwIfAny() const;

private:
    QStringList lines_;
};

} // namespace bank

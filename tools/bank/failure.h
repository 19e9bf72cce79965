#pragma once

#include "bank/question.h"

#include <QSet>
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
    /// Complains in a line "file:line:column: reason", once.
    void add(const Place& place, const QString& reason);
    /// The same for what is no fault but worth a look.
    void warn(const Place& place, const QString& reason);

    /// What was complained of is no fault any more: it was left out.
    void leaveOut();

    [[nodiscard]] qsizetype count() const { return lines_.size(); }
    [[nodiscard]] bool empty() const { return lines_.empty(); }
    [[nodiscard]] const QStringList& lines() const { return lines_; }
    [[nodiscard]] const QStringList& warnings() const { return warnings_; }

    /// Throws a Failure with all lines, if there is any.
    void throwIfAny() const;

private:
    QStringList lines_;
    QStringList warnings_;
    QSet<QString> told_;
};

} // namespace bank

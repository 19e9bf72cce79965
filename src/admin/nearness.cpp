#include "admin/nearness.h"

#include <algorithm>

namespace admin {

Nearness::Nearness(const QString& question) : asked_(question)
{
    constexpr qsizetype firstLetters = 4; // "flow", "flows" and "flowed"
    for (const QString& word : asked_.words)
        if (!db::holdsNumber(word))
            stems_ << word.left(firstLetters);
}

bool Nearness::isNear(const QString& question) const
{
    // Most are told apart before they are taken to pieces.
    const QString text = db::searchable(question);
    if (2 * std::ranges::count_if(stems_, [&](const QString& stem) { return text.contains(stem); }) <
        stems_.size())
        return false;
    const Nearness other(question);
    if (asked_.numbers != other.asked_.numbers)
        return false;
    const qsizetype common = (QSet<QString>(stems_) & other.stems_).size();
    const qsizetype all = stems_.size() + other.stems_.size() - common;
    return 2 * common >= all;
}

} // namespace admin

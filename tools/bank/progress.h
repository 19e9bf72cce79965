#pragma once

#include <chrono>
#include <iosfwd>
#include <string>

namespace bank {

/// One line on a terminal that tells how far a work has come, from its second second on.
class Progress
{
public:
    /// Writes to `terminal`, or nowhere if there is none.
    explicit Progress(std::ostream* terminal = nullptr) : terminal_(terminal) {}
    ~Progress() { clear(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    Progress(Progress&&) = delete;
    Progress& operator=(Progress&&) = delete;

    /// Begins a part of the work: `what` is being done to `total` things, 0 if nobody knows how many.
    void begin(std::string what, long long total = 0);
    /// Some more things are done.
    void step(long long things = 1);
    /// Removes the line; it comes again with the next step.
    void clear();

private:
    using Clock = std::chrono::steady_clock;

    void show();

    std::ostream* terminal_;
    std::string what_;
    long long total_ = 0;
    long long done_ = 0;
    long long unseen_ = 0; ///< done since the clock was looked at
    bool shown_ = false;
    Clock::time_point due_ = Clock::now() + std::chrono::seconds(1);
};

} // namespace bank

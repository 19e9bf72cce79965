#pragma once

#include <QString>

#include <chrono>
#include <deque>
#include <optional>

namespace narrator {

/// One thing the host was asked to do.
struct Request
{
    enum class Kind { Gesture, Speech };

    Kind kind = Kind::Gesture;
    QString text; ///< the gesture's name or the words
};

/// Carries out one request at a time. All times are those of the clock, in milliseconds.
class Performer
{
public:
    Performer() = default;
    Performer(const Performer&) = delete;
    Performer& operator=(const Performer&) = delete;
    virtual ~Performer() = default;

    virtual void begin(const Request& request, std::chrono::milliseconds start) = 0;
    /// The time at which the request begun last came to its end, none if that is later than `now`.
    virtual std::optional<std::chrono::milliseconds> ended(std::chrono::milliseconds now) = 0;
    /// The request begun last is over, of itself or because it was dropped.
    virtual void finish(std::chrono::milliseconds time) = 0;
};

/// The requests of the host in call order. Time is passed in and may make leaps: what happened in
/// between is caught up with.
class RequestQueue
{
public:
    explicit RequestQueue(Performer& performer) : performer_(performer) {}

    void add(Request request, std::chrono::milliseconds now);
    void stop(std::chrono::milliseconds now);
    /// Ends the request being carried out; the next one begins.
    void skip(std::chrono::milliseconds now);
    void advance(std::chrono::milliseconds now);

    [[nodiscard]] bool idle() const { return !running_; }

private:
    void next(std::chrono::milliseconds start);

    Performer& performer_;
    std::deque<Request> waiting_;
    bool running_ = false;
};

} // namespace narrator

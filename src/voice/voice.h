#pragma once

#include "voice/speaker.h"

#include <QString>

#include <chrono>
#include <optional>

namespace voice {

/// What there is to see of a text at one moment. Times are those of the clock.
struct Moment
{
    std::optional<std::chrono::milliseconds> begun; ///< when the first word was
    std::optional<std::chrono::milliseconds> over;  ///< when the last word was
    qsizetype said = 0; ///< characters of the text, with those of the word being said
    mouth::Shape mouth = mouth::Shape::Rest;
};

/// Says one text at a time for one host. What is heard sets the pace; where nothing can be heard the text
/// takes the time that it would have taken, and where nothing can be said, the time to read it.
class Voice
{
public:
    using Milliseconds = std::chrono::milliseconds;

    /// Without a speaker every text is only read. The speaker must outlive the voice.
    explicit Voice(Speaker* speaker) : speaker_(speaker) {}
    ~Voice() { hush(); }
    Voice(const Voice&) = delete;
    Voice& operator=(const Voice&) = delete;

    void say(const QString& text, Milliseconds now);
    void hush();

    /// Follows the text up to `now`, which never runs backwards.
    [[nodiscard]] Moment at(Milliseconds now);

private:
    enum class Course {
        None,   ///< nothing is being said
        Coming, ///< not begun yet
        Heard,  ///< follows what is heard
        Unheard ///< goes with the clock
    };

    /// A text and how far it has come.
    struct Talk
    {
        QString text;
        Milliseconds asked{0}; ///< when the text was given
        Course course = Course::None;
        SpeechTimes times{};                 ///< of the pieces made so far, one behind the other
        std::size_t pieces = 0;              ///< that they are made of
        bool complete = false;               ///< no piece is missing
        std::optional<Milliseconds> seen{};  ///< when it was followed last
        Milliseconds waited{0};              ///< for a piece, while somebody looked
        Milliseconds time{0};                ///< how far the text has been said
        Milliseconds origin{0};              ///< when `time` was 0, if the text is not heard
        std::optional<Milliseconds> begun{}; ///< when the first word was
        std::optional<Milliseconds> over{};  ///< when the last word was
    };

    void follow(Milliseconds now);
    [[nodiscard]] bool begins(const Speaker::Progress& progress, Milliseconds now);
    void begin(Course course, Milliseconds start);
    void read(Milliseconds start);
    void append(const SpeechTimes& piece);
    void advance(Milliseconds time, Milliseconds now);

    Speaker* speaker_;
    Speaker::Ticket ticket_ = 0;
    Talk talk_;
};

/// The time that `characters` take to be read, without any minimum.
[[nodiscard]] std::chrono::milliseconds readingPace(qsizetype characters);

} // namespace voice

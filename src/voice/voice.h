#pragma once

#include "voice/speaker.h"

#include <QString>

#include <chrono>
#include <optional>

namespace voice {

/// Says one text at a time and tells what is to be seen of it meanwhile. Times are those of the clock.
class Voice
{
public:
    Voice() = default;
    Voice(const Voice&) = delete;
    Voice& operator=(const Voice&) = delete;
    virtual ~Voice() = default;

    virtual void say(const QString& text, std::chrono::milliseconds now) = 0;
    virtual void hush() = 0;

    /// When the first word of the text was begun, none if it has not been yet.
    virtual std::optional<std::chrono::milliseconds> firstWord(std::chrono::milliseconds now) = 0;
    /// When the last word was over, none if it is not yet.
    virtual std::optional<std::chrono::milliseconds> lastWord(std::chrono::milliseconds now) = 0;
    /// How many characters of the text have been said, with the word being said.
    virtual qsizetype said(std::chrono::milliseconds now) = 0;
    virtual MouthShape mouth(std::chrono::milliseconds now) = 0;
};

/// Speaks through a speaker. What is heard sets the pace; where nothing can be heard the text takes the
/// time that it would have taken, and where nothing can be said, the time to read it.
class SpeakingVoice final : public Voice
{
public:
    using Milliseconds = std::chrono::milliseconds;

    /// Without a speaker every text is only read. The speaker must outlive the voice.
    explicit SpeakingVoice(Speaker* speaker) : speaker_(speaker) {}
    ~SpeakingVoice() override { hush(); }
    SpeakingVoice(const SpeakingVoice&) = delete;
    SpeakingVoice& operator=(const SpeakingVoice&) = delete;

    void say(const QString& text, Milliseconds now) override;
    void hush() override;
    std::optional<Milliseconds> firstWord(Milliseconds now) override;
    std::optional<Milliseconds> lastWord(Milliseconds now) override;
    qsizetype said(Milliseconds now) override;
    MouthShape mouth(Milliseconds now) override;

private:
    enum class Course {
        None,    ///< nothing is being said
        Coming,  ///< not begun yet
        Heard,   ///< follows what is heard
        Unheard, ///< goes with the clock
        Over
    };

    void follow(Milliseconds now);
    void await(const Speaker::Progress& progress, Milliseconds now);
    void goOnUnheard(Milliseconds now);
    void read(Milliseconds start);
    [[nodiscard]] Milliseconds firstStart() const;
    void append(const SpeechTimes& piece);
    void advance(Milliseconds time, Milliseconds now);

    Speaker* speaker_;
    Speaker::Ticket ticket_ = 0;
    Course course_ = Course::None;
    QString text_;
    SpeechTimes times_;                        ///< of the pieces made so far, one behind the other
    std::size_t pieces_ = 0;                   ///< that they are made of
    bool complete_ = false;                    ///< no piece is missing
    Milliseconds asked_{0};                    ///< when the text was given
    std::optional<Milliseconds> waitingSince_; ///< for a piece, since it was asked for or the last was said
    std::optional<Milliseconds> readySince_;   ///< since when only the sound has been missing
    Milliseconds time_{0};                     ///< how far the text has been said
    Milliseconds begun_{0};                    ///< when the first word was
    Milliseconds origin_{0};                   ///< when time_ was 0, if the text is not heard
    Milliseconds over_{0};
};

/// The time that `characters` take to be read, without any minimum.
[[nodiscard]] std::chrono::milliseconds readingPace(qsizetype characters);

} // namespace voice

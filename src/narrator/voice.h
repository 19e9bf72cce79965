#pragma once

#include "narrator/rig.h"

#include <QString>

#include <chrono>
#include <optional>

namespace narrator {

/// Says one text at a time and tells what the mouth does meanwhile. Times are those of the clock.
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
    virtual MouthShape mouth(std::chrono::milliseconds now) = 0;
};

/// Moves the mouth at reading speed and makes no sound.
class SilentVoice final : public Voice
{
public:
    void say(const QString& text, std::chrono::milliseconds now) override;
    void hush() override;
    std::optional<std::chrono::milliseconds> firstWord(std::chrono::milliseconds now) override;
    std::optional<std::chrono::milliseconds> lastWord(std::chrono::milliseconds now) override;
    MouthShape mouth(std::chrono::milliseconds now) override;

private:
    QString text_;
    std::chrono::milliseconds start_{0};
};

/// The time that `characters` take to be read, without any minimum.
[[nodiscard]] std::chrono::milliseconds readingPace(qsizetype characters);

/// What the mouth does at the letter at `index`, guessed from the spelling.
[[nodiscard]] MouthShape mouthShape(QStringView text, qsizetype index);

} // namespace narrator

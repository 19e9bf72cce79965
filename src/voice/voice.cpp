#include "voice/voice.h"

#include <algorithm>
#include <array>
#include <utility>

namespace voice {

using namespace std::chrono_literals;
using Milliseconds = std::chrono::milliseconds;

namespace {

constexpr qint64 charactersPerSecond = 15;
constexpr auto lead = 40ms; ///< lips move, and words come, before they are heard
constexpr auto soundPatience = 500ms;
constexpr auto voicePatience = 2s;
constexpr auto leap = 2s; ///< a text that was due longer ago is not said any more, only caught up with

/// The last entry that begins at `time` or before; none before the first.
template <typename Entry>
const Entry* entryAt(const std::vector<Entry>& entries, Milliseconds time)
{
    const auto next = std::ranges::upper_bound(entries, time, {}, &Entry::start);
    return next == entries.begin() ? nullptr : &*std::prev(next);
}

/// The times of a text that is read silently, with a mouth that moves along.
SpeechTimes readingTimes(const QString& text)
{
    constexpr std::array shapes = {MouthShape::E, MouthShape::A, MouthShape::T,
                                   MouthShape::O, MouthShape::E, MouthShape::M};
    SpeechTimes times;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i].isSpace()) {
            times.mouths.push_back({readingPace(i), MouthShape::Rest});
            continue;
        }
        if (i == 0 || text[i - 1].isSpace())
            times.words.push_back({readingPace(i), i + 1});
        times.words.back().end = i + 1;
        if (i % 2 == 0) {
            times.mouths.push_back(
                {readingPace(i), shapes.at(static_cast<std::size_t>(i / 2) % shapes.size())});
        }
    }
    times.length = readingPace(text.size());
    return times;
}

} // namespace

void SpeakingVoice::say(const QString& text, Milliseconds now)
{
    hush();
    text_ = text;
    asked_ = now;
    times_ = {};
    pieces_ = 0;
    complete_ = false;
    waitingSince_.reset();
    readySince_.reset();
    time_ = 0ms;
    course_ = Course::Coming;
    std::vector<SpokenPiece> pieces;
    if (speaker_)
        pieces = spokenPieces(spokenWords(text));
    if (pieces.empty())
        read(now);
    else
        ticket_ = speaker_->start(std::move(pieces));
}

void SpeakingVoice::hush()
{
    if (speaker_ && course_ != Course::None)
        speaker_->stop(ticket_);
    course_ = Course::None;
}

std::optional<Milliseconds> SpeakingVoice::firstWord(Milliseconds now)
{
    follow(now);
    if (course_ == Course::None || course_ == Course::Coming)
        return {};
    return begun_;
}

std::optional<Milliseconds> SpeakingVoice::lastWord(Milliseconds now)
{
    follow(now);
    return course_ == Course::Over ? std::optional(over_) : std::nullopt;
}

qsizetype SpeakingVoice::said(Milliseconds now)
{
    follow(now);
    if (course_ == Course::Over)
        return text_.size();
    const bool begun = course_ == Course::Heard || course_ == Course::Unheard;
    const WordTime* word = begun ? entryAt(times_.words, time_ + lead) : nullptr;
    return word ? word->end : 0;
}

MouthShape SpeakingVoice::mouth(Milliseconds now)
{
    follow(now);
    if (course_ != Course::Heard && course_ != Course::Unheard)
        return MouthShape::Rest;
    const MouthTime* mouth = entryAt(times_.mouths, time_ + lead);
    return mouth && time_ + lead < times_.length ? mouth->shape : MouthShape::Rest;
}

void SpeakingVoice::follow(Milliseconds now)
{
    if (course_ == Course::None || course_ == Course::Over)
        return;
    if (!waitingSince_ && course_ == Course::Coming) {
        waitingSince_ = now;
        if (now - asked_ > leap)
            read(asked_);
    }
    Speaker::Progress progress;
    if (course_ != Course::Unheard || !complete_) {
        progress = speaker_->progress(ticket_, pieces_, time_);
        for (const SpeechTimes& piece : progress.fresh)
            append(piece);
        complete_ = progress.complete;
    }
    if (course_ == Course::Coming)
        await(progress, now);
    else if (course_ == Course::Heard && progress.sound == Speaker::Sound::Lost)
        goOnUnheard(now);
    else
        advance(course_ == Course::Heard ? std::max(time_, progress.played) : now - origin_, now);
}

/// Begins as soon as there is something to say and it is heard, or will not be.
void SpeakingVoice::await(const Speaker::Progress& progress, Milliseconds now)
{
    if (times_.length == 0ms) {
        if (complete_ || now - *waitingSince_ > voicePatience) {
            read(now);
            advance(0ms, now);
        }
        return;
    }
    if (!readySince_)
        readySince_ = now;
    if (progress.sound == Speaker::Sound::Playing) {
        course_ = Course::Heard;
        begun_ = now - progress.played + firstStart();
        advance(progress.played, now);
    } else if (progress.sound == Speaker::Sound::Lost || now - *readySince_ >= soundPatience) {
        begun_ = now + firstStart();
        goOnUnheard(now);
    }
}

void SpeakingVoice::goOnUnheard(Milliseconds now)
{
    speaker_->giveUpSound(ticket_);
    course_ = Course::Unheard;
    origin_ = now - time_;
    advance(time_, now);
}

void SpeakingVoice::read(Milliseconds start)
{
    if (speaker_)
        speaker_->stop(ticket_);
    times_ = readingTimes(text_);
    complete_ = true;
    course_ = Course::Unheard;
    origin_ = start;
    begun_ = start + firstStart();
}

Milliseconds SpeakingVoice::firstStart() const
{
    return times_.words.empty() ? 0ms : times_.words.front().start;
}

void SpeakingVoice::append(const SpeechTimes& piece)
{
    for (const WordTime& word : piece.words)
        times_.words.push_back({times_.length + word.start, word.end});
    for (const MouthTime& mouth : piece.mouths)
        times_.mouths.push_back({times_.length + mouth.start, mouth.shape});
    times_.length += piece.length;
    ++pieces_;
}

void SpeakingVoice::advance(Milliseconds time, Milliseconds now)
{
    time_ = std::min(time, times_.length);
    if (time_ < times_.length) {
        waitingSince_ = now;
        return;
    }
    if (course_ == Course::Unheard && !complete_)
        origin_ = now - time_; // the text stands still until the next piece has been made
    if (complete_ || now - *waitingSince_ > voicePatience) {
        over_ = course_ == Course::Unheard ? origin_ + time_ : now;
        course_ = Course::Over;
    }
}

Milliseconds readingPace(qsizetype characters)
{
    return Milliseconds((characters * 1000 + charactersPerSecond - 1) / charactersPerSecond);
}

} // namespace voice

#include "voice/voice.h"

#include <algorithm>
#include <array>
#include <utility>

namespace voice {

using namespace std::chrono_literals;
using Milliseconds = std::chrono::milliseconds;

namespace {

constexpr qint64 charactersPerSecond = 15;
constexpr auto lead = 40ms;                 ///< lips move, and words come, before they are heard
constexpr auto mostWaiting = 2s;            ///< with the synthesiser
constexpr Milliseconds longestLook = 250ms; ///< from one look to the next; in a longer time nobody looked
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
    using enum mouth::Shape;
    constexpr std::array shapes = {E, A, T, O, E, M};
    SpeechTimes times;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i].isSpace()) {
            times.mouths.push_back({readingPace(i), Rest});
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

void Voice::say(const QString& text, Milliseconds now)
{
    hush();
    text_ = text;
    asked_ = now;
    times_ = {};
    pieces_ = 0;
    complete_ = false;
    seen_.reset();
    waited_ = time_ = 0ms;
    course_ = Course::Coming;
    if (speaker_)
        ticket_ = speaker_->start(text);
    else
        read(now);
}

void Voice::hush()
{
    if (speaker_ && course_ != Course::None)
        speaker_->stop(ticket_);
    course_ = Course::None;
}

Moment Voice::at(Milliseconds now)
{
    follow(now);
    if (course_ == Course::None || course_ == Course::Coming)
        return {};
    if (course_ == Course::Over)
        return {begun_, over_, text_.size(), mouth::Shape::Rest};
    Moment moment;
    moment.begun = begun_;
    if (const WordTime* word = entryAt(times_.words, time_ + lead))
        moment.said = word->end;
    const MouthTime* mouth = entryAt(times_.mouths, time_ + lead);
    if (mouth && time_ + lead < times_.length)
        moment.mouth = mouth->shape;
    return moment;
}

void Voice::follow(Milliseconds now)
{
    if (course_ == Course::None || course_ == Course::Over)
        return;
    if (!seen_ && course_ == Course::Coming && now - asked_ > leap)
        read(asked_);
    waited_ += std::min(now - seen_.value_or(now), longestLook);
    seen_ = now;
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
void Voice::await(const Speaker::Progress& progress, Milliseconds now)
{
    if (times_.length == 0ms) {
        if (complete_ || waited_ > mostWaiting) {
            read(now);
            advance(0ms, now);
        }
    } else if (progress.sound == Speaker::Sound::Playing) {
        begin(Course::Heard, now - progress.played);
        advance(progress.played, now);
    } else if (progress.sound == Speaker::Sound::Lost) {
        begin(Course::Unheard, now);
        goOnUnheard(now);
    }
}

void Voice::begin(Course course, Milliseconds start)
{
    course_ = course;
    origin_ = start;
    begun_ = start + (times_.words.empty() ? 0ms : times_.words.front().start);
}

void Voice::goOnUnheard(Milliseconds now)
{
    speaker_->giveUpSound(ticket_);
    course_ = Course::Unheard;
    origin_ = now - time_;
    advance(time_, now);
}

void Voice::read(Milliseconds start)
{
    if (speaker_)
        speaker_->stop(ticket_);
    times_ = readingTimes(text_);
    complete_ = true;
    begin(Course::Unheard, start);
}

void Voice::append(const SpeechTimes& piece)
{
    for (const WordTime& word : piece.words)
        times_.words.push_back({times_.length + word.start, word.end});
    for (const MouthTime& mouth : piece.mouths)
        times_.mouths.push_back({times_.length + mouth.start, mouth.shape});
    times_.length += piece.length;
    ++pieces_;
}

void Voice::advance(Milliseconds time, Milliseconds now)
{
    time_ = std::min(time, times_.length);
    if (time_ < times_.length) {
        waited_ = 0ms;
        return;
    }
    if (course_ == Course::Unheard && !complete_)
        origin_ = now - time_; // the text stands still until the next piece has been made
    if (complete_ || waited_ > mostWaiting) {
        over_ = course_ == Course::Unheard ? origin_ + time_ : now;
        course_ = Course::Over;
    }
}

Milliseconds readingPace(qsizetype characters)
{
    return Milliseconds((characters * 1000 + charactersPerSecond - 1) / charactersPerSecond);
}

} // namespace voice

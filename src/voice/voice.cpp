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
    talk_ = {text, now, Course::Coming};
    if (speaker_)
        ticket_ = speaker_->start(text);
    else
        read(now);
}

void Voice::hush()
{
    if (speaker_ && talk_.course != Course::None)
        speaker_->stop(ticket_);
    talk_ = {};
}

Moment Voice::at(Milliseconds now)
{
    follow(now);
    Moment moment{talk_.begun, talk_.over};
    if (talk_.over)
        moment.said = talk_.text.size();
    if (!talk_.begun || talk_.over)
        return moment;
    const Milliseconds ahead = talk_.time + lead;
    if (const WordTime* word = entryAt(talk_.times.words, ahead))
        moment.said = word->end;
    const MouthTime* mouth = entryAt(talk_.times.mouths, ahead);
    if (mouth && ahead < talk_.times.length)
        moment.mouth = mouth->shape;
    return moment;
}

void Voice::follow(Milliseconds now)
{
    if (talk_.course == Course::None || talk_.over)
        return;
    if (!talk_.seen && talk_.course == Course::Coming && now - talk_.asked > leap)
        read(talk_.asked);
    talk_.waited += std::min(now - talk_.seen.value_or(now), longestLook);
    talk_.seen = now;
    Speaker::Progress progress;
    if (talk_.course != Course::Unheard || !talk_.complete) {
        progress = speaker_->progress(ticket_, talk_.pieces, talk_.time);
        for (const SpeechTimes& piece : progress.fresh)
            append(piece);
        talk_.complete = progress.complete;
    }
    if (talk_.course == Course::Coming && !begins(progress, now))
        return;
    if (talk_.course == Course::Heard && progress.sound == Speaker::Sound::Lost) {
        speaker_->giveUpSound(ticket_);
        talk_.course = Course::Unheard;
        talk_.origin = now - talk_.time;
    }
    advance(talk_.course == Course::Heard ? std::max(talk_.time, progress.played) : now - talk_.origin, now);
}

/// As soon as there is something to say and it is heard, or will not be.
bool Voice::begins(const Speaker::Progress& progress, Milliseconds now)
{
    const bool nothing = talk_.times.length == 0ms;
    if (nothing && (talk_.complete || talk_.waited > mostWaiting))
        read(now);
    else if (!nothing && progress.sound != Speaker::Sound::Waiting)
        begin(Course::Heard, now - progress.played);
    return talk_.begun.has_value();
}

void Voice::begin(Course course, Milliseconds start)
{
    talk_.course = course;
    talk_.origin = start;
    talk_.begun = start + (talk_.times.words.empty() ? 0ms : talk_.times.words.front().start);
}

void Voice::read(Milliseconds start)
{
    if (speaker_)
        speaker_->stop(ticket_);
    talk_.times = readingTimes(talk_.text);
    talk_.complete = true;
    begin(Course::Unheard, start);
}

void Voice::append(const SpeechTimes& piece)
{
    SpeechTimes& times = talk_.times;
    for (const WordTime& word : piece.words)
        times.words.push_back({times.length + word.start, word.end});
    for (const MouthTime& mouth : piece.mouths)
        times.mouths.push_back({times.length + mouth.start, mouth.shape});
    times.length += piece.length;
    ++talk_.pieces;
}

void Voice::advance(Milliseconds time, Milliseconds now)
{
    talk_.time = std::min(time, talk_.times.length);
    if (talk_.time < talk_.times.length) {
        talk_.waited = 0ms;
        return;
    }
    if (talk_.course == Course::Unheard && !talk_.complete)
        talk_.origin = now - talk_.time; // the text stands still until the next piece has been made
    if (talk_.complete || talk_.waited > mostWaiting)
        talk_.over = talk_.course == Course::Unheard ? talk_.origin + talk_.time : now;
}

Milliseconds readingPace(qsizetype characters)
{
    return Milliseconds((characters * 1000 + charactersPerSecond - 1) / charactersPerSecond);
}

} // namespace voice

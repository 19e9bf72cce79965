#include "narrator/player.h"

#include "stage/balloon_text.h"

#include <algorithm>

namespace narrator {

using namespace std::chrono_literals;

namespace {

constexpr auto leastReadingTime = 1500ms;
constexpr auto settling = 200ms; ///< a moment longer than the way back to rest takes
constexpr auto lidsFalling = 60ms;
constexpr auto lidsShut = 100ms; ///< from here they rise
constexpr auto blinkLength = 180ms;

double sinceMs(std::chrono::milliseconds start, std::chrono::milliseconds now)
{
    return static_cast<double>((now - start).count());
}

/// The rig and the voice know the same shapes and not each other.
rig::MouthShape rigShape(voice::MouthShape shape)
{
    static_assert(static_cast<int>(voice::MouthShape::U) == static_cast<int>(rig::MouthShape::U));
    return static_cast<rig::MouthShape>(shape);
}

} // namespace

Player::Player(const rig::Rig& rig, voice::Voice& voice, std::function<double()> random, Milliseconds now)
    : rig_(rig),
      voice_(voice),
      random_(std::move(random)),
      gaze_(random_, now),
      queue_(*this),
      motion_{nullptr, rig.rest},
      motionStart_(now),
      requestStart_(now),
      nextBlink_(now + 2s)
{
}

void Player::play(const QString& gesture, Milliseconds now)
{
    queue_.add({Request::Kind::Gesture, gesture}, now);
}

void Player::speak(const QString& text, Milliseconds now)
{
    queue_.add({Request::Kind::Speech, text}, now);
}

void Player::stop(Milliseconds now)
{
    queue_.advance(now);
    queue_.stop(now);
}

void Player::skip(Milliseconds now)
{
    queue_.advance(now);
    if (!text_.isEmpty())
        queue_.skip(now);
}

Frame Player::frame(Milliseconds now)
{
    queue_.advance(now);
    Frame frame{rig::poseAt(rig_, motion_, sinceMs(motionStart_, now)), text_, 0};
    rig::addSines(rig_, frame.pose, static_cast<double>(now.count()));
    rig::addLook(rig_, frame.pose, gaze_.at(now, motion_.gesture == nullptr, sights_));
    rig::closeLids(rig_, frame.pose, lidsClosed(now));
    if (!text_.isEmpty()) {
        rig::shapeMouth(rig_, frame.pose, rigShape(voice_.mouth(now)));
        frame.said = voice_.said(now);
    }
    return frame;
}

bool Player::idle(Milliseconds now) const
{
    return queue_.idle() && now >= motionStart_ + settling;
}

void Player::begin(const Request& request, Milliseconds start)
{
    requestStart_ = start;
    if (request.kind == Request::Kind::Gesture) {
        if (const rig::Gesture* gesture = rig_.gesture(request.text))
            turnTo(gesture, start);
    } else if (reading_ = readingTime(request.text); reading_ > 0ms) {
        text_ = request.text;
        voice_.say(text_, start);
    }
}

std::optional<Player::Milliseconds> Player::ended(Milliseconds now)
{
    Milliseconds end = requestStart_;
    if (motion_.gesture)
        end += Milliseconds(static_cast<qint64>(motion_.gesture->lengthMs));
    if (!text_.isEmpty()) {
        const auto first = voice_.firstWord(now);
        const auto last = voice_.lastWord(now);
        if (!first || !last)
            return {};
        end = std::max(*first + reading_, *last);
    }
    return end <= now ? std::optional(end) : std::nullopt;
}

void Player::finish(Milliseconds time)
{
    if (motion_.gesture)
        turnTo(nullptr, time);
    if (!text_.isEmpty())
        voice_.hush();
    text_.clear();
}

void Player::turnTo(const rig::Gesture* gesture, Milliseconds time)
{
    motion_ = {gesture, rig::poseAt(rig_, motion_, sinceMs(motionStart_, time))};
    motionStart_ = time;
}

double Player::lidsClosed(Milliseconds now)
{
    if (now >= nextBlink_ + blinkLength)
        nextBlink_ = now + 2s + Milliseconds(static_cast<qint64>(random_() * 4000));
    if (now < nextBlink_)
        return 0;
    const Milliseconds since = now - nextBlink_;
    if (since < lidsFalling)
        return sinceMs(0ms, since) / sinceMs(0ms, lidsFalling);
    return since < lidsShut ? 1 : 1 - sinceMs(lidsShut, since) / sinceMs(lidsShut, blinkLength);
}

std::chrono::milliseconds readingTime(const QString& text)
{
    if (stage::shownText(text).isEmpty())
        return 0ms;
    return std::max(std::chrono::milliseconds(leastReadingTime), voice::readingPace(text.size()));
}

} // namespace narrator

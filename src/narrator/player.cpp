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

using FineMs = std::chrono::duration<double, std::milli>;

} // namespace

Player::Player(const rig::Rig& rig, voice::Voice& voice, std::function<double()> random, Milliseconds now)
    : rig_(rig),
      voice_(voice),
      random_(std::move(random)),
      gaze_(random_, now),
      motion_{nullptr, rig.rest},
      motionStart_(now),
      requestStart_(now),
      nextBlink_(now + 2s)
{
}

void Player::stop(Milliseconds now)
{
    advance(now);
    waiting_.clear();
    finish(now);
}

void Player::skip(Milliseconds now)
{
    advance(now);
    if (text_.isEmpty())
        return;
    finish(now);
    begin(now);
    advance(now);
}

Frame Player::frame(Milliseconds now)
{
    advance(now);
    Frame frame{pose(now), text_, 0};
    if (!text_.isEmpty()) {
        const voice::Moment moment = voice_.at(now);
        if (!still_)
            rig::shapeMouth(rig_, frame.pose, moment.mouth);
        frame.said = moment.said;
    }
    return frame;
}

bool Player::idle(Milliseconds now) const
{
    return !running_ && now >= motionStart_ + settling;
}

void Player::add(Request request, Milliseconds now)
{
    advance(now);
    waiting_.push_back(std::move(request));
    if (!running_)
        begin(now);
    advance(now);
}

void Player::advance(Milliseconds now)
{
    while (running_) {
        const auto end = ended(now);
        if (!end)
            return;
        finish(*end);
        begin(*end);
    }
}

void Player::begin(Milliseconds start)
{
    if (waiting_.empty())
        return;
    const Request request = std::move(waiting_.front());
    waiting_.pop_front();
    running_ = true;
    requestStart_ = start;
    if (!request.speech) {
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
        const voice::Moment moment = voice_.at(now);
        if (!moment.begun || !moment.over)
            return {};
        end = std::max(*moment.begun + reading_, *moment.over);
    }
    return end <= now ? std::optional(end) : std::nullopt;
}

void Player::finish(Milliseconds time)
{
    running_ = false;
    if (motion_.gesture)
        turnTo(nullptr, time);
    if (!text_.isEmpty())
        voice_.hush();
    text_.clear();
}

void Player::turnTo(const rig::Gesture* gesture, Milliseconds time)
{
    motion_ = {gesture, rig::poseAt(rig_, motion_, FineMs(time - motionStart_).count())};
    motionStart_ = time;
}

rig::Pose Player::pose(Milliseconds now)
{
    if (still_)
        return motion_.gesture
                   ? rig::poseAt(rig_, {motion_.gesture, rig_.rest}, motion_.gesture->lengthMs / 2)
                   : rig_.rest;
    rig::Pose pose = rig::poseAt(rig_, motion_, FineMs(now - motionStart_).count());
    rig::addSines(rig_, pose, FineMs(now).count());
    rig::addGlance(rig_, pose, gaze_.at(now, motion_.gesture == nullptr, sights_));
    rig::closeLids(rig_, pose, lidsClosed(now));
    return pose;
}

double Player::lidsClosed(Milliseconds now)
{
    if (now >= nextBlink_ + blinkLength)
        nextBlink_ = now + 2s + Milliseconds(static_cast<qint64>(random_() * 4000));
    if (now < nextBlink_)
        return 0;
    const FineMs since = now - nextBlink_;
    return std::min({since / lidsFalling, 1.0, (blinkLength - since) / (blinkLength - lidsShut)});
}

std::chrono::milliseconds readingTime(const QString& text)
{
    if (stage::shownText(text).isEmpty())
        return 0ms;
    return std::max(std::chrono::milliseconds(leastReadingTime), voice::readingPace(text.size()));
}

} // namespace narrator

#include "support/doubles.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace support {

using Kind = ScriptedDialogs::Box::Kind;

void ScriptedDialogs::expectNotice(const QString& text, std::function<void()> meanwhile)
{
    script_.push_back({Kind::Notice, {text}, true, {}, std::move(meanwhile)});
}

void ScriptedDialogs::expectConfirm(const QString& text, bool answer, std::function<void()> meanwhile)
{
    script_.push_back({Kind::Confirm, {text}, true, answer ? "yes" : "", std::move(meanwhile)});
}

void ScriptedDialogs::expectInput(const QString& prompt, const QString& answer,
                                  std::function<void()> meanwhile)
{
    script_.push_back({Kind::Input, {prompt}, true, answer, std::move(meanwhile)});
}

void ScriptedDialogs::expectNoticeWith(const QStringList& parts)
{
    script_.push_back({Kind::Notice, parts, false, {}, {}});
}

QString ScriptedDialogs::take(const Box& box)
{
    const std::string text = box.text.toStdString();
    if (script_.empty()) {
        if (otherwise)
            return otherwise(box);
        ADD_FAILURE() << "unexpected: " << text;
        return {};
    }
    const Line line = script_.front();
    script_.pop_front();
    EXPECT_EQ(box.title.toStdString(), "Orvanta");
    EXPECT_EQ(box.kind, line.kind) << text;
    for (const QString& part : line.parts)
        if (line.whole)
            EXPECT_EQ(text, part.toStdString());
        else
            EXPECT_TRUE(box.text.contains(part)) << text << "\nlacks: " << part.toStdString();
    if (line.meanwhile)
        line.meanwhile();
    return line.answer;
}

void ScriptedDialogs::notice(QWidget*, const QString& title, const QString& text, Icon icon)
{
    take({Kind::Notice, title, text, icon});
}

bool ScriptedDialogs::confirm(QWidget*, const QString& title, const QString& text)
{
    return !take({Kind::Confirm, title, text}).isEmpty();
}

QString ScriptedDialogs::input(QWidget*, const QString& title, const QString& prompt, const QString&)
{
    return take({Kind::Input, title, prompt});
}

void SteppedClock::start(QTimer& timer)
{
    due_[&timer] = now_ + timer.intervalAsDuration();
}

void SteppedClock::advance(std::chrono::milliseconds span)
{
    const auto end = now_ + span;
    while (!due_.empty()) {
        const auto next = std::ranges::min_element(due_, {}, &decltype(due_)::value_type::second);
        if (next->second > end)
            break;
        QTimer* const timer = next->first;
        now_ = next->second;
        if (timer->isSingleShot())
            due_.erase(next);
        else
            next->second += timer->intervalAsDuration();
        QMetaObject::invokeMethod(timer, "timeout");
    }
    now_ = std::max(now_, end); // a tick may have advanced further
}

float ScriptedRandom::next()
{
    if (numbers.empty()) {
        constexpr float round[] = {0, 0.25F, 0.5F, 0.75F, 0.999F};
        return round[drawn_++ % std::size(round)];
    }
    const float number = numbers.front();
    numbers.pop_front();
    return number;
}

void RecordingHost::Load(const QString& id, const QString& path)
{
    if (missing_)
        throw narrator::LoadFailure("no such file");
    log_ << "Load " + id + " " + path.section('/', -1);
}

} // namespace support

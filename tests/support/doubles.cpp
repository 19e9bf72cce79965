#include "support/doubles.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace support {

void ScriptedDialogs::expectNotice(const QString& text, std::function<void()> meanwhile)
{
    script_.push_back({"notice", {text}, true, {}, std::move(meanwhile)});
}

void ScriptedDialogs::expectConfirm(const QString& text, bool answer, std::function<void()> meanwhile)
{
    script_.push_back({"confirm", {text}, true, answer ? "yes" : "no", std::move(meanwhile)});
}

void ScriptedDialogs::expectInput(const QString& prompt, const QString& answer,
                                  std::function<void()> meanwhile)
{
    script_.push_back({"input", {prompt}, true, answer, std::move(meanwhile)});
}

void ScriptedDialogs::expectNoticeNext(const QString& text)
{
    script_.push_front({"notice", {text}, true, {}, {}});
}

void ScriptedDialogs::expectNoticeWith(const QStringList& parts)
{
    script_.push_back({"notice", parts, false, {}, {}});
}

QString ScriptedDialogs::take(const QString& kind, const QString& title, const QString& text)
{
    EXPECT_EQ(title.toStdString(), "Orvanta");
    if (script_.empty()) {
        ADD_FAILURE() << "unexpected " << kind.toStdString() << ": " << text.toStdString();
        return {};
    }
    const Box box = script_.front();
    script_.pop_front();
    EXPECT_EQ(kind.toStdString(), box.kind.toStdString()) << text.toStdString();
    for (const QString& part : box.parts)
        if (box.whole)
            EXPECT_EQ(text.toStdString(), part.toStdString());
        else
            EXPECT_TRUE(text.contains(part)) << text.toStdString() << "\nlacks: " << part.toStdString();
    if (box.meanwhile)
        box.meanwhile();
    return box.answer;
}

void ScriptedDialogs::notice(QWidget*, const QString& title, const QString& text, Icon)
{
    take("notice", title, text);
}

bool ScriptedDialogs::confirm(QWidget*, const QString& title, const QString& text)
{
    return take("confirm", title, text) == "yes";
}

QString ScriptedDialogs::input(QWidget*, const QString& title, const QString& prompt, const QString&)
{
    return take("input", title, prompt);
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

#include "narrator/clicks.h"
#include "narrator/host.h"
#include "support/doubles.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <set>

using namespace narrator;
using namespace std::chrono_literals;

namespace {

const QString genie = QStringLiteral("genie");

/// Knows which timers run; its time is set by hand.
class WatchedClock final : public toolkit::Clock
{
public:
    [[nodiscard]] std::chrono::milliseconds now() const override { return time; }
    void start(QTimer& timer) override { running.insert(&timer); }
    void stop(QTimer& timer) override { running.erase(&timer); }
    void wait(std::chrono::milliseconds) override {}

    std::chrono::milliseconds time{0};
    std::set<QTimer*> running;
};

struct Game
{
    Game()
    {
        form->resize(602, 434);
        characters->Load(genie, QStringLiteral(GENIE));
        host().Show();
        form->show();
        QCoreApplication::processEvents();
    }

    [[nodiscard]] Character& host() const { return characters->Item(genie); }
    [[nodiscard]] QWidget* stage() const { return form->findChild<QWidget*>(QStringLiteral("host")); }

    /// What the balloon shows, "" while there is none.
    [[nodiscard]] std::string said() const
    {
        const auto* balloon = form->findChild<QLabel*>(QStringLiteral("balloon"));
        return balloon->isVisible() ? balloon->property("text").toString().toStdString() : "";
    }

    support::SteppedClock clock;
    std::unique_ptr<QWidget> form = std::make_unique<QWidget>();
    std::unique_ptr<Characters> characters = makeCharacters(*form, clock);
};

} // namespace

TEST(Host, fails_to_load_what_is_no_character)
{
    const QTemporaryDir directory;
    QFile broken(directory.filePath(QStringLiteral("broken.acs")));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 9 9\"/>");
    broken.close();
    support::SteppedClock clock;
    auto form = std::make_unique<QWidget>();
    const auto characters = makeCharacters(*form, clock);
    for (const QString& path : {QString(), QStringLiteral("/nowhere/genie.acs"), directory.path(),
                                QStringLiteral("/dev/zero"), broken.fileName()}) {
        EXPECT_THROW(characters->Load(genie, path), LoadFailure) << path.toStdString();
        EXPECT_THROW((void)characters->Item(genie), LoadFailure);
        EXPECT_EQ(form->findChild<QWidget*>(QStringLiteral("host")), nullptr);
    }
    characters->Load(genie, QStringLiteral(GENIE));
    EXPECT_NO_THROW((void)characters->Item(genie));
    EXPECT_THROW(characters->Load(genie, QStringLiteral(GENIE)), LoadFailure);
    form.reset();
    EXPECT_THROW(characters->Load(QStringLiteral("other"), QStringLiteral(GENIE)), LoadFailure);
}

TEST(Host, says_its_texts_in_the_balloon)
{
    Game game;
    ASSERT_TRUE(game.stage()->isVisible());
    EXPECT_EQ(game.said(), "");
    game.host().Play(QStringLiteral("RestPose")); // 700 ms
    game.host().Speak(QStringLiteral("Question is,,Who?"));
    game.host().Speak(QStringLiteral("Well?"));
    EXPECT_EQ(game.said(), "");
    game.clock.advance(800ms);
    EXPECT_EQ(game.said(), "Question is… Who?");
    game.clock.advance(1500ms);
    EXPECT_EQ(game.said(), "Well?");
    game.host().Stop();
    EXPECT_EQ(game.said(), "");
}

TEST(Host, is_seen_with_the_form_and_rests_without_it)
{
    WatchedClock clock;
    QWidget form;
    form.resize(602, 434);
    const auto characters = makeCharacters(form, clock);
    characters->Load(genie, QStringLiteral(GENIE));
    auto* stage = form.findChild<QWidget*>(QStringLiteral("host"));
    form.show();
    EXPECT_FALSE(stage->isVisible());
    characters->Item(genie).Show();
    EXPECT_TRUE(stage->isVisible());
    EXPECT_EQ(clock.running.size(), 1U);
    form.resize(792, 500);
    EXPECT_EQ(stage->geometry().bottomRight(), form.rect().bottomRight());

    form.hide();
    EXPECT_EQ(clock.running.size(), 0U);
    characters->Item(genie).Speak(QStringLiteral("Is anybody there?"));
    EXPECT_EQ(clock.running.size(), 0U);
    clock.time = 1s;
    form.show();
    EXPECT_EQ(clock.running.size(), 1U);
    EXPECT_TRUE(form.findChild<QLabel*>(QStringLiteral("balloon"))->isVisible());
}

TEST(Host, lets_the_form_have_clicks_and_focus)
{
    Game game;
    QLineEdit edit(game.form.get());
    edit.setGeometry(10, 10, 100, 30);
    QPushButton button(game.form.get());
    button.setGeometry(450, 350, 80, 40);
    int clicks = 0;
    QObject::connect(&button, &QPushButton::clicked, [&] { ++clicks; });
    game.stage()->raise();
    edit.show();
    button.show();
    EXPECT_TRUE(game.stage()->geometry().intersects(button.geometry()));
    EXPECT_EQ(game.form->childAt(button.geometry().center()), &button);

    const auto click = [&](const QPoint& place) {
        return clickThrough(*game.form, game.form->mapToGlobal(place), Qt::LeftButton);
    };
    EXPECT_TRUE(click(button.geometry().center()));
    EXPECT_TRUE(click(QPoint(300, 300)));
    EXPECT_FALSE(click(QPoint(700, 300)));
    EXPECT_EQ(clicks, 1);
    button.setEnabled(false);
    click(button.geometry().center());
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(game.stage()->focusPolicy(), Qt::NoFocus);
}

TEST(Host, survives_every_order_of_farewell)
{
    {
        Game game; // the form first, with something to say
        game.host().Speak(QStringLiteral("I am not done"));
        game.form.reset();
        game.clock.advance(500ms);
        game.host().Stop();
        game.host().Speak(QStringLiteral("Hello?"));
        game.host().Show();
        game.clock.advance(5s);
    }
    {
        Game game; // the characters first
        game.host().Play(QStringLiteral("Greet"));
        game.characters.reset();
        EXPECT_FALSE(game.stage()->isVisible());
        game.form->hide();
        game.form->show();
        game.clock.advance(500ms);
        EXPECT_FALSE(game.stage()->isVisible());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(game.stage(), nullptr);
    }
    {
        Game game; // the form by a click that went through the host
        auto* button = new QPushButton(game.form.get());
        button->setGeometry(450, 350, 80, 40);
        button->show();
        QObject::connect(button, &QPushButton::clicked, button,
                         [&game] { game.form.release()->deleteLater(); });
        clickThrough(*game.form, game.form->mapToGlobal(button->geometry().center()), Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        game.clock.advance(500ms);
    }
}

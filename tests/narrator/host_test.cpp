#include "narrator/host.h"
#include "stage/clicks.h"
#include "support/doubles.h"

#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <gtest/gtest.h>

using namespace narrator;
using namespace std::chrono_literals;

namespace {

const QString genie = "genie";
const QString another = "another";

struct Game
{
    Game()
    {
        form->resize(602, 434);
        button->setGeometry(450, 350, 80, 40);
        form->show();
        characters->Load(genie, QString(GENIE));
        host().Show();
    }

    [[nodiscard]] Character& host() const { return characters->Item(genie); }
    [[nodiscard]] QWidget* stage() const { return form->findChild<QWidget*>("host"); }

    /// What the balloon shows, "" while there is none.
    [[nodiscard]] std::string said() const
    {
        const auto* balloon = form->findChild<QLabel*>("balloon");
        return balloon->isVisible() ? balloon->text().toStdString() : "";
    }

    [[nodiscard]] bool click(int x, int y) const
    {
        return stage::clickThrough(*form, form->mapToGlobal(QPoint(x, y)), Qt::LeftButton);
    }

    support::SteppedClock clock;
    std::unique_ptr<QWidget> form = std::make_unique<QWidget>();
    QPushButton* button = new QPushButton(form.get());
    std::unique_ptr<Characters> characters = makeCharacters(*form, clock);
};

} // namespace

TEST(Host, FailsToLoadWhatIsNoCharacter)
{
    Game game;
    for (const char* path : {"", "/nowhere/genie.acs", "/dev", "/dev/zero", __FILE__}) {
        EXPECT_THROW(game.characters->Load(another, QString::fromLatin1(path)), LoadFailure) << path;
        EXPECT_THROW((void)game.characters->Item(another), LoadFailure);
        EXPECT_EQ(game.form->findChildren<QWidget*>("host").size(), 1);
    }
    EXPECT_THROW(game.characters->Load(genie, QString(GENIE)), LoadFailure);
    game.characters->Load(another, QString(GENIE));
    EXPECT_FALSE(game.form->findChildren<QWidget*>("host").last()->isVisible());
    game.form.reset();
    EXPECT_THROW(game.characters->Load("late", QString(GENIE)), LoadFailure);
}

TEST(Host, SpeaksWhileTheFormIsSeen)
{
    Game game;
    game.form->resize(792, 500);
    EXPECT_EQ(game.stage()->geometry().bottomRight(), game.form->rect().bottomRight());
    game.host().Play("RestPose"); // 900 ms
    game.host().Speak("Question is,,Who?");
    game.host().Speak("Well?");
    EXPECT_EQ(game.said(), "");
    game.clock.advance(1000ms);
    EXPECT_EQ(game.said(), "Question");
    game.clock.advance(1300ms);
    EXPECT_EQ(game.said(), "Question is… Who?");
    game.clock.advance(200ms);
    EXPECT_EQ(game.said(), "Well?");
    game.host().Stop();
    EXPECT_EQ(game.said(), "");

    game.form->hide();
    game.host().Speak("Is anybody there?");
    game.host().Speak("Nobody?"); // what is said goes on unseen
    game.clock.advance(2s);
    game.form->show();
    EXPECT_EQ(game.said(), "Nobody?");
}

TEST(Host, IsMutedByItsSignAndByAKeyThatNoFieldTakes)
{
    Game game;
    auto* sign = game.form->findChild<QAbstractButton*>("mute");
    const QAccessibleInterface* told = QAccessible::queryAccessibleInterface(sign);
    EXPECT_EQ(told->text(QAccessible::Name).toStdString(), "Mute the host");
    EXPECT_EQ(told->role(), QAccessible::CheckBox);
    EXPECT_EQ(game.form->childAt(sign->geometry().center()), sign);
    QLineEdit field(game.form.get());
    QDialog box(game.form.get());
    QLineEdit answer(&box);
    QDialog second(&box);
    const struct
    {
        QWidget& widget;
        Qt::KeyboardModifiers held;
        bool mute;
        QDialog* opened = nullptr; ///< before
    } table[]{{*game.button, Qt::NoModifier, true},  {*game.form, Qt::ControlModifier, true},
              {field, Qt::NoModifier, true},         {*game.form, Qt::NoModifier, false},
              {*game.form, Qt::ShiftModifier, true}, {box, Qt::NoModifier, false, &box},
              {answer, Qt::NoModifier, false},       {second, Qt::NoModifier, true, &second}};
    for (const auto& [widget, held, mute, opened] : table) {
        if (opened)
            opened->open();
        QCoreApplication::processEvents();
        QKeyEvent key(QEvent::KeyPress, Qt::Key_M, held, "m");
        QApplication::sendEvent(&widget, &key);
        EXPECT_EQ(told->state().checked, mute);
    }
    EXPECT_TRUE(game.click(490, 370)); // which the form does not get behind a box
    EXPECT_TRUE(sign->isChecked());
}

TEST(Host, LetsTheFormHaveItsClicks)
{
    Game game;
    int clicks = 0;
    QObject::connect(game.button, &QPushButton::clicked, [&] { ++clicks; });
    EXPECT_TRUE(game.stage()->geometry().contains(game.button->geometry()));
    EXPECT_EQ(game.form->childAt(490, 370), game.button);
    EXPECT_TRUE(game.click(490, 370));
    EXPECT_TRUE(game.click(300, 300));
    EXPECT_FALSE(game.click(700, 300));
    game.button->setEnabled(false);
    EXPECT_TRUE(game.click(490, 370));
    EXPECT_EQ(clicks, 1);
}

TEST(Host, SurvivesEveryOrderOfFarewell)
{
    for (const char first : {'f', 'c', 'b'}) { // form, characters, form by a click on its button
        Game game;
        game.host().Speak("I am not done");
        if (first == 'f') {
            game.form.reset();
            game.clock.advance(500ms);
            game.host().Speak("Hello?");
            game.host().Show();
        } else if (first == 'c') {
            game.characters.reset();
            game.form->hide();
            game.form->show();
            EXPECT_FALSE(game.stage()->isVisible());
        } else {
            QObject::connect(game.button, &QPushButton::clicked, [&] { game.form.release()->deleteLater(); });
            EXPECT_TRUE(game.click(490, 370));
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        game.clock.advance(5s);
        EXPECT_TRUE(first != 'c' || game.stage() == nullptr);
    }
}

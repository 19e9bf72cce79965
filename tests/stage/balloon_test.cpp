#include "stage/balloon.h"
#include "stage/balloon_text.h"

#include <QAccessible>
#include <QWidget>

#include <gtest/gtest.h>

using namespace stage;

TEST(BalloonText, ShowsPauseMarksAsOneMark)
{
    const std::pair<const char*, const char*> table[]{
        {" ,,\t,\n", ""},
        {"Your question is,,Who?,,the options are,,A,One,B,Two",
         "Your question is… Who? the options are… A, One, B, Two"},
        {",welcome ,name\n  today,", "welcome, name today"},
        {"wait,, ,?", "wait?"},
        {"1,00,000 rupees, 2 , 3", "1,00,000 rupees, 2, 3"},
        {"<b>&\x01 in\x7f it", "<b>& in it"},
    };
    for (const auto& [given, shown] : table)
        EXPECT_EQ(shownText(QString::fromUtf8(given)).toStdString(), shown) << given;
}

TEST(Balloon, GrowsAndScrollsWithinItsRoomWhateverIsSaid)
{
    QWidget parent;
    parent.show();
    const QRect room(2, 2, 296, 162);
    Balloon balloon(room, &parent);
    const QString texts[]{"Hi", QString(3000, u'W'), QString("words on, and on ").repeated(60),
                          QString("\u0928\u092e\u0938\u094d\u0924\u0947 \U0001F600 ").repeated(99),
                          QString("\u05e9\u05dc\u05d5\u05dd ").repeated(200)};
    for (const QString& text : texts) {
        EXPECT_FALSE(balloon.say(text, 0) && balloon.isVisible());
        EXPECT_TRUE(balloon.say(text, 2));
        const QRect place = balloon.geometry();
        ASSERT_TRUE(room.contains(place)) << text.left(9).toStdString();
        for (qsizetype said = 3; said <= text.size(); said += 1 + said / 50) {
            EXPECT_FALSE(balloon.say(text, said));
            EXPECT_TRUE(shownText(text).startsWith(balloon.text())) << said;
        }
        balloon.say(text, text.size() * 5 / 8);
        const QImage before = balloon.grab().toImage();
        balloon.say(text, text.size());
        EXPECT_NE(balloon.grab().toImage(), before) << text.left(9).toStdString();
        EXPECT_EQ(balloon.text(), shownText(text));
        EXPECT_EQ(balloon.geometry(), place);
    }
    EXPECT_TRUE(balloon.say(QString(), 0));
    EXPECT_FALSE(balloon.isVisible());
}

TEST(Balloon, IsATextWithANameForScreenReaders)
{
    Balloon balloon(QRect(2, 2, 296, 162), nullptr);
    balloon.say("Well, now then", 9);
    QAccessibleInterface* said = QAccessible::queryAccessibleInterface(&balloon);
    EXPECT_EQ(said->role(), QAccessible::StaticText);
    EXPECT_EQ(said->text(QAccessible::Name).toStdString(), "Host says");
    EXPECT_EQ(said->text(QAccessible::Value).toStdString(), "Well, now");
    EXPECT_EQ(said->textInterface()->text(1, 4).toStdString(), "ell");
}

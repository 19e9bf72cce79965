#include "narrator/balloon.h"
#include "narrator/balloon_text.h"

#include <QWidget>

#include <gtest/gtest.h>

using namespace narrator;

TEST(BalloonText, shows_pause_marks_as_one_mark)
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
    for (const auto& [given, shown] : table) {
        EXPECT_EQ(shownText(QString::fromUtf8(given)).toStdString(), shown) << given;
    }
}

TEST(BalloonText, breaks_into_pages_without_loss)
{
    // Ten characters to a page, broken behind the last blank among them.
    const auto fitting = [](const QString& text) -> qsizetype {
        const auto blank = text.first(std::min<qsizetype>(text.size(), 10)).lastIndexOf(u' ');
        return text.size() <= 10 ? text.size() : blank < 0 ? 10 : blank + 1;
    };
    const std::pair<const char*, const char*> table[]{
        {"one two three four five", "one two |three |four five"},
        {"aaaa bbbb cc", "aaaa |bbbb cc"}, // not "cc" all by itself
        {"abcdefghijklmnopqrstuvwxyz", "abcdefghij|klmnopqrst|uvwxyz"},
    };
    for (const auto& [given, pages] : table) {
        QString text = QString::fromLatin1(given);
        for (qsizetype end = pageEnd(text, 0, fitting); end < text.size();) {
            text.insert(end, u'|');
            end = pageEnd(text, end + 1, fitting);
        }
        EXPECT_EQ(text.toStdString(), pages);
    }
    EXPECT_EQ(pageEnd(QStringLiteral("any"), 0, [](const QString&) { return 0; }), 1); // never stuck
}

TEST(Balloon, turns_its_pages_within_its_room_whatever_is_said)
{
    QWidget parent;
    parent.show();
    const QRect room(2, 2, 296, 162);
    Balloon balloon(room, &parent);
    const QString texts[]{QStringLiteral("Hi"), QString(3000, u'W'),
                          QStringLiteral("words on and on ").repeated(60),
                          QStringLiteral("\u0928\u092e\u0938\u094d\u0924\u0947 \U0001F600 ").repeated(99),
                          QStringLiteral("\u05e9\u05dc\u05d5\u05dd ").repeated(200)};
    for (const QString& text : texts) {
        int pages = 0;
        for (int step = 0; step <= 500; ++step) {
            pages += balloon.say(text, step / 500.0);
            ASSERT_TRUE(room.contains(balloon.geometry())) << text.left(9).toStdString() << step;
        }
        EXPECT_TRUE(pages > text.size() / 400 && pages <= 1 + text.size() / 40) << pages;
        EXPECT_TRUE(balloon.isVisible());
        EXPECT_EQ(balloon.text(), shownText(text));
        balloon.grab();
    }
    EXPECT_TRUE(balloon.say(QString(), 0));
    EXPECT_FALSE(balloon.isVisible());
}

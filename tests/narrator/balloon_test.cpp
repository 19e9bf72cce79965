#include "narrator/balloon.h"
#include "narrator/balloon_text.h"

#include <QWidget>

#include <gtest/gtest.h>

using namespace narrator;

TEST(BalloonText, shows_pause_marks_as_one_mark)
{
    const std::pair<const char*, const char*> table[]{
        {"", ""},
        {" ,,\t,\n", ""},
        {"plain words", "plain words"},
        {"  many   blanks\n here ", "many blanks here"},
        {"Your question is,,Who?,,the options are,,A,One,B,Two",
         "Your question is… Who? the options are… A, One, B, Two"},
        {"welcome ,name today", "welcome, name today"},
        {",leading and trailing,", "leading and trailing"},
        {"wait,, ,?", "wait?"},
        {"Sorry!,,no", "Sorry! no"},
        {"1,00,000 rupees, 2 , 3", "1,00,000 rupees, 2, 3"},
        {"null\x01 in\x7f it", "null in it"},
        {"<b>&amp;", "<b>&amp;"},
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
        {"short", "short"},
        {"one two three four five", "one two |three |four five"},
        {"aaaa bbbb cc", "aaaa |bbbb cc"}, // not "cc" all by itself
        {"abcdefghijklmnopqrstuvwxyz", "abcdefghij|klmnopqrst|uvwxyz"},
    };
    for (const auto& [text, pages] : table) {
        const QString words = QString::fromLatin1(text);
        QStringList seen;
        for (qsizetype start = 0; start < words.size();) {
            const qsizetype end = pageEnd(words, start, fitting);
            ASSERT_GT(end, start) << text;
            seen << words.mid(start, end - start);
            start = end;
        }
        EXPECT_EQ(seen.join(u'|').toStdString(), pages);
    }
    EXPECT_EQ(pageEnd(QStringLiteral("any"), 0, [](const QString&) { return 0; }), 1); // never stuck
}

TEST(Balloon, stays_within_its_room_whatever_is_said)
{
    QWidget parent;
    parent.resize(300, 400);
    parent.show();
    const QRect room(2, 2, 296, 162);
    Balloon balloon(room, &parent);
    const QString texts[]{QStringLiteral("Hi"), QString(3000, u'W'), QStringLiteral("word ").repeated(2000),
                          QStringLiteral("\u0928\u092e\u0938\u094d\u0924\u0947 \U0001F600 ").repeated(99),
                          QStringLiteral("\u05e9\u05dc\u05d5\u05dd ").repeated(200)};
    for (const QString& text : texts) {
        for (const double read : {0.0, 0.3, 0.31, 0.99, 1.0}) {
            balloon.say(text, read);
            EXPECT_TRUE(room.contains(balloon.geometry())) << text.left(9).toStdString() << read;
            EXPECT_TRUE(balloon.isVisible());
            EXPECT_EQ(balloon.text(), shownText(text));
            EXPECT_FALSE(balloon.grab().isNull());
        }
    }
    EXPECT_FALSE(balloon.say(texts[4], 1)); // nothing new
    EXPECT_TRUE(balloon.say(QString(), 0));
    EXPECT_FALSE(balloon.isVisible());
}

TEST(Balloon, shows_the_page_that_is_being_read)
{
    QWidget parent;
    Balloon balloon(QRect(0, 0, 296, 162), &parent);
    const QString text = QStringLiteral("some words that go on and on ").repeated(30);
    int pages = 0;
    for (int step = 0; step <= 1000; ++step) {
        pages += balloon.say(text, step / 1000.0);
    }
    EXPECT_GE(pages, 4);
    EXPECT_LE(pages, 8);
}

#include "support/doubles.h"
#include "toolkit/contrast.h"
#include "toolkit/desktop.h"
#include "toolkit/desktop_services.h"
#include "toolkit/text.h"
#include "toolkit/text_box.h"
#include "toolkit/twips.h"

#include <QApplication>
#include <QFontMetrics>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QScreen>
#include <QSize>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <set>

namespace toolkit {

using namespace std::chrono_literals;

TEST(Twips, NeighboursStayNeighbours)
{
    const QRect left = pixels(TwipRect{100, 0, 207, 30});
    const QRect right = pixels(TwipRect{307, 0, 110, 30});
    EXPECT_EQ(left.right() + 1, right.left());
}

TEST(Growth, FillsTheScreenInEighthsOnTopOfWhatTheDesktopAsksFor)
{
    struct Case
    {
        QSize screen;
        double desktop, total;
    };
    const Case cases[] = {{{1920, 1080}, 1, 1.25}, {{1920, 1080}, 1.5, 1.5}, {{3840, 2160}, 2, 2.625},
                          {{1024, 768}, 1, 1},     {{1000, 3000}, 1, 1},     {{2560, 1440}, 1.25, 1.75}};
    for (const Case& row : cases)
        EXPECT_EQ(growth({1000, 800}, row.screen, row.desktop) * row.desktop, row.total)
            << row.screen.width();
}

TEST(Contrast, ComesFromAHaloWhereTheGroundIsTooNearToTheText)
{
    const QColor navy(0, 0, 64);
    const QColor violet(128, 128, 255);
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 0.01);
    EXPECT_EQ(haloOf(Qt::white, navy, 13), navy);
    const std::pair<QColor, QColor> cases[] = {{Qt::yellow, violet}, {Qt::blue, navy}, {navy, Qt::black}};
    for (const auto& [text, ground] : cases) {
        EXPECT_GE(contrast(text, haloOf(text, ground, 13)), 4.5) << ground.name().toStdString();
        EXPECT_LT(contrast(text, haloOf(text, ground, 35)), 5) << "more than large letters need";
    }
}

TEST(Random, ReseedingInQuickSuccessionDoesNotRepeatANumber)
{
    ClockSeededRandom random;
    std::set<float> seen;
    for (int draw = 0; draw < 200; ++draw) {
        random.reseed();
        const float number = random.next();
        EXPECT_TRUE(number >= 0 && number < 1);
        seen.insert(number);
    }
    EXPECT_GT(seen.size(), 195U);
}

TEST(Timer, IsNotRestartedWhileItRunsAndPutsOffAtMostOneTickWhileItIsHeld)
{
    support::SteppedClock clock;
    Timer timer(clock, 100ms);
    int ticks = 0;
    timer.onTick([&] { ++ticks; });
    // What is done, or how many milliseconds pass, and how often the timer has ticked then.
    const std::pair<QString, int> steps[] = {
        {"on", 0},   {"60", 0},  {"on", 0},      {"40", 1},  {"off", 1},     {"1000", 1},
        {"on", 1},   {"99", 1},  {"hold", 1},    {"350", 1}, {"release", 1}, {"events", 2},
        {"hold", 2}, {"100", 2}, {"release", 2}, {"off", 2}, {"events", 2},
    };
    for (const auto& [step, after] : steps) {
        if (step == "on" || step == "off")
            timer.setEnabled(step == "on");
        else if (step == "hold")
            timer.hold();
        else if (step == "release")
            timer.release();
        else if (step == "events")
            QCoreApplication::processEvents();
        else
            clock.advance(std::chrono::milliseconds(step.toInt()));
        EXPECT_EQ(ticks, after) << step.toStdString();
    }
}

TEST(Dialogs, EnterMeansYesAndEscapeNoOnDesktopsOfEveryOrderOfButtons)
{
    DesktopDialogs dialogs;
    for (const char* order : {"0", "1", "2", "3"}) {
        qApp->setStyleSheet(QString("QDialogButtonBox { button-layout: %1 }").arg(order));
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
            QTimer::singleShot(0, [&] { QTest::keyClick(QApplication::activeModalWidget(), key); });
            EXPECT_EQ(dialogs.confirm(nullptr, "Orvanta", "Sure?"), key == Qt::Key_Return) << order;
        }
    }
    qApp->setStyleSheet("");
}

TEST(Dialogs, ALongTextIsWholeInABoxThatFitsTheScreen)
{
    const QString text = QString("Read on. ").repeated(2000);
    QTimer::singleShot(0, [&] {
        QWidget* const box = QApplication::activeModalWidget();
        EXPECT_TRUE(box->screen()->availableSize().expandedTo(box->frameSize()) ==
                    box->screen()->availableSize());
        const auto* page = box->findChild<QPlainTextEdit*>();
        EXPECT_TRUE(page->toPlainText() == text && page->isReadOnly());
        const auto* message = qobject_cast<QMessageBox*>(box);
        EXPECT_TRUE(message->icon() == QMessageBox::Warning && message->textFormat() == Qt::PlainText);
        QTest::keyClick(box, Qt::Key_Return);
    });
    DesktopDialogs().notice(nullptr, "Orvanta", text, Dialogs::Icon::Exclamation);
}

TEST(Text, IsShrunkAndThenShortenedUntilItFits)
{
    constexpr int flags = Qt::AlignHCenter | Qt::TextWordWrap;
    const QFont font = verdana(9.75, Weight::Bold);
    const QSize box(493, 31);
    const std::pair<QString, bool> cases[] = {
        {"Short", true},
        {QString("Wednesday ").repeated(10), true},
        {QString("W").repeated(100), true},
        {QString("word ").repeated(100'000), false},
        {QString("unbroken").repeated(1000), false},
        {QString::fromUcs4(U"\U0001F642").repeated(2001), false},
        {"a" + QString::fromUcs4(U"\U0001F642").repeated(2001), false},
        {"", true},
    };
    for (const auto& [text, whole] : cases) {
        const FittedText fit = fitted(text, font, box, flags);
        const QRect needed =
            QFontMetrics(fit.font).boundingRect(QRect(0, 0, box.width(), 9999), fit.flags, fit.text);
        EXPECT_LE(needed.height(), box.height()) << text.first(qMin(20, text.size())).toStdString();
        EXPECT_LE(needed.width(), box.width()) << text.first(qMin(20, text.size())).toStdString();
        EXPECT_TRUE(fit.text.isValidUtf16());
        EXPECT_EQ(fit.text == text, whole) << text.first(qMin(20, text.size())).toStdString();
        EXPECT_TRUE(fit.flags == flags || !text.contains(' ')); // no word is torn
    }
}

TEST(TextBox, OfWhatIsEnteredTheBeginningIsTakenAsFarAsItFits)
{
    const QString face = "\U0001F9DE";
    const QString full = face.repeated(15);
    const QString stored = QString(20, 'z'); // longer than the limit
    // What is there, how much of it is selected or else the cursor stands behind two, what is entered.
    const std::tuple<QString, int, QString, QString> cases[] = {
        {{}, 0, face.repeated(20), full},
        {full, 0, "x", full},
        {full, 4, "abc", "ab" + face.repeated(13)},
        {{}, 0, "a line\r\n", "a line"},
        {stored, 0, "y", stored},
        {stored, 1, "", stored.chopped(1)},
    };
    for (const auto& [before, selected, entered, after] : cases) {
        TextBox box(nullptr);
        box.setLimit(15);
        box.setText(before);
        box.setCursorPosition(2);
        if (selected > 0)
            box.setSelection(0, selected);
        box.insert(entered);
        QApplication::processEvents();
        EXPECT_EQ(box.text(), after);
        if (after != before)
            box.undo();
        EXPECT_EQ(box.text(), before);
    }
}

} // namespace toolkit

#include "rig/silhouette.h"
#include "stage/stage.h"
#include "support/sample.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QWindow>

#include <gtest/gtest.h>

using namespace stage;

namespace {

/// A host in a window beside a form in the corner of the screen, where nobody blends windows.
struct Show
{
    Show()
    {
        form.resize(400, 434);
        form.show();
        stage.enter();
    }

    QWidget form;
    rig::Figure figure{rig::readCharacter(sample::character(), "sample"), {}};
    Stage stage{form, figure, true};
};

/// The brightness of each square of 20 pixels on a white ground, from a to z; `map` where that is not far
/// off.
std::string brightness(const QImage& picture, const std::string& map)
{
    QImage ground(picture.size(), QImage::Format_RGB32);
    ground.fill(Qt::white);
    QPainter(&ground).drawImage(0, 0, picture);
    const QImage means = ground.scaled(picture.size() / 20, {}, Qt::SmoothTransformation);
    std::string seen;
    for (int i = 0; i < means.width() * means.height(); ++i) {
        const int level = 'a' + qGray(means.pixel(i % means.width(), i / means.width())) * 26 / 256;
        const char expected = seen.size() < map.size() ? map[seen.size()] : '-';
        seen += std::abs(level - expected) < 2 ? expected : static_cast<char>(level);
        if (i % means.width() == means.width() - 1)
            seen += '|';
    }
    return seen;
}

} // namespace

TEST(Stage, ShowsFigureBalloonAndSignAndHasTheirShape)
{
    Show show;
    rig::Pose reaching = show.figure.rig().rest;
    reaching.switches[0] = 2;
    reaching.bones[1][0] = -90;
    const struct
    {
        QString text;
        qsizetype said;
        std::string map;
    } table[]{
        {"Well", 4,
         "zzzzzzzzzzzzzzz|zzzzzzzzzzzzzzz|zzzzzzzzzzzzzzz|zzzzzzzzzzzzzzz|zzzzzzzzzzzzzzz|"
         "zzzzxxxxxxxzzzz|zzzzxzyvyzxzzzz|zzzzyxxwxxyzzzz|zzzzzzzzzzzzzzz|zzzzzzzzzzzzzzz|"
         "zzzzzzzzzzzzzzz|zzzzzlllllzzzzz|zzzzzhgeghzzzzz|zzzzzhhhhhzzufu|zzzzzhhhhhzzpap|"
         "zzzzzhhhhhzzzxz|zzzzzhhhhhzzzzz|zzzzzhhhhhzzzzz|zzzzzooooovzzzz|zzzzzzzzzzwzzzz|"},
        {QString("Well, words go on and on ").repeated(20), 300,
         "yxxxxxxxxxxxxxy|wwwxxxwxwvxwxwx|wwvvwuwvuwwwuyx|wxuwvvwwwvwwvyx|wvvwwwvwwvxwwvx|"
         "wxvwwvwvvwwwvzx|wxzzzzzzzzzzzzx|xxxxxxxwxxxxxxx|zzzzzzzzzzzzzzz|zzzzzzzzzzzzzzz|"
         "zzzzzzzzzzzzzzz|zzzzzlllllzzzzz|zzzzzhgeghzzzzz|zzzzzhhhhhzzufu|zzzzzhhhhhzzpap|"
         "zzzzzhhhhhzzzxz|zzzzzhhhhhzzzzz|zzzzzhhhhhzzzzz|zzzzzooooovzzzz|zzzzzzzzzzwzzzz|"},
    };
    for (const auto& [text, said, map] : table) {
        show.stage.present(reaching, text, said);
        const QImage seen = show.stage.grab().toImage();
        EXPECT_EQ(brightness(seen, map), map);
        int wrong = 0; // but for the rims of balloon and sign
        for (const QRect& area : show.stage.windowHandle()->mask() ^ rig::silhouette(seen, seen.rect(), 128))
            wrong += area.width() * area.height();
        EXPECT_LT(wrong, 70);
    }
}

TEST(Stage, GoesWithItsFormAndWhereItIsDragged)
{
    Show show;
    Stage& stage = show.stage;
    stage.present(show.figure.rig().rest, "Well", 4);
    int skips = 0;
    stage.onSkip([&] { ++skips; });
    QPushButton below(&show.form);
    below.setCheckable(true);
    below.setGeometry(200, 250, 150, 150);
    below.show();
    const auto drag = [&](const QPoint& from, const QPoint& way) {
        const QPoint start = stage.mapToGlobal(from);
        const auto send = [&](QEvent::Type type, const QPoint& place, Qt::MouseButtons buttons) {
            QMouseEvent event(type, from, place, Qt::LeftButton, buttons, Qt::NoModifier);
            QApplication::sendEvent(&stage, &event);
        };
        send(QEvent::MouseButtonPress, start, Qt::LeftButton);
        send(QEvent::MouseMove, start + way, Qt::LeftButton);
        send(QEvent::MouseButtonRelease, start + way, Qt::NoButton);
        return std::tuple(stage.pos(), skips, below.isChecked());
    };
    const QPoint onBody(150, 300);
    const QPoint onBalloon(150, 140);
    EXPECT_EQ(drag(onBody, {0, 0}), std::tuple(QPoint(412, 34), 0, false));
    EXPECT_EQ(drag(onBalloon, {3, 3}), std::tuple(QPoint(412, 34), 1, false));
    EXPECT_EQ(drag(onBody, {-260, -10}), std::tuple(QPoint(152, 24), 1, false));
    EXPECT_EQ(drag(onBody, {0, 0}), std::tuple(QPoint(152, 24), 1, true));
    EXPECT_EQ((stage.sights().question * 100).toPoint(), QPoint(-40, -59));
    show.form.move(50, 20);
    EXPECT_EQ(stage.pos(), QPoint(202, 44));
    show.form.hide();
    EXPECT_FALSE(stage.isVisible());
    show.form.resize(700, 500);
    show.form.show();
    QCoreApplication::processEvents();
    EXPECT_EQ(stage.size(), QSize(150, 284));
    EXPECT_TRUE(stage.isVisible());
    stage.leave();
    EXPECT_FALSE(stage.isVisible());
}

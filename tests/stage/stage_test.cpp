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
        stage.onSkip([this] { ++skips; });
    }

    /// Presses the left button at a place of the stage, moves it and lets it go.
    void drag(const QPoint& from, const QPoint& way)
    {
        const QPoint start = stage.mapToGlobal(from);
        for (const auto& [type, to, buttons] : {std::tuple(QEvent::MouseButtonPress, start, Qt::LeftButton),
                                                {QEvent::MouseMove, start + way, Qt::LeftButton},
                                                {QEvent::MouseButtonRelease, start + way, Qt::NoButton},
                                                {QEvent::MouseMove, start + 2 * way, Qt::NoButton}}) {
            QMouseEvent event(type, from, to, Qt::LeftButton, buttons, Qt::NoModifier);
            QApplication::sendEvent(&stage, &event);
        }
    }

    QWidget form;
    rig::Figure figure{rig::readCharacter(sample::character(), "sample"), {}};
    Stage stage{form, figure, true};
    int skips = 0;
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
        rig::Pose pose;
        QString text;
        qsizetype said;
        std::string map;
    } table[]{
        {reaching, "Well", 4,
         "zzzzzzzzzzzzzzz|zzzzzzzzzzzzzzz|zzzzzzzzzzzzzzz|zzzzzzzzzzzzzzz|zzzzzzzzzzzzzzz|"
         "zzzzxxxxxxxzzzz|zzzzxzyvyzxzzzz|zzzzyxxwxxyzzzz|zzzzzzzzzzzzzzz|zzzzzzzzzzzzzzz|"
         "zzzzzzzzzzzzzzz|zzzzzlllllzzzzz|zzzzzhgeghzzzzz|zzzzzhhhhhzzufu|zzzzzhhhhhzzpap|"
         "zzzzzhhhhhzzzxz|zzzzzhhhhhzzzzz|zzzzzhhhhhzzzzz|zzzzzooooovzzzz|zzzzzzzzzzwzzzz|"},
        {show.figure.rig().rest, QString("Well, words go on and on ").repeated(20), 300,
         "yxxxxxxxxxxxxxy|wwwxxxwxwvxwxwx|wwvvwuwvuwwwuyx|wxuwvvwwwvwwvyx|wvvwwwvwwvxwwvx|"
         "wxvwwvwvvwwwvzx|wxzzzzzzzzzzzzx|xxxxxxxwxxxxxxx|zzzzzzzzzzzzzzz|zzzzzzzzzzzzzzz|"
         "zzzzzzzzzzzzzzz|zzzzzlllllzzzzz|zzzzzhgeghzzzzz|zzzzzhhhhhzzzzz|zzzzzhhhhnxzzzz|"
         "zzzzzhhhhoyzzzz|zzzzzhhhhnzzzzz|zzzzzhhhhkzzzzz|zzzzzooooovzzzz|zzzzzzzzzzwzzzz|"},
    };
    for (const auto& [pose, text, said, map] : table) {
        show.stage.present(pose, text, said);
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
    show.stage.present(show.figure.rig().rest, "Well", 4);
    int clicks = 0;
    QPushButton button(&show.form);
    button.setGeometry(200, 250, 150, 150);
    button.show();
    QObject::connect(&button, &QPushButton::clicked, [&] { ++clicks; });
    const QPoint onBody(150, 300);
    const struct
    {
        QPoint from, way, place;
        int skips, clicks;
    } table[]{
        {onBody, {0, 0}, {412, 34}, 0, 0},
        {{150, 140}, {3, 3}, {412, 34}, 1, 0}, // the balloon
        {onBody, {-260, -10}, {152, 24}, 1, 0},
        {onBody, {0, 0}, {152, 24}, 1, 1}, // over the button
    };
    for (const auto& row : table) {
        show.drag(row.from, row.way);
        EXPECT_EQ(show.stage.pos(), row.place);
        EXPECT_EQ(std::pair(show.skips, clicks), std::pair(row.skips, row.clicks));
    }
    EXPECT_NEAR(show.stage.sights().question.x(), -0.4, 0.01);
    EXPECT_NEAR(show.stage.sights().question.y(), -0.59, 0.01);
    show.form.move(50, 20);
    EXPECT_EQ(show.stage.pos(), QPoint(202, 44));
    show.form.hide();
    EXPECT_FALSE(show.stage.isVisible());
    show.form.resize(700, 500);
    show.form.show();
    QCoreApplication::processEvents();
    EXPECT_TRUE(show.stage.isVisible());
    EXPECT_EQ(show.stage.size(), QSize(150, 284));
    show.stage.leave();
    EXPECT_FALSE(show.stage.isVisible());
}

#include "shell/back.h"

#include "toolkit/screens.h"

#include <QCloseEvent>
#include <QScreen>

namespace shell {

Back::Back(toolkit::Services services)
    : Form({.name = "back",
            .width = toolkit::twips(size.width()),
            .height = toolkit::twips(size.height()),
            .placement = toolkit::Placement::WindowDefault,
            .background = QColor(0, 0, 64)},
           services)
{
    setAccessibleName("Backdrop");
    setEnabled(false);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setWindowFlag(Qt::WindowDoesNotAcceptFocus);
    const QSize available = screen()->availableSize();
    if (width() > available.width() || height() > available.height())
        coverScreen();
}

void Back::coverScreen()
{
    setFixedSize(screen()->size());
    move(screen()->geometry().topLeft());
    placed_ = true;
}

void Back::Form_Load()
{
    screens().show("orv");
}

// By the time a window is painted the window system has given it its place.
void Back::paintEvent(QPaintEvent*)
{
    QMetaObject::invokeMethod(this, &Back::standBehindGame, Qt::QueuedConnection);
}

void Back::standBehindGame()
{
    const Form* const game = screens().find("orv");
    if (placed_ || !game || !isVisible())
        return;
    const QRect room = toolkit::pixels(game->largestBounds());
    if (geometry().contains(room))
        return;
    placed_ = true;
    QRect place = geometry();
    place.moveCenter(room.center());
    move(place.topLeft());
}

/// The two windows are one show.
void Back::closeEvent(QCloseEvent* event)
{
    event->ignore();
    screens().close(screens().find("orv") ? "orv" : name());
}

} // namespace shell

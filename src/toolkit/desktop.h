#pragma once

class QColor;
class QSize;
class QWindow;

namespace toolkit {

/// To be called before the application object exists: picks the window system and makes sure that it answers,
/// because the application object would abort the program if it did not. False if the program cannot start,
/// which has been told on the standard error.
[[nodiscard]] bool prepareDesktop();

/// By how much a program whose largest window takes `largest` device-independent pixels is to be drawn larger
/// than the desktop asks for by its factor `desktop`, so that it fills `screen`, in the screen's own pixels,
/// as far as that goes in eighths. Never less than 1.
[[nodiscard]] double growth(const QSize& largest, const QSize& screen, double desktop);

/// Has an application object that is made from now on draw by growth() larger, by means of QT_SCALE_FACTOR in
/// the environment. False where the user has set that, or there is nothing to do.
bool growToScreen(const QSize& largest);

/// Has the window manager keep `window`, which must be on screen, above `behind`, whichever is clicked.
void keepAbove(QWindow& window, QWindow& behind);

/// Has the window system fill what comes into view of a growing window until the program has painted it.
void setGround(QWindow& window, const QColor& colour);

/// Top-level windows can be placed and shaped here, which only X11 offers.
[[nodiscard]] bool windowsCanBePlaced();

/// Someone blends windows, so that half-transparent pixels show what is below. Asks the X server.
[[nodiscard]] bool compositorRuns();

/// The user has not turned the desktop's animations off. Asks the X server.
[[nodiscard]] bool animationsWanted();

/// Drops what the libraries would print of an unusual desktop; the player can do nothing with it.
void silenceLibraryWarnings();

} // namespace toolkit

#pragma once

#include <optional>
#include <string>

class QWindow;

namespace toolkit {

/// To be called before the application object exists: picks the window system and makes sure that it answers,
/// because the application object would abort the program if it did not. Returns what is wrong, if anything.
[[nodiscard]] std::optional<std::string> prepareDesktop();

/// Has the window manager keep `window`, which must be on screen, above `behind`, whichever is clicked.
void keepAbove(QWindow& window, QWindow& behind);

/// Drops what the libraries would print of an unusual desktop; the player can do nothing with it.
void silenceLibraryWarnings();

} // namespace toolkit

#pragma once

#include "game/orv.h"
#include "support/stand.h"

namespace game {

/// A stand with the game, and plain forms for its neighbours. The draws take the numbers of `random` in turn:
/// one for each question and one for each prompt message.
struct Show : support::Stand
{
    Show()
    {
        screens.add("orv", [this] { return std::make_unique<Orv>(services, makeHost); }, {.behind = "back"});
        addPlain({"back", "thank"});
        usual = "orv";
    }
};

class ShowTest : public testing::Test, protected Show
{
protected:
    [[nodiscard]] std::string shows(const QString& names) const { return shown("orv", names); }
    [[nodiscard]] bool hidden(const QString& name) const { return control<QWidget>("orv", name).isHidden(); }
    /// The looks of the four options: "." plain, "c" chosen, "g" green.
    [[nodiscard]] std::string looks() const
    {
        std::string result;
        for (int k = 1; k <= 4; ++k) {
            const auto& option = control<toolkit::Label>("orv", QString("option%1").arg(k));
            const bool green = option.palette().window().color() == QColor(0, 192, 0);
            result += !option.isOpaque() ? '.' : green ? 'g' : 'c';
        }
        return result;
    }
    /// Steps that answer so many questions rightly and go on to the next one.
    static QString answered(int questions) { return (right + "cmdok; ").repeated(questions); }

    static inline const QString right = "option3:y; 900ms; ";
};

inline const std::string thanks =
    "Orvanta: Thank you for playing. Visit www.orvanta.example for updates and more questions.";
inline const std::string farewell =
    "Stop; Speak Visit us at www.orvanta.example for updates and more questions.; Play Announce; " + thanks;

} // namespace game

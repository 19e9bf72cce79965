#include "player.h"

#include <QThread>

#include <algorithm>

namespace desk {

using PromptJourney = Player;

// Which prompt comes is chance, two in twenty-five open a panel: with several games at once the wait is
// short, and by the deadline one chance in ten million is left that none has opened one.
TEST_F(PromptJourney, SoonerOrLaterTheHostOpensAPanelByItself)
{
    constexpr int games = 6;
    constexpr std::chrono::seconds deadline(165);

    std::vector<std::unique_ptr<Desk>> others;
    std::vector<std::pair<Display*, Window>> forms;
    for (int game = 0; game < games; ++game) {
        if (desk)
            others.push_back(std::move(desk));
        begin();
        toQuestion();
        forms.emplace_back(desk->display.get(), desk->windowOf("orv"));
    }
    const auto opened = [](const auto& form) {
        return form.first->place(form.second).size() != QSize(602, 434);
    };
    const auto until = std::chrono::steady_clock::now() + deadline;
    auto found = forms.end();
    while (found == forms.end() && std::chrono::steady_clock::now() < until) {
        QThread::msleep(20);
        found = std::find_if(forms.begin(), forms.end(), opened);
    }
    ASSERT_NE(found, forms.end()) << "no panel was opened";
    // It stays open at its full size.
    const auto [display, window] = *found;
    const auto whole = [&, display = display, window = window] {
        const QSize size = display->place(window).size();
        return (size.width() == 602 || size.width() == 792) && (size.height() == 434 || size.height() == 500);
    };
    while (!whole() && std::chrono::steady_clock::now() < until)
        QThread::msleep(20);
    EXPECT_TRUE(whole());
    EXPECT_EQ(choices(), "");
}

} // namespace desk

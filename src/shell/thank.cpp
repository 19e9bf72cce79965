#include "shell/thank.h"

#include "toolkit/author.h"
#include "toolkit/screens.h"

namespace shell {

using namespace std::chrono_literals;
using toolkit::verdana;
using toolkit::Weight;

Thank::Thank(toolkit::Services services)
    : Form({.name = "thank",
            .caption = "Thank You For Playing Orvanta",
            .width = 6525,
            .height = 6015,
            .background = QColor(0, 0, 64)},
           services)
{
    const QFont large = verdana(14.25, Weight::Bold);
    const QColor yellow(255, 255, 128);
    // clang-format off
    picture("Picture1", {2280, 120, 3975, 4455}, ":/pictures/closing.jpg");
    label("Label1", {120, 240, 4455, 495}, "Thank You!!", {.font = large, .colour = yellow});
    label("Label2", {1680, 4680, 3255, 735}, "Come Back Again\n" + toolkit::author::name,
          {.font = large, .colour = yellow, .centred = true});
    label("Label3", {1680, 5400, 3345, 435}, toolkit::author::email + "\n" + toolkit::author::site,
          {.font = verdana(8.25, Weight::Bold), .colour = Qt::white, .centred = true});
    auto* Timer1 = timer("Timer1", 5000ms, true);
    // clang-format on
    controlsDone();
    onTick(Timer1, [this] { thank_Timer1_Timer(); });
}

void Thank::thank_Timer1_Timer()
{
    screens().close("thank");
    screens().show("userselect");
}

} // namespace shell

#include "shell/mainscreen.h"

#include "toolkit/author.h"
#include "toolkit/screens.h"

namespace shell {

using toolkit::element;
using toolkit::verdana;
using toolkit::Weight;

MainScreen::MainScreen(toolkit::Services services)
    : Form({.name = "mainscreen",
            .caption = "Orvanta",
            .width = 7965,
            .height = 6630,
            .background = QColor(0, 0, 64)},
           services)
{
    // clang-format off
    title = label("title", {240, 120, 7455, 735}, "",
                  {.font = verdana(12, Weight::Bold), .colour = QColor(255, 255, 128), .centred = true});
    line("Line1", {0, 0}, {7800, 0}, Qt::black, 5);
    picture("Image1", {2640, 1440, 2880, 2700}, ":/pictures/title.jpg");
    label(element("Label1", 1), {1080, 5160, 5895, 615}, "A game for the whole family, by " + toolkit::author::name,
          {.font = verdana(9.75, Weight::Bold), .colour = QColor(255, 192, 255), .centred = true});
    auto* Command1 = button("Command1", {1200, 5760, 5535, 270}, "CLICK HERE TO READ THE RULES AND PROCEED TO PLAY",
                            {.font = verdana(8.25), .background = QColor(192, 192, 255), .tab = 2});
    label(element("Label1", 0), {120, 6240, 7695, 375}, "Contact us at " + toolkit::author::email,
          {.font = verdana(8.25, Weight::Bold), .colour = QColor(192, 255, 255), .centred = true});
    // clang-format on
    controlsDone();
    onClick(Command1, [this] { mainscreen_Command1_Click(); });
}

void MainScreen::Form_Load()
{
    screens().close("userselect");
    title->setText("Welcome to the Biggest Game Show Ever");
    title->setText(title->text() + "\nOrvanta");
}

void MainScreen::mainscreen_Command1_Click()
{
    screens().close("mainscreen");
    screens().show("rules");
}

} // namespace shell

#include "shell/rules.h"

#include "shell/rules_text.h"
#include "toolkit/screens.h"

#include <QCheckBox>
#include <QPlainTextEdit>
#include <QScrollBar>

namespace shell {

using toolkit::verdana;
using toolkit::Weight;

namespace {

const QColor ground(0, 0, 64);

} // namespace

Rules::Rules(toolkit::Services services)
    : Form({.name = "rules",
            .caption = "Orvanta : Rules",
            .width = 7875,
            .height = 6870,
            .background = ground},
           services)
{
    const toolkit::Look consent{.font = verdana(9.75, Weight::Bold), .colour = QColor(255, 224, 192)};
    // clang-format off
    label("Label1", {240, 240, 4935, 495}, "The Rules of the Game",
          {.font = verdana(14.25, Weight::Bold), .colour = QColor(255, 192, 192), .background = ground});
    auto* Text1 = textArea("Text1", {240, 720, 7455, 5295}, rulesText(),
                          {.font = verdana(9.75), .colour = QColor(192, 255, 192), .background = ground, .tab = 0});
    accept = checkBox("accept", {360, 6120, 255, 255}, "Accept The Rules", {.tab = 3});
    label("Label2", {720, 6120, 2175, 255}, "I Accept the Rules", consent);
    reject = checkBox("reject", {3600, 6120, 255, 255}, "", {.tab = 5});
    label("Label3", {3960, 6120, 2175, 255}, "I Reject the Rules", consent);
    startplay = button("startplay", {1440, 6480, 4695, 375}, "Click here to start the Game",
                       {.font = verdana(8.25), .background = QColor(192, 255, 192), .tab = 2});
    // clang-format on
    controlsDone();
    Text1->setReadOnly(true);
    Text1->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    accept->setChecked(true);
    accept->setAccessibleName("I Accept the Rules");
    reject->setAccessibleName("I Reject the Rules");
    Text1->setAccessibleName("The Rules of the Game");
    Text1->verticalScrollBar()->setAccessibleName("Scroll the rules");
    setDefaultButton(startplay);

    onChange(accept, [this] { rules_accept_Click(); });
    onChange(reject, [this] { rules_reject_Click(); });
    onClick(startplay, [this] { rules_startplay_Click(); });
}

void Rules::rules_accept_Click()
{
    startplay->setEnabled(accept->isChecked());
    if (accept->isChecked())
        reject->setChecked(false);
}

void Rules::rules_reject_Click()
{
    if (!reject->isChecked())
        return;
    accept->setChecked(false);
    if (confirm("Are you sure you don't want to play")) {
        screens().close("rules");
        screens().show("thank");
    } else {
        reject->setChecked(false);
    }
}

void Rules::rules_startplay_Click()
{
    screens().close("rules");
    screens().show("orv");
}

} // namespace shell

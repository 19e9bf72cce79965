#include "shell/userselect.h"

#include "toolkit/author.h"
#include "toolkit/screens.h"

#include <QApplication>
#include <QIcon>
#include <QImageReader>

namespace shell {

using namespace std::chrono_literals;
using toolkit::arialBlack;
using toolkit::verdana;
using toolkit::Weight;

namespace {

const QColor navy(0, 0, 128);
const QColor lilac(192, 192, 255);
const QColor lit(255, 255, 128);

QIcon applicationIcon()
{
    QIcon icon;
    // Larger ones would be a quarter of the program's start; window lists show none.
    for (const int size : {16, 22, 32, 48}) {
        QImageReader reader(QString(":/pictures/icon/%1.png").arg(size), "png");
        reader.setAutoDetectImageFormat(false); // which would load every picture plugin there is
        icon.addPixmap(QPixmap::fromImageReader(&reader));
    }
    return icon;
}

} // namespace

UserSelect::UserSelect(toolkit::Services services)
    : Form({.name = "userselect",
            .caption = "Welcome to Orvanta",
            .width = 6780,
            .height = 3105,
            .border = toolkit::Border::FixedSingle,
            .background = navy},
           services)
{
    const QFont choice = verdana(9.75, Weight::Bold);
    const QFont line = verdana(12, Weight::Bold);
    const QFont link = verdana(8.25, Weight::Bold);
    // clang-format off
    welcome = label("welcome", {1920, 0, 2985, 750}, "WELCOME",
                    {.font = arialBlack(26.25), .colour = navy, .background = navy, .centred = true, .sizedToText = true});
    label("usertype", {1395, 840, 4065, 270}, "Please Select the type of User.",
          {.font = line, .colour = QColor(128, 255, 255), .centred = true, .sizedToText = true});
    administrator = button("administrator", {960, 1680, 2055, 495}, "Administrator",
                           {.font = choice, .background = lilac, .tab = 2});
    contestant = button("contestant", {3720, 1680, 2175, 495}, "Contestant",
                        {.font = choice, .background = lilac, .tab = 3});
    label("Label3", {1680, 2280, 3615, 255}, "By " + toolkit::author::name,
          {.font = line, .colour = QColor(255, 255, 0), .centred = true});
    email = label("email", {2160, 2640, 2415, 195}, toolkit::author::email,
                  {.font = link, .colour = lilac, .centred = true, .sizedToText = true, .tab = 5});
    site = label("site", {2280, 2880, 2265, 195}, toolkit::author::site,
                 {.font = link, .colour = lilac, .centred = true, .sizedToText = true, .tab = 6});
    Timer1 = timer("Timer1", 10ms, false);
    // clang-format on
    controlsDone();
    QApplication::setWindowIcon(applicationIcon());
    email->setCursor(Qt::PointingHandCursor);
    site->setCursor(Qt::PointingHandCursor);

    onTick(Timer1, [this] { userselect_Timer1_Timer(); });
    onClick(contestant, [this] { userselect_contestant_Click(); });
    onClick(administrator, [this] { userselect_administrator_Click(); });
    onMouseMove(email, [this] { userselect_email_MouseMove(); });
    onMouseMove(site, [this] { userselect_site_MouseMove(); });
    onClick(email, [this] { userselect_email_Click(); });
    onClick(site, [this] { userselect_site_Click(); });
}

void UserSelect::startFade()
{
    fadeLevel = 1;
    Timer1->setEnabled(true);
}

void UserSelect::userselect_Timer1_Timer()
{
    if (fadeLevel < 255)
        fadeLevel += 5;
    if (fadeLevel >= 245)
        Timer1->setEnabled(false);
    welcome->setTextColour(QColor(0, 0, fadeLevel));
}

void UserSelect::userselect_contestant_Click()
{
    screens().close("userselect");
    screens().show("mainscreen");
}

void UserSelect::userselect_administrator_Click()
{
    screens().close("userselect");
    screens().show("login");
}

void UserSelect::userselect_email_MouseMove()
{
    email->setTextColour(lit);
}

void UserSelect::userselect_site_MouseMove()
{
    site->setTextColour(lit);
}

void UserSelect::Form_MouseMove()
{
    email->setTextColour(lilac);
    site->setTextColour(lilac);
}

void UserSelect::userselect_email_Click()
{
    openLink("mailto:", email->text());
}

void UserSelect::userselect_site_Click()
{
    openLink("", site->text());
}

void UserSelect::openLink(const QString& scheme, const QString& address)
{
    const auto tell = [this, address] {
        notice(
            QString("No program on this desktop opens %1. You can type the address where you would use it.")
                .arg(address),
            toolkit::Dialogs::Icon::Information);
    };
    services().browser.navigate(scheme + address, *this, [this, tell] { run(tell); });
}

} // namespace shell

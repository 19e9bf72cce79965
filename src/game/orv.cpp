#include "game/orv.h"

#include <QPlainTextEdit>

namespace game {

using namespace std::chrono_literals;
using toolkit::element;
using toolkit::Look;
using toolkit::Shape;
using toolkit::TwipRect;
using toolkit::verdana;
using toolkit::Weight;

namespace {

const QColor ground(0, 0, 64);
const QColor lilac(192, 192, 255);
const QColor violet(128, 128, 255);
const QColor paleCyan(192, 255, 255);
const QColor outlineCyan(128, 255, 255);
const QColor outlineOrange(255, 192, 128);
const QColor paleYellow(255, 255, 192);

} // namespace

Orv::Orv(toolkit::Services services, const narrator::CharactersFactory& makeCharacters)
    : Form({.name = "orv", .caption = "Orvanta", .width = 9030, .height = 6510, .background = ground},
           services),
      myagent(makeCharacters(*this))
{
    myagent->setObjectName("myagent");
    myagent->setParent(this);
    addControls();
    connectHandlers();
    addKeyTable();
    nameForReaders();
}

// The controls lie in an area of 11280 x 7560; the ladder at its right and the lifelines at its bottom come
// into view when the window grows. What stands higher in these tables lies on top.
// clang-format off
void Orv::addControls()
{
    random = timer("random", 5000ms, true);
    addFrontControls();
    eraseoptions = shape("eraseoptions", {75, 4680, 8575, 1335}, {.fill = ground, .outline = ground, .cover = true}, true);
    addPoll();
    clock = label("clock", {7800, 1080, 615, 495}, "0", {.font = verdana(20.25, Weight::Bold), .colour = QColor(192, 0, 0), .middle = true, .hidden = true});
    clock->setWordsSpread(127.5, 975); // in the middle of its disc
    clockback = shape("clockback", {7440, 840, 975, 975},
                      {.kind = Shape::Kind::Circle, .fill = paleYellow, .outline = QColor(255, 192, 192), .outlineWidth = 3}, true);
    addCrosses();
    line("Line8", {8280, 4320}, {8640, 4320}, outlineCyan, 2);
    shape("Shape1", {45, 45, 8655, 6060}, {.outline = QColor(0, 0, 255), .outlineWidth = 4});
    addOptions();
    addQuestion();
    label("Label2", {120, 120, 8295, 615}, "ORVANTA", {.font = verdana(24, Weight::Bold), .colour = QColor(0, 255, 255), .centred = true});
    Look lifelineLook{.font = verdana(14.25, Weight::Bold), .colour = QColor(0, 0, 128), .background = lilac, .centred = true, .middle = true, .bordered = true};
    lifelineLook.tab = 9;
    lifeline[0] = label("lifeline1", {240, 6600, 1695, 735}, "Statitics Poll", lifelineLook);
    lifelineLook.tab = 10;
    lifeline[1] = label("lifeline2", {3480, 6600, 1695, 735}, "Ask A Friend", lifelineLook);
    lifelineLook.tab = 11;
    lifeline[2] = label("lifeline3", {6600, 6600, 1815, 735}, "50 : 50", lifelineLook);
    controlsDone();
    fitLadder();
    clearoptions();
    for (auto* label : option)
        label->setCursor(Qt::WhatsThisCursor);
}

void Orv::addFrontControls()
{
    const QFont small = verdana(8.25, Weight::Bold);
    const QFont medium = verdana(9.75, Weight::Bold);
    leave         = button("leave",     {7320, 3600, 1215, 255}, "WITHDRAW", {.font = small, .background = lilac, .tab = 16});
    cmdokquit     = button("cmdokquit", {3480, 5160, 1815, 255}, "OK", {.font = small, .background = lilac, .hidden = true, .tab = 15});
    cmdok         = button("cmdok",     {3480, 4800, 1815, 255}, "OK", {.font = small, .background = lilac, .hidden = true, .tab = 14});
                    picture("Picture1", {2880, 1080, 2775, 2535}, ":/pictures/title.jpg");
    lifelinetimer = timer("lifelinetimer", 1000ms, false);
    flash         = timer("flash", 100ms, false);
    mws           = button("mws",       {8790, 120, 250, 6015}, "M Y W  I  N N  I  N G S T A T U S      ", {.font = verdana(8.25), .background = violet, .tab = 8});
    stage         = textArea("stage",    {9120, 120, 2055, 6255}, state.stagetext, {.font = medium, .colour = QColor(255, 255, 0), .background = violet, .tab = 3});
    LL            = button("LL",        {0, 6240, 8655, 255}, "L I F E L I N E S", {.font = medium, .background = violet, .tab = 0});
}

void Orv::addPoll()
{
    const QFont medium = verdana(9.75, Weight::Bold);
    hidepoll = shape("hidepoll", {120, 1200, 2655, 2295}, {.fill = ground, .outline = ground, .cover = true});
    auto* letters = label("Label1", {360, 1200, 2175, 375}, "  A       B        C       D", {.font = medium, .colour = Qt::white});
    letters->setWordsSpread(187.5, 600);
    for (int i = 0; i < options; ++i)
        pollbar[i] = shape(element("pollbar", i), {360.0 + 600 * i, 1515, 375, 1500}, {.fill = paleYellow});
    for (int i = 0; i < options; ++i)
        pollpercent[i] = label(element("pollpercent", i), {480.0 + 600 * i, 3120, 255, 240}, "%", {.font = medium, .colour = paleCyan, .sizedToText = true});
    line("pollline", {120, 3000}, {2760, 3000}, paleCyan, 1);
    shape("pollborder", {120, 1200, 2655, 2175}, {.outline = paleCyan});
}

void Orv::addCrosses()
{
    crosses[2][1] = line("l3l2", {6480, 7320}, {8400, 6600}, Qt::red, 5, true);
    crosses[2][0] = line("l3l1", {6480, 6600}, {8520, 7320}, Qt::red, 5, true);
    crosses[1][1] = line("l2l2", {3360, 7320}, {5280, 6600}, Qt::red, 5, true);
    shape("Shape2", {9120, 3720, 2175, 255}, {});
    crosses[1][0] = line("l2l1", {3360, 6600}, {5280, 7320}, Qt::red, 5, true);
    crosses[0][0] = line("l1l1", {120, 7320}, {2040, 6600}, Qt::red, 5, true);
    crosses[0][1] = line("l1l2", {120, 6600}, {2040, 7320}, Qt::red, 5, true);
}

void Orv::addOptions()
{
    constexpr TwipRect places[options] = {{840, 4800, 2895, 495}, {4800, 4800, 2895, 495}, {840, 5520, 2895, 495}, {4800, 5520, 2895, 495}};
    constexpr double edge = 2880; // of an outline; its two points lie half its height beside it
    constexpr double height = 480;
    constexpr double half = height / 2;

    for (int i = options - 1; i >= 0; --i) {
        option[i] = label(QString("option%1").arg(i + 1), places[i], "",
                          {.font = verdana(9.75, Weight::Bold), .colour = QColor(192, 255, 192), .middle = true, .tab = 4 + i});
    }
    constexpr double side = 255; // of a sign, which fits into the outline's right point
    for (int i = 0; i < options; ++i) {
        const auto [left, top, width, labelHeight] = places[i];
        sign[i] = shape(element("sign", i), {left + edge - side / 2, top + (height - side) / 2, side, side}, {.outline = {}}, true);
        const double right = left + edge;
        const double bottom = top + height;
        const double middle = top + half;
        line(element("Line11", i), {left, top}, {left - half, middle}, outlineOrange, 2);
        line(element("Line12", i), {left - half, middle}, {left, bottom}, outlineOrange, 2);
        line(element("Line13", i), {left, top}, {right, top}, outlineOrange, 2);
        line(element("Line14", i), {right, top}, {right + half, middle}, outlineOrange, 2);
        line(element("Line15", i), {right + half, middle}, {right, bottom}, outlineOrange, 2);
        line(element("Line16", i), {left, bottom}, {right, bottom}, outlineOrange, 2);
        option[i]->setBackgroundShape(shape("", {left - half, top, edge + height, height}, {.kind = Shape::Kind::Hexagon, .outline = {}}));
    }
    line(element("Line17", 0), {7920, 5040}, {8640, 5040}, outlineOrange, 2);
    line(element("Line17", 3), {7920, 5760}, {8640, 5760}, outlineOrange, 2);
    line(element("Line18", 0), {3960, 5040}, {4560, 5040}, outlineOrange, 2);
    line(element("Line18", 1), {3960, 5760}, {4560, 5760}, outlineOrange, 2);
    line(element("Line9", 0), {25, 5040}, {600, 5040}, outlineOrange, 2);
    line(element("Line9", 1), {25, 5760}, {600, 5760}, outlineOrange, 2);
}

void Orv::addQuestion()
{
    question = label("question", {645, 4080, 7395, 460}, "",
                     {.font = verdana(9.75, Weight::Bold), .colour = paleYellow, .centred = true, .middle = true});
    line("Line7", {25, 4320}, {360, 4320}, outlineCyan, 2);
    line("Line6", {8040, 4560}, {8280, 4320}, outlineCyan, 2);
    line("Line5", {8040, 4080}, {8280, 4320}, outlineCyan, 2);
    line("Line4", {360, 4320}, {600, 4560}, outlineCyan, 2);
    line("Line3", {600, 4080}, {360, 4320}, outlineCyan, 2);
    line("Line2", {600, 4560}, {8040, 4560}, outlineCyan, 2);
    line("Line1", {600, 4080}, {8040, 4080}, outlineCyan, 2);
}
// clang-format on

// Whatever font the desktop has for the one asked for: no line wraps or is cut, marked or not.
void Orv::fitLadder()
{
    constexpr int margin = 2;
    const QSize room = stage->contentsRect().size() - 2 * QSize(margin, margin);
    QString marked = state.stagetext;
    for (int n = 1; n <= lastQuestion; ++n)
        marked = withRungMarked(marked, n);
    // A blank at the end of a line would not be measured.
    for (QString text : {state.stagetext, marked}) {
        text.remove('\r').replace(QChar::Space, QChar::Nbsp);
        stage->setFont(toolkit::fitted(text, stage->font(), room, 0).font);
    }
    stage->document()->setDocumentMargin(margin);
    stage->setLineWrapMode(QPlainTextEdit::NoWrap);
    stage->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    stage->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    stage->setReadOnly(true);
}

void Orv::connectHandlers()
{
    for (int k = 1; k <= options; ++k)
        onClick(option[k - 1], [this, k] { orv_option_Click(k); });
    onClick(leave, [this] { orv_leave_Click(); });
    onClick(cmdok, [this] { orv_cmdok_Click(); });
    onClick(cmdokquit, [this] { orv_cmdokquit_Click(); });
    onGotFocus(cmdokquit, [this] { orv_cmdokquit_GotFocus(); });
    onClick(mws, [this] { orv_mws_Click(); });
    onTick(flash, [this] { orv_flash_Timer(); });
    onClick(LL, [this] { orv_LL_Click(); });
    onClick(lifeline[0], [this] { orv_lifeline1_Click(); });
    onClick(lifeline[1], [this] { orv_lifeline2_Click(); });
    onClick(lifeline[2], [this] { orv_lifeline3_Click(); });
    onTick(lifelinetimer, [this] { orv_lifelinetimer_Timer(); });
    onTick(random, [this] { orv_random_Timer(); });
}

} // namespace game

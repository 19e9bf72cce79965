#include "support/stand.h"

namespace toolkit {

namespace {

const QColor violet(128, 128, 255);
const QColor cyan(128, 255, 255);
const QColor navy(0, 0, 64);
const QString text = "▌▌▌";

const std::pair<QColor, char> letters[] = {
    {violet, '.'},
    {cyan, 'c'},
    {Qt::black, 'k'},
    {Qt::white, 'w'},
    {Qt::yellow, 'y'},
    {Qt::red, 'r'},
    {navy, 'n'},
    {QColor(92, 92, 184), 'h'},   // the halo of yellow on violet
    {QColor(75, 150, 150), 'e'},  // the edge of cyan
    {QColor(64, 127, 127), 'd'},  // cyan that cannot be used
    {QColor(114, 228, 228), 'p'}, // cyan that is pressed
    {QColor(190, 190, 190), 'g'}, // black that cannot be used
};

char letterOf(const QColor& colour)
{
    const auto isNear = [](int one, int other) { return std::abs(one - other) < 9; };
    const auto* const found = std::ranges::find_if(letters, [&](const auto& known) {
        return isNear(colour.red(), known.first.red()) && isNear(colour.green(), known.first.green()) &&
               isNear(colour.blue(), known.first.blue());
    });
    return found == std::end(letters) ? '~' : found->second;
}

/// A form with controls of each kind in colours that need care.
class Easel final : public Form
{
public:
    explicit Easel(Services services)
        : Form({.name = "easel", .width = 3000, .height = 6000, .background = violet}, services)
    {
        const QFont font = verdana(12, Weight::Bold);
        // clang-format off
        label("plain", {300, 300, 900, 450}, text, {.font = font, .colour = Qt::yellow});
        label("framed", {1500, 300, 900, 450}, text, {.font = font, .colour = Qt::white, .background = navy, .centred = true, .middle = true, .bordered = true});
        label("right", {300, 900, 900, 450}, text, {.font = font, .rightAligned = true})->setEnabled(false);
        label("spread", {1500, 900, 900, 450}, "▌ ▌", {.font = font})->setWordsSpread(225, 450);
        option = label("option", {450, 1500, 600, 450}, text, {.font = font, .background = cyan, .middle = true, .tab = 1});
        button = Form::button("button", {1500, 1500, 900, 450}, text, {.font = font, .background = cyan, .tab = 0});
        Form::button("off", {300, 2100, 900, 450}, text, {.font = font, .background = cyan, .tab = 2})->setEnabled(false);
        Form::button("dark", {1500, 2100, 900, 450}, text, {.font = font, .background = navy, .tab = 3});
        textArea("area", {300, 2700, 900, 450}, text, {.font = font, .colour = Qt::yellow, .background = violet, .tab = 4});
        option->setBackgroundShape(shape("hexagon", {300, 1500, 900, 450}, {.kind = Shape::Kind::Hexagon, .outline = {}}));
        shape("circle", {1500, 2700, 450, 450}, {.kind = Shape::Kind::Circle, .fill = Qt::yellow, .outlineWidth = 3});
        shape("box", {1950, 2700, 450, 450}, {.outline = Qt::red, .outlineWidth = 2});
        shape("tick", {300, 3300, 450, 450}, {.kind = Shape::Kind::Tick});
        shape("cross", {900, 3300, 450, 450}, {.kind = Shape::Kind::Cross});
        shape("lock", {1500, 3300, 450, 450}, {.kind = Shape::Kind::Lock});
        line("falling", {300, 3900}, {750, 4350}, Qt::red, 5);
        line("level", {900, 3900}, {1350, 3900}, Qt::red, 1);
        // clang-format on
        controlsDone();
    }
    using Form::focus;
    Label* option;
    Button* button;

    /// What is seen where a control is and some pixels around it: the letters of the colours there, and which
    /// of them is at each point of a coarse grid.
    [[nodiscard]] QString painted(const QString& name)
    {
        constexpr int around = 4;
        const QRect place = findChild<QWidget*>(name)->geometry().adjusted(-around, -around, around, around);
        const QImage picture = grab(place).toImage();
        const auto letterAt = [&](int x, int y) { return QChar(letterOf(picture.pixelColor(x, y))); };
        QMap<QChar, int> counts;
        for (int i = 0; i < picture.width() * picture.height(); ++i)
            ++counts[letterAt(i % picture.width(), i / picture.width())];
        QString result = name + ": ";
        for (const auto& [letter, count] : counts.asKeyValueRange())
            if (letter != '~' && count * 100 > picture.width() * picture.height())
                result += letter;
        for (int y = 1; y < 10; y += 2) {
            result += ' ';
            for (int x = 1; x < 18; x += 2)
                result += letterAt(place.width() * x / 18, place.height() * y / 10);
        }
        return result;
    }
};

} // namespace

TEST(Painting, ShowsEachControlInItsColours)
{
    support::Stand stand;
    Easel easel(stand.services);
    easel.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&easel));
    QStringList seen;
    for (const QWidget* control : easel.findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        if (!control->objectName().isEmpty())
            seen << easel.painted(control->objectName());
    easel.button->setDown(true);
    seen << "pressed " + easel.painted("button");
    easel.focus(easel.option);
    seen << "focused " + easel.painted("option");
    EXPECT_EQ(seen.join('\n').toStdString(), R"(level: .r ......... ......... .rrrrrrr. ......... .........
falling: .r ......... ..r...... ....r.... ......r.. .........
lock: .kw ......... ...w~w... ..wwwww.. ..w~~~w.. .........
cross: .kw ......... .~wk.kw~. ...~w~... .~wk.kw~. .........
tick: .kw ......... ......~k. .k~.k~... ..~wk.... .........
box: .kr ......... ......... k........ ......... .........
circle: .kry ......... .~yyyyy~r .kyyyyykr .~yyyyy~r .........
hexagon: .ckp ......... .~kcckc~. .ckcckcc. .~kcckc~. .........
option: .ckp ......... ckckck~cc ckckck~cc ckckck~cc .........
spread: .k ......... ..~...... ..~...... ......... .........
right: .g ......... ...~~g.g. ...~~g.g. ......... .........
framed: .nw ......... .nwnnwnn. .nwnnwnn. .nwnnwnn. .........
plain: .hy ......... .~y.~.... .~y.~.... ......... .........
area: .hy ......... .y.yy.... .y.yy.... .y.yy.... .........
dark: .kn ......... .nk~~knn. .nk~~knn. .nk~~knn. .........
off: .dw ......... .dwddwdd. .dwddwdd. .dwddwdd. .........
button: .cekw ......... .ckcckcc. .ckcckcc. .ckcckcc. .........
pressed button: .dekpw ......... .pkppkpp. .pkppkpp. .pkppkpp. .........
focused option: .ckpw .~.....w. ckckck~cc ckckck~cc ckckck~cc .~.....w.)");
}

} // namespace toolkit

#include "narrator/character.h"
#include "narrator/character_file.h"
#include "narrator/figure.h"
#include "narrator/motion.h"
#include "sample.h"

#include <QFile>
#include <QPainter>

#include <gtest/gtest.h>

using namespace narrator;

namespace {

QByteArray repeated(const QByteArray& text, int times)
{
    QByteArray all;
    for (int i = 0; i < times; ++i) {
        all += QByteArray(text).replace("%", QByteArray::number(i));
    }
    return all;
}

struct Hostile
{
    QByteArray find; ///< empty: the whole file
    QByteArray replacement;
    std::string verdict; ///< how the message must begin, after the name of the file
};

std::vector<Hostile> brokenXml()
{
    return {
        {"", "", ": the file is no UTF-8 text"},
        {"Small",
         "Sm\xff"
         "ll",
         ": the file is no UTF-8 text"},
        {"Small", QByteArray("Sm\0ll", 5), ": the file is no UTF-8 text"},
        {"</svg>", QByteArray(1 << 20, ' ') + "</svg>", ": the file is larger than 1 MiB"},
        {"</svg>", "", ", line 27: Premature end of document."},
        {"<svg", "<!DOCTYPE svg [<!ENTITY a \"b\">]>\n<svg", ", line 1: a document type"},
        {"<svg", R"(<?xml version="1.0" encoding="ISO-8859-1"?><svg)",
         ", line 1: the encoding must be UTF-8"},
        {"<defs>", "<?go now?><defs>", ", line 21: a document type, an entity or a processing instruction"},
        {"<defs>", "&bomb;<defs>", ", line 21: "},
        {"<defs>", "words<defs>", ", line 21: there is text between the elements"},
        {"<rect x=", "<rect " + repeated("a%=\"\" ", 9000) + "x=", ", line 22: a tag is too long"},
        {"<rect", repeated("<g>", 16) + "<rect", ", line 22: the elements are nested too deep"},
        {"<defs>", repeated("<g/>", 5000) + "<defs>", ", line 21: there are more than 5000 elements"},
        {"<svg ", "<html ", ", line 1: the element \"html\" does not belong here"},
    };
}

std::vector<Hostile> brokenDrawing()
{
    return {
        {"<circle", "<image", ", line 24: the element \"image\" does not belong here"},
        {"<circle", "<svg", ", line 24: the element \"svg\" does not belong here"},
        {"<circle", "<h:bone", ", line 24: the element \"bone\" does not belong here"},
        {"<defs>", "<defs xmlns=\"urn:x\">", ", line 21: the element \"defs\" does not belong here"},
        {"<defs>", "<defs><metadata/>", ", line 21: the metadata must stand in the root"},
        {"r=\"4\"", R"(r="4" href="/etc/motd")",
         R"(, line 24: the attribute "href" of "circle" is not allowed)"},
        {"r=\"4\"", "h:r=\"4\"", ", line 24: the attribute \"h:r\" is not allowed"},
        {"r=\"4\"", "r=\"10001\"", R"(, line 24: "10001" is no value for the attribute "r")"},
        {"r=\"4\"", "r=\"nan\"", R"(, line 24: "nan" is no value for the attribute "r")"},
        {"r=\"4\"", "r=\"1e3\"", R"(, line 24: "1e3" is no value for the attribute "r")"},
        {"r=\"4\"", R"(r="4" opacity="1.5")", R"(, line 24: "1.5" is no value for the attribute "opacity")"},
        {"r=\"4\"", "r=\"4\" transform=\"skewX(3)\"",
         ", line 24: \"skewX(3)\" is no value for the attribute"},
        {"r=\"4\"", R"(r="4" transform="scale(2")", ", line 24: \"scale(2\" is no value for the attribute"},
        {"url(#gold)", "url(file:///a)", ", line 23: \"url(file:///a)\" is no colour"},
        {"url(#gold)", "url(#body)", ", line 23: there is no gradient \"body\""},
        {"#084", "red", ", line 22: \"red\" is no colour"},
        {"M28 22", "M28 inf", ", line 23: \"inf L32 22 30 40 Z\" is no number of an outline"},
        {"M28 22", "M28 " + repeated("1 ", 8000), ", line 23: the outlines are too long"},
        {"<defs>", repeated("<path d=\"M" + repeated("1 ", 7490) + "\"/>", 3) + "<defs>",
         ", line 21: the drawing has too many outlines"},
        {"<defs>", repeated("<path d=\"M1 1" + repeated("A", 200) + "\"/>", 4) + "<defs>",
         ", line 21: the drawing has too many outlines"},
        {"<defs>", repeated("<circle r=\"1\"/>", 800) + "<defs>",
         ", line 21: the drawing has too many outlines"},
        {"r=\"4\"", R"(r="4" stroke-width="41")", ", line 24: \"41\" is no value for the attribute"},
        {"id=\"open\"", "id=\"fist\"", ", line 24: the id \"fist\" is used twice"},
        {"viewBox=\"0 0 40 44\"", "viewBox=\"0 0 40 0\"", ", line 1: the root must have a viewBox"},
    };
}

std::vector<Hostile> brokenRig()
{
    return {
        {"version=\"1\"", "version=\"2\"", ", line 2: this version of the format is not known"},
        {"200 220", "9000 220", ", line 2: the width must be 50 to 400"},
        {"<h:character", "<h:persona", ", line 2: the element \"persona\" does not belong here"},
        {"<h:rest slot", "<h:loop/><h:rest slot", ", line 9: the element \"loop\" does not belong here"},
        {"parent=\"root\"", "parent=\"arm\"", ", line 4: there is no bone \"arm\" before this place"},
        {"id=\"arm\"", "id=\"root\"", ", line 4: the bone \"root\" is there twice"},
        {" at=\"20 22\"", "", ", line 3: the attribute \"at\" is missing"},
        {" at=\"20 22\"", " at=\"20\"", ", line 3: the attribute \"at\" must be two numbers"},
        {" at=\"20 22\"", R"( at="20 22" x="1")", ", line 3: the attribute \"x\" is not allowed"},
        {"<h:draw part=\"body\"", repeated(R"(<h:bone id="b%" at="1 1"/>)", 63) + "<h:draw part=\"body\"",
         ", line 5: there are more than 64 bones"},
        {"<h:draw part=\"body\"",
         repeated(R"(<h:draw part="body" bone="root"/>)", 200) + "<h:draw part=\"body\"",
         ", line 5: there are more than 200 draws"},
        {"part=\"body\"", "part=\"claw\"", ", line 5: there is no part \"claw\" in the drawing"},
        {"<g id=\"open\"><circle", "<g><g id=\"open\"/><circle", ", line 7: there is no part \"open\""},
        {"value=\"fist\"", "value=\"body\"", ", line 9: \"body\" is not drawn in this slot"},
        {"ch=\"rot\" value", "ch=\"hue\" value", ", line 10: there is no channel \"hue\""},
        {"ms=\"4000\"", "ms=\"0\"", ", line 11: the period must be 100 to 10000"},
        {R"(shape="U" part="lip")", R"(shape="U" part="body")",
         ", line 13: \"body\" is not drawn in the slot"},
        {R"(<h:mouth shape="U" part="lip"/>)", "", ", line 20: the mouth shape \"U\" is missing"},
        {"name=\"think\"", "name=\"ThinK\"", ", line 20: the gesture \"think\" is missing"},
        {"name=\"think\"", "name=\"Think\"", ", line 19: the gesture \"Think\" is there twice"},
        {R"(name="think" same="Greet")", R"(name="think" same="x")",
         ", line 19: there is no gesture \"x\" before"},
        {"same=\"Greet\"/>", R"(same="Greet"><h:track bone="arm" ch="x" keys="0 1"/></h:gesture>)",
         ", line 19: the element \"track\" does not belong here"},
        {"ms=\"1000\"", "ms=\"30001\"", ", line 14: the length must be 50 to 30000"},
        {"600 90;", "200 90;", ", line 15: the keys must rise in time within the gesture (200)"},
        {"1000 * lin", "1001 * lin", ", line 15: the keys must rise in time within the gesture (1001)"},
        {"600 90;", "600 90 soft;", ", line 15: there is no ease \"soft\""},
        {"600 90;", "600 up;", ", line 15: \"up\" is no number for a key"},
        {"600 90;", ";", ", line 15: \" \" is no key"},
        {"600 90;", repeated("2%0 1;", 63), ", line 15: there are more than 64 keys"},
        {"100 open", "100 paw", ", line 16: \"paw\" is not drawn in this slot"},
        {"layer=\"arm\" keys", "layer=\"leg\" keys", ", line 17: there is no layer \"leg\""},
        {"</h:gesture>", repeated(R"(<h:track bone="arm" ch="x" keys="0 1"/>)", 198) + "</h:gesture>",
         ", line 18: there are more than 200 tracks"},
        {"</h:character>", repeated(R"(<h:gesture name="g%" same="Greet"/>)", 78) + "</h:character>",
         ", line 20: there are more than 100 gestures"},
    };
}

QByteArray genie()
{
    QFile file(QStringLiteral(GENIE));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

QImage painted(Figure& figure, const Pose& pose)
{
    QImage image(figure.rig().size.toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    figure.paint(painter, pose, 1);
    return image;
}

int opaquePixels(const QImage& image, const QRect& area)
{
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            count += qAlpha(image.pixel(x, y)) > 200;
        }
    }
    return count;
}

} // namespace

TEST(CharacterFile, names_the_first_defect_and_its_line)
{
    ASSERT_EQ(sample::verdict(sample::character()), "fine");
    for (const auto& rows : {brokenXml(), brokenDrawing(), brokenRig()}) {
        for (const Hostile& row : rows) {
            QByteArray bytes = row.replacement;
            if (!row.find.isEmpty()) {
                bytes = sample::character();
                const auto place = bytes.indexOf(row.find);
                ASSERT_GE(place, 0) << row.find.constData();
                bytes.replace(place, row.find.size(), row.replacement);
            }
            const std::string wanted = "sample" + row.verdict;
            EXPECT_EQ(sample::verdict(bytes).substr(0, wanted.size()), wanted);
        }
    }
}

TEST(CharacterFile, survives_damage_at_any_place)
{
    const QByteArray whole = genie();
    const auto length = whole.trimmed().size();
    for (qsizetype cut = 0; cut < length; cut += length / 60) {
        EXPECT_NE(sample::verdict(whole.first(cut)), "fine") << cut;
    }
    int refused = 0;
    for (qsizetype place = 3; place < length; place += length / 60) {
        QByteArray damaged = whole;
        damaged[place] = "<\"&;0 -"[place % 7];
        refused += sample::verdict(damaged) != "fine";
    }
    EXPECT_GT(refused, 20);
}

TEST(CharacterFile, refuses_parts_that_would_take_too_much_memory)
{
    QByteArray bytes = sample::character();
    bytes.replace("<h:rest slot=\"hand\"",
                  repeated(R"(<h:draw part="body" bone="root"/>)", 150) + "<h:rest slot=\"hand\"");
    bytes.replace("r=\"4\"/></g>",
                  R"(r="4"/></g><g id="all"><rect x="-99" y="-99" width="999" height="999"/></g>)");
    bytes.replace("part=\"body\"", "part=\"all\"");
    ASSERT_EQ(sample::verdict(bytes), "fine");
    EXPECT_THROW(Figure(readCharacter(bytes, QStringLiteral("sample")), QStringLiteral("sample")),
                 LoadFailure);
}

TEST(Genie, moves_in_another_way_for_every_name)
{
    const Rig rig = readCharacterFile(QStringLiteral(GENIE)).rig;
    std::vector<Pose> seen{rig.rest};
    for (const Gesture& gesture : rig.gestures) {
        const Pose pose = poseAt(rig, {&gesture, rig.rest}, gesture.lengthMs * 0.45);
        EXPECT_EQ(std::ranges::find(seen, pose), seen.end()) << gesture.name.toStdString();
        seen.push_back(pose);
        const Pose last = poseAt(rig, {&gesture, rig.rest}, gesture.lengthMs);
        EXPECT_TRUE(last == rig.rest) << gesture.name.toStdString() << " does not come back to rest";
    }
}

TEST(Genie, waves_beside_the_head)
{
    Figure figure(readCharacterFile(QStringLiteral(GENIE)), QStringLiteral(GENIE));
    const Rig& rig = figure.rig();
    const QRect besideHead(155, 20, 44, 70);
    const QRect body(80, 110, 40, 40);
    const QImage rest = painted(figure, rig.rest);
    const QImage wave = painted(figure, poseAt(rig, {rig.gesture(QStringLiteral("Greet")), rig.rest}, 320));
    EXPECT_EQ(opaquePixels(rest, besideHead), 0);
    EXPECT_GT(opaquePixels(wave, besideHead), 300);
    EXPECT_GT(opaquePixels(rest, body), 1500);
}

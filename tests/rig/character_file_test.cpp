#include "rig/figure.h"
#include "rig/motion.h"
#include "support/sample.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace rig;

namespace {

const char* const fine = "fine";

/// What the reader says about a file, with single quotes; "fine" if it takes it.
std::string verdict(const QByteArray& bytes)
{
    try {
        (void)Figure(readCharacter(bytes, "sample"), "sample");
        return fine;
    } catch (const FileFailure& failure) {
        return QByteArray(failure.what()).replace('"', '\'').toStdString();
    }
}

/// `text` again and again, a % in it counted.
QByteArray times(int count, const QByteArray& text)
{
    QByteArray all;
    while (count-- > 0)
        all += QByteArray(text).replace("%", QByteArray::number(count));
    return all;
}

struct Change
{
    const char* find;
    QByteArray replacements; ///< each of them alone, | between them
    int line;                ///< 0 for the whole file
    const char* defect;      ///< what the message must hold
};

const Change table[]{
    {"Small", QByteArray("Sm\xff|Sm\0ll", 9), 0, "the file is no UTF-8 text"},
    {"</svg>", times(1 << 20, " "), 0, "the file is larger than 1 MiB"},
    {"</svg>", "", 27, "Premature end of document."},
    {"<svg", "<!DOCTYPE svg>|<?go now?>", 1, "a document type, an entity or a processing instruction"},
    {"<svg", "<?xml version='1.0' encoding='ISO-8859-1'?><svg", 1, "the encoding must be UTF-8"},
    {"<defs>", "words", 21, "there is text between the elements"},
    {"<rect", "<rect" + times(32'000, " "), 22, "a tag is too long"},
    {"<rect", times(16, "<g>"), 22, "the elements are nested too deep"},
    {"<defs>", times(5000, "<g/>"), 21, "there are more than 5000 elements"},
    {"<svg ", "<g |<html ", 1, "does not belong here"},
    {"<circle", "<image|<svg|<h:bone|<circle xmlns='x'", 24, "does not belong here"},
    {"<defs>", "<defs><metadata/>", 21, "the metadata must stand in the root"},
    {"r='4'", "href='a'|h:r='4'", 24, "is not allowed"},
    {"r='4'", "r='1e3'|r='10001'|opacity='1.5'|stroke-width='41'|transform='scale(3)'|transform='rotate(2'",
     24, "is no value for the attribute"},
    {"#084", "red|url(file:///a)", 22, "is no value for the attribute 'fill'"},
    {"url(#gold)", "url(#body)", 23, "there is no gradient 'body'"},
    {"M28 22", "M28 inf|l28 22|28 22|L28 22|M28 22 C1|M28 22 Z 1 1 M1 1", 23, "is no part of an outline"},
    {"M28 22", times(8001, "1 "), 23, "the outlines are too long"},
    {"<defs>", times(35, "<path d='M1 1" + times(15'000, " ") + "'/>"), 21, "the outlines are too long"},
    {"<defs>", times(300, "<rect width='40' height='44'/>"), 21, "takes too long to paint"},
    {"M28 22", "M0 0 L" + times(150, "0 0 40 44 ") + "|M0 0 C" + times(150, "0 0 40 44 0 0 ") + "M1 1", 23,
     "takes too long to paint"},
    {"<path d='M28 22",
     "<g stroke='#000'><path/></g><path stroke='#fff' stroke-width='40' d='M1 1" + times(40, " 28 22 1 9"),
     23, "takes too long to paint"},
    {"<g id='body'>",
     "<g id='body' transform='matrix(90 0 0 90 0 0) rotate(45 1 2)'>" +
         times(9, "<rect width='40' height='44'/>"),
     22, "takes too long to paint"},
    {"id='open'", "id='fist'", 24, "the id 'fist' is used twice"},
    {"0 0 40 44", "0 0 40 0|0 0 40", 1, "the root must have a viewBox of four numbers"},
    {"<h:draw", times(150, "<h:draw part='body' bone='arm'/>") + "<h:draw", 0, "are too large"},
    {"version='1'", "version='2'", 2, "this version of the format is not known"},
    {"200 220", "401 220|200 49", 2, "must be 50 to 400"},
    {"<h:rest", "<h:loop/>|<h:track/>|<h:character/>", 9, "does not belong here"},
    {"parent='root'", "parent='arm'", 4, "there is no bone 'arm' before this place"},
    {"id='arm'", "id='root'", 4, "the bone 'root' is there twice"},
    {"at='20 22'", "", 3, "the attribute 'at' is missing"},
    {"at='20 22'", "at='20'", 3, "the attribute 'at' must be two numbers"},
    {"at='20 22'", "at='20 22' x='1'", 3, "the attribute 'x' is not allowed"},
    {"<h:draw", times(63, "<h:bone id='b%' at='1 1'/>"), 5, "there are more than 64 bones"},
    {"<g id='open'><circle", "<g><g id='open'/><circle", 7, "there is no part 'open' in the drawing"},
    {"ch='rot' value", "ch='hue' value", 10, "there is no channel 'hue'"},
    {"ms='4000'", "ms='99'|ms='10001'", 11, "the period must be 100 to 10000"},
    {"shape='U' part='lip'", "shape='U' part='body'", 13, "'body' is not drawn in the slot of the mouth"},
    {"shape='U'", "shape='O'", 20, "the mouth shape 'U' is missing"},
    {"'think'", "'ThinK'", 20, "the gesture 'think' is missing"},
    {"'think'", "'Think'", 19, "the gesture 'Think' is there twice"},
    {"same='Greet'", "same='x'", 19, "there is no gesture 'x' before this one"},
    {"name='think'", "name='th/ink'", 19, "is no name for a gesture"},
    {"'Greet'/>", "'Greet'><h:track>", 19, "the element 'track' does not belong here"},
    {"ms='1000'", "ms='49'|ms='30001'", 14, "the length must be 50 to 30000"},
    {"600 90;", "200 90;|1001 90;", 15, "the keys must rise in time within the gesture"},
    {"600 90;", "600 90 up;", 15, "there is no ease 'up'"},
    {"600 90;", "600 up;", 15, "'up' is no number"},
    {"600 90;", ";|600;|600 90 lin lin;", 15, "is no key"},
    {"600 90;", times(64, "600 90;"), 15, "there are more than 64 keys"},
    {"</h:character>",
     times(70, "<h:gesture name='g%' ms='900'>" +
                   times(30, "<h:track bone='arm' ch='x' keys='1 1;2 1;3 1;4 1;5 1;6 1;7 1;8 1;9 1;10 1'/>") +
                   "</h:gesture>"),
     20, "20000 in all"},
    {"100 open", "100 paw", 16, "'paw' is not drawn in this slot"},
    {"</h:gesture>", times(198, "<h:track bone='arm' ch='x' keys='0 1'/>"), 18, "more than 200 tracks"},
    {"</h:character>", times(78, "<h:gesture name='g%' same='Greet'/>"), 20, "more than 100 gestures"},
    // As far as the limits go; the last row would cost too much if it lay level.
    {"r='4'", "r='4' x='10000' y='-10000'|r='4' opacity='0'|r='4' opacity='1'|r='4' stroke-width='40'", 0,
     fine},
    {"r='4'",
     "r='4' d='url(#'|r='4' fill='none'|r='4' stroke='#0aF'|r='4' transform='translate(1) rotate(5)'", 0,
     fine},
    {"200 220", "400 50|50 400", 0, fine},
    {"ms='4000'", "ms='100'|ms='10000'", 0, fine},
    {"ms='1000'", "ms='30000'", 0, fine},
    {"1000 * lin", "1000 30000 back", 0, fine},
    {"<h:rest bone", times(62, "<h:bone id='b%' at='1 1'/>") + "<h:rest bone", 0, fine},
    {"</h:character>", times(77, "<h:gesture name='g%' same='Greet'/>") + "</h:character>", 0, fine},
    {"<g id='body'>", "<g id='body' transform='rotate(45)'>" + times(20, "<rect width='40' height='0.1'/>"),
     0, fine},
};

} // namespace

TEST(CharacterFile, NamesTheFirstDefectAndItsLine)
{
    EXPECT_EQ(verdict(""), "sample: the file is no UTF-8 text");
    EXPECT_EQ(verdict("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 9 9'/>"),
              "sample, line 1: there is no character in the file");
    for (const auto& [find, replacements, line, defect] : table) {
        const std::string place = defect == fine ? fine
                                  : line > 0     ? "sample, line " + std::to_string(line) + ": "
                                                 : "sample: ";
        for (const QByteArray& replacement : replacements.split('|')) {
            QByteArray bytes = sample::character();
            ASSERT_TRUE(bytes.contains(find)) << find;
            bytes.replace(bytes.indexOf(find), std::strlen(find), replacement);
            EXPECT_EQ(verdict(bytes).find(place), 0U) << find << " " << verdict(bytes);
            EXPECT_NE(verdict(bytes).find(defect), std::string::npos) << verdict(bytes);
        }
    }
}

TEST(Genie, MovesInAnotherWayForEveryNameAndNeverTooFast)
{
    const Rig rig = readCharacterFile(QString(GENIE)).rig;
    std::vector<Pose> seen{rig.rest};
    for (const Gesture& gesture : rig.gestures) {
        const Motion motion{&gesture, rig.rest};
        const Pose pose = poseAt(rig, motion, gesture.lengthMs * 0.45);
        EXPECT_EQ(std::ranges::find(seen, pose), seen.end()) << gesture.name.toStdString();
        seen.push_back(pose);
        EXPECT_TRUE(poseAt(rig, motion, gesture.lengthMs) == rig.rest) << gesture.name.toStdString();
        for (const QString hand : {"handL", "handR"}) {
            const auto i = std::ranges::find(rig.bones, hand, &Bone::id) - rig.bones.begin();
            QPointF last = rig.bones[i].pivot;
            for (double timeMs = 0; timeMs <= gesture.lengthMs; timeMs += 33) {
                const QPointF place =
                    boneTransforms(rig, poseAt(rig, motion, timeMs))[i].map(rig.bones[i].pivot);
                EXPECT_TRUE(timeMs == 0 || QLineF(last, place).length() < 60) << gesture.name.toStdString();
                last = place;
            }
        }
    }
}

#include "voice/mouths.h"
#include "voice/respelling.h"
#include "voice/synthesiser.h"

#include <gtest/gtest.h>

#include <fstream>

extern "C" {
#include <flite/flite.h>

extern const cst_phoneset us_phoneset;
}

using namespace voice;
using namespace std::chrono_literals;

namespace {

/// All of a speech in one line; a breath is two commas. Its first piece is a short one, which ends as it may.
std::string spoken(const QString& text)
{
    std::string line;
    for (const SpokenPiece& piece : spokenPieces(spokenWords(text))) {
        const std::string one = lineOf(piece);
        EXPECT_LE(one.size(), line.empty() ? 40 : 200);
        EXPECT_TRUE(!line.empty() || one.find(',', 10) >= one.size() - 1) << one;
        for (const SpokenWord& word : piece) {
            const std::string said = word.sounds.empty() ? word.text : "[" + word.sounds + "]";
            line += (line.empty() ? "" : " ") + said + std::string(markOf(word.pause));
        }
    }
    return line;
}

} // namespace

TEST(Speech, IsPutInWords)
{
    std::ifstream table(EAR);
    ASSERT_TRUE(table);
    for (std::string line; std::getline(table, line);) {
        const std::size_t arrow = line.find(" => ");
        if (arrow != std::string::npos && line[0] != '#')
            EXPECT_EQ(spoken(QString::fromStdString(line.substr(0, arrow))), line.substr(arrow + 4)) << line;
    }
    EXPECT_EQ(spoken(QString(3000, u'x')), std::string(40, 'x'));
    EXPECT_LT(spoken(QString(3000, u'7')).size(), 400);
}

TEST(Speech, OfNamesFollowsTheirRespelling)
{
    EXPECT_EQ(soundsOfRespelling("chandray'aan"), "ch ah0 n d r ah0 y aa1 n");
    EXPECT_EQ(soundsOfRespelling("'xkr-"), "");
    for (const auto& [word, respelling] : respellings())
        EXPECT_NE(soundsOfRespelling(respelling).find('1'), std::string::npos) << word;
    EXPECT_EQ(soundsOf("rajendra"), "r aa0 jh ey1 n d r aa0");
}

TEST(Speech, TellsHowMuchOfTheTextEachWordSays)
{
    std::string ends;
    for (const SpokenWord& word : spokenWords(" Who?,,is \"R\u00e9n\u00e9\",Rs. 1,000 H2O \u0928\u092e "))
        ends += word.text + '@' + std::to_string(word.end) + ' ';
    EXPECT_EQ(ends, "Who@7 is@9 Rene@17 one@26 thousand@26 rupees@26 H@28 two@29 O@30 zqnam@34 ");
}

TEST(Speech, HasNothingInItThatCouldWedgeTheVoice)
{
    for (char32_t character = 0; character <= 0x10ffff; character += character < 0x3000 ? 2 : 503) {
        const QString one = QString::fromUcs4(&character, 1);
        const std::string line = spoken(u'a' + one + one + "b 5" + one + u'7' + one + one + one);
        EXPECT_EQ(line.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ' ,.?[01]"),
                  std::string::npos)
            << static_cast<std::uint32_t>(character) << line;
    }
    // Each of them takes no time, unless it grows with the square of what there is.
    for (const char* part : {"1,", "1,11,", "A.", "-1 ", "X1", "$", "#", "1:", "A,", "..", "\u0928", "I ",
                             "AB ", "apples, pears and plums ", "word ", "Go. "})
        EXPECT_FALSE(spoken(QString::fromUtf8(part).repeated(9000)).find('#') != std::string::npos) << part;
}

TEST(Speech, BecomesMouths)
{
    // "pie show" with the times of the voice
    const std::vector<Segment> segments{{"pau", 40ms}, {"p", 120ms},  {"ay", 320ms},
                                        {"sh", 420ms}, {"ow", 620ms}, {"t", 650ms},
                                        {"d", 670ms},  {"v", 690ms},  {"pau", 900ms}};
    using enum mouth::Shape;
    const std::vector<MouthTime> mouths{{0ms, Rest}, {40ms, M},  {120ms, A}, {230ms, E},   {320ms, S},
                                        {420ms, O},  {530ms, U}, {670ms, F}, {690ms, Rest}};
    EXPECT_EQ(mouthsOf(segments), mouths); // no T: it would be gone at once
    for (int i = 0; i < us_phoneset.num_phones; ++i)
        EXPECT_EQ(phoneOf(us_phoneset.phonenames[i]).name, us_phoneset.phonenames[i]);
    EXPECT_EQ(phoneOf("xyz").name, "");
}

TEST(Speech, IsMadeWithTimesThatFitIt)
{
    const QString text = "The answer, in 1947, was 1,60,000 \u0928\u092e.";
    const SpokenPiece piece = spokenWords(text);
    (void)synthesise(piece, [] { return true; }); // is dropped
    const Speech speech = synthesise(piece, [] { return false; });
    EXPECT_NEAR(static_cast<double>(speech.times.length.count()), 4900, 1000);
    EXPECT_EQ(speech.samples.size(), samplesIn(speech.times.length));
    ASSERT_EQ(speech.times.words.size(), piece.size());
    EXPECT_EQ(speech.times.words.front().start, 40ms);
    EXPECT_TRUE(std::ranges::is_sorted(speech.times.words, std::ranges::less_equal(), &WordTime::start));
    EXPECT_GT(speech.times.words.back().start, speech.times.length / 2);
    EXPECT_EQ(speech.times.words.back().end, text.size());
    EXPECT_EQ(speech.times.mouths.back().shape, mouth::Shape::Rest);
}

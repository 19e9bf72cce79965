#include "voice/flite_synthesiser.h"
#include "voice/mouths.h"
#include "voice/spoken_pieces.h"

#include <QStringList>

#include <gtest/gtest.h>

extern "C" {
#include <flite/flite.h>

extern const cst_phoneset us_phoneset;
}

using namespace voice;
using namespace std::chrono_literals;

namespace {

/// All of a speech in one line.
std::string spoken(const QString& text)
{
    return SpokenPiece{spokenWords(text)}.line();
}

} // namespace

TEST(Speech, IsPutInWords)
{
    const std::pair<const char*, const char*> table[]{
        {"Your question is,,____ is big?,,the four options are,,A,Delhi,B,10,C,Rs. 1,60,000",
         "Your question is, blank is big? the four options are, A, Delhi, B, 10, C, one lack sixty "
         "thousand "
         "rupees"},
        {"1,00,00,000 or 12,50,000 or 1000 or 0", "one crore or twelve lack fifty thousand or 1000 or 0"},
        {"\u20b95, $1 & \u20ac2.50", "five rupees, one dollar and two point five zero euros"},
        {"50% of 42 km at -3", "50 percent of 42 kilometres at minus 3"},
        {" one lacks,sixty thousand .Now you win!!", "one lacks, sixty thousand. Now you win."},
        {"... is it... \u201cCaf\u00e9 \u0141\u00f3d\u017a\u201d?", "blank is it, Cafe Lodz?"},
        {"Dr. A. P. Abdul's 29th, 1930s; 1947-48 C-DAC", "Dr A P Abdul's 29th, 1930s, 1947 to 48 C DAC"},
        {"Mail team@ab.example, www.abc.example.", "Mail team at ab dot example, www dot abc dot example."},
        {"H\u2082O 3/4 5<6; a<b>c 007 123456", "H 2 O 3 by 4 5 less than 6, a b c zero zero seven one lack "
                                               "twenty three thousand four hundred fifty six"},
        {"\u0928\u092e\u0938\u094d\u0924\u0947 ?!,, \U0001F600 \x01\x7f", ""},
        {"", ""},
    };
    for (const auto& [given, lines] : table)
        EXPECT_EQ(spoken(QString::fromUtf8(given)), lines) << given;
    EXPECT_EQ(spoken(QString(3000, u'x')), std::string(40, 'x'));
    EXPECT_LT(spoken(QString(3000, u'7')).size(), 400);
}

TEST(Speech, TellsHowMuchOfTheTextEachWordSays)
{
    const QString text = " Who?,,is \"R\u00e9n\u00e9\",Rs. 1,000 \u0928\u092e ";
    std::string ends;
    for (const SpokenWord& word : spokenWords(text))
        ends += word.text + '=' + text.first(word.end).trimmed().toStdString() + '|';
    EXPECT_EQ(
        ends,
        "Who=Who?,,|is=Who?,,is|Rene=Who?,,is \"R\u00e9n\u00e9\",|one=Who?,,is \"R\u00e9n\u00e9\",Rs. 1,000|"
        "thousand=Who?,,is \"R\u00e9n\u00e9\",Rs. 1,000|rupees=Who?,,is \"R\u00e9n\u00e9\",Rs. 1,000 "
        "\u0928\u092e|");
}

TEST(Speech, HasNothingInItThatCouldWedgeTheVoice)
{
    for (char32_t character = 0; character <= 0x10ffff; character += character < 0x3000 ? 1 : 13) {
        const QString one = QString::fromUcs4(&character, 1);
        const std::string line = spoken(u'a' + one + one + "b 5" + one + u'7' + one + one + one);
        EXPECT_EQ(
            line.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789' ,.?|"),
            std::string::npos)
            << static_cast<std::uint32_t>(character) << line;
    }
}

TEST(Speech, IsCutIntoPiecesThatBeginWithAShortOne)
{
    const QString lists = QString("apples, pears and plums ").repeated(30);
    for (const QString& text : {lists, QString("word ").repeated(200), QString("Go. ").repeated(99)}) {
        const std::vector<SpokenPiece> pieces = spokenPieces(spokenWords(text));
        EXPECT_LE(pieces.front().line().size(), 40);
        std::size_t words = 0;
        for (const SpokenPiece& piece : pieces) {
            EXPECT_LE(piece.line().size(), 200);
            words += piece.words.size();
        }
        EXPECT_EQ(words, spokenWords(text).size());
    }
}

TEST(Speech, BecomesMouths)
{
    // "pie show" with the times of the voice
    const std::vector<Segment> segments{{"pau", 40ms}, {"p", 120ms},  {"ay", 320ms},
                                        {"sh", 420ms}, {"ow", 620ms}, {"t", 650ms},
                                        {"d", 670ms},  {"v", 690ms},  {"pau", 900ms}};
    using enum MouthShape;
    const std::vector<MouthTime> mouths{{0ms, Rest}, {40ms, M},  {120ms, A}, {230ms, E},   {320ms, S},
                                        {420ms, O},  {530ms, U}, {670ms, F}, {690ms, Rest}};
    EXPECT_EQ(mouthsOf(segments), mouths); // no T: it would be gone at once
    for (int i = 0; i < us_phoneset.num_phones; ++i)
        EXPECT_TRUE(shapesOf(us_phoneset.phonenames[i])) << us_phoneset.phonenames[i];
    EXPECT_FALSE(shapesOf("xyz"));
}

TEST(Speech, IsMadeWithTimesThatFitIt)
{
    const std::unique_ptr<Synthesiser> voice = makeFliteSynthesiser();
    const QString text = "The answer, in 1947, was 1,60,000.";
    const SpokenPiece piece{spokenWords(text)};
    for (const bool dropped : {false, true, false}) {
        const Speech speech = voice->synthesise(piece, [dropped] { return dropped; });
        if (dropped)
            continue;
        EXPECT_NEAR(static_cast<double>(speech.times.length.count()), 4500, 1000);
        EXPECT_EQ(static_cast<std::int64_t>(speech.samples.size()),
                  speech.times.length.count() * sampleRate / 1000);
        ASSERT_EQ(speech.times.words.size(), piece.words.size());
        EXPECT_EQ(speech.times.words.front().start, 40ms);
        EXPECT_TRUE(std::ranges::is_sorted(speech.times.words, std::ranges::less_equal(), &WordTime::start));
        EXPECT_GT(speech.times.words.back().start, speech.times.length / 2);
        EXPECT_EQ(speech.times.words.back().end, text.size());
        EXPECT_EQ(speech.times.mouths.back().shape, MouthShape::Rest);
    }
}

#include "voice/flite_synthesiser.h"
#include "voice/mouths.h"
#include "voice/respelling.h"
#include "voice/spoken_pieces.h"

#include <gtest/gtest.h>

extern "C" {
#include <flite/flite.h>

extern const cst_phoneset us_phoneset;
}

using namespace voice;
using namespace std::chrono_literals;

namespace {

/// All of a speech in one line; a breath is two commas.
std::string spoken(const QString& text)
{
    static TextReader reader;
    std::string line;
    for (const SpokenWord& word : reader.words(text)) {
        constexpr std::array marks = {"", ",", ",,", ".", "?"};
        line += (line.empty() ? "" : " ") + word.text + marks.at(static_cast<std::size_t>(word.pause));
    }
    return line;
}

} // namespace

TEST(Speech, IsPutInWords)
{
    const std::pair<const char*, const char*> table[]{
        // questions
        {"Your question is,,____ is big?,,the four options are,,A,Delhi,B,10,C,Rs. 1,60,000,D,A man",
         "Your question is,, blank is big? the four options are,, A, Delhi,, B, ten,, C, one lakh sixty "
         "thousand "
         "rupees,, D, a man"},
        {"Who,,the four options are,,A,II,B,C,C,D,D,",
         "Who,, the four options are,, A, two,, B, C,, C, D,, D,"},
        {"A> Delhi B> 10", "A, Delhi B, ten"},
        {"... is it... \u201cCaf\u00e9 \u0141\u00f3d\u017a\u201d?", "blank is it, Cafe Lodz?"},
        {" one lacks,sixty thousand .Now you win!!", "one lacks, sixty thousand. Now you win."},
        // numbers
        {"1,00,00,000 or 12,50,000 or 1000 or 0 or 105",
         "one crore or twelve lakh fifty thousand or one thousand or zero or one hundred and five"},
        {"007 123456 3.14 .5",
         "zero zero seven one lakh twenty three thousand four hundred and fifty six three point "
         "one four point five"},
        {"29th, 1st, 80s, 1930s", "twenty ninth, first, eighties, nineteen thirties"},
        {"1857, in 1900, 1900 men, 2005, 2010",
         "eighteen fifty seven, in nineteen hundred, one thousand nine hundred "
         "men, two thousand and five, twenty ten"},
        {"1947-48, 1869 - 1948, 10-15, -3, 5 - 3 = 2", "nineteen forty seven to forty eight, eighteen sixty "
                                                       "nine to nineteen forty eight, ten to fifteen, minus "
                                                       "three, five minus three equals two"},
        {"3/4 5<6; a<b>c 24x7 2*3",
         "three by four five less than six, a b c twenty four by seven two times three"},
        {"Elizabeth II, World War II. Can I? George V, I am",
         "Elizabeth the second, World War two. Can I? George "
         "the fifth, I am"},
        // money
        {"Rs. 5 crore, \u20b91.5 crore, $5 million, Re 1, Rs 500/-",
         "five crore rupees, one point five crore rupees, five million dollars, one rupee, five hundred "
         "rupees"},
        {"\u20b95, $1 & \u20ac2.50, \u00a30.01, \u20b9",
         "five rupees, one dollar and two euros fifty cents, zero "
         "pounds one penny, rupees"},
        // dates and times
        {"15/08/1947, 1947-08-15, 99/99/1947",
         "fifteenth of August nineteen forty seven, fifteenth of August nineteen "
         "forty seven, ninety nine by ninety nine by nineteen forty seven"},
        {"12:00, 5:05 p.m. or 9 AM, 16:9", "twelve o clock, five oh five P M or nine A M, sixteen to nine"},
        // units
        {"50% of 42 km, 1 km at 5 km/h, 6 sq km, 100\u00b0C, 5 ft",
         "fifty percent of forty two kilometres, one kilometre at five kilometres an hour, six square "
         "kilometres, one "
         "hundred degrees Celsius, five feet"},
        // abbreviations
        {"Dr. A. P. Abdul's C-DAC, No. 5, India vs. Oman, e.g. Mr. X etc.",
         "doctor A P Abdul's C D A C, number five, India versus Oman, for example mister X et cetera."},
        {"UPI, UPSC, NASA, CO2, H\u2082SO\u2084, G20, U.S.A. Which is NOT a PIN?",
         "U P I, U P S C, NASA, C O two, H two S O four, G twenty, U S A. Which is NOT a P I N?"},
        {"WHO IS THE PRESIDENT OF OMAN, WHO?", "WHO IS THE PRESIDENT OF OMAN, W H O?"},
        {"Mail team@ab.example, www.abc.example.", "Mail team at ab dot example, W W W dot abc dot example."},
        // nothing to say
        {"?!,, \U0001F600 \x01\x7f", ""},
        {"", ""},
    };
    for (const auto& [given, lines] : table)
        EXPECT_EQ(spoken(QString::fromUtf8(given)), lines) << given;
    EXPECT_EQ(spoken(QString(3000, u'x')), std::string(40, 'x'));
    EXPECT_LT(spoken(QString(3000, u'7')).size(), 400);
}

TEST(Speech, OfOtherScriptsIsGivenBySounds)
{
    const std::pair<const char*, const char*> table[]{
        {"\u092d\u093e\u0930\u0924 \u0915\u0940 \u0930\u093e\u091c\u0927\u093e\u0928\u0940", // Hindi
         "b aa1 r ah0 t|k iy1|r aa1 jh ah0 d aa0 n iy0|"},
        {"\u0924\u092e\u093f\u0932, \u0967\u0968\u0964", "t ah1 m ih0 l|twelve|"},
        {"\u09ad\u09be\u09b0\u09a4\u09c7\u09b0", "b aa1 r ah0 t ey0 r|"},                         // Bengali
        {"\u0ba4\u0bae\u0bbf\u0bb4\u0bcd\u0ba8\u0bbe\u0b9f\u0bc1", "t ah0 m ih0 l n aa1 t uh0|"}, // Tamil
        {"\u041c\u043e\u0441\u043a\u0432\u0430", "m ow1 s k v aa0|"},                             // Russian
    };
    TextReader reader;
    for (const auto& [given, sounds] : table) {
        std::string all;
        for (const SpokenWord& word : reader.words(QString::fromUtf8(given)))
            all += (word.sounds.empty() ? word.text : word.sounds) + "|";
        EXPECT_EQ(all, sounds);
    }
    EXPECT_EQ(soundsOfRespelling("chandray'aan"), "ch ah0 n d r ah0 y aa1 n");
    EXPECT_EQ(soundsOfRespelling("'xkr-"), "");
    for (const auto& [word, respelling] : respellings())
        EXPECT_NE(soundsOfRespelling(respelling).find('1'), std::string::npos) << word;
    EXPECT_EQ(soundsOf("rajendra"), "r aa0 jh ey1 n d r aa0");
}

TEST(Speech, TellsHowMuchOfTheTextEachWordSays)
{
    const QString text = " Who?,,is \"R\u00e9n\u00e9\",Rs. 1,000 \u0928\u092e ";
    std::string ends;
    for (const SpokenWord& word : TextReader().words(text))
        ends += word.text + '=' + text.first(word.end).trimmed().toStdString() + '|';
    EXPECT_EQ(
        ends,
        "Who=Who?,,|is=Who?,,is|Rene=Who?,,is \"R\u00e9n\u00e9\",|one=Who?,,is \"R\u00e9n\u00e9\",Rs. 1,000|"
        "thousand=Who?,,is \"R\u00e9n\u00e9\",Rs. 1,000|rupees=Who?,,is \"R\u00e9n\u00e9\",Rs. 1,000|"
        "zqnam=Who?,,is \"R\u00e9n\u00e9\",Rs. 1,000 \u0928\u092e|");
}

TEST(Speech, HasNothingInItThatCouldWedgeTheVoice)
{
    for (char32_t character = 0; character <= 0x10ffff; character += character < 0x3000 ? 2 : 503) {
        const QString one = QString::fromUcs4(&character, 1);
        const std::string line = spoken(u'a' + one + one + "b 5" + one + u'7' + one + one + one);
        EXPECT_EQ(line.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ' ,.?"),
                  std::string::npos)
            << static_cast<std::uint32_t>(character) << line;
    }
    for (const char* part :
         {"1,", "1,11,", "A.", "-1 ", "X1", "$", "#", "1:", "A,", "..", "\u0928", "I ", "AB "}) {
        const auto start = std::chrono::steady_clock::now();
        spoken(QString::fromUtf8(part).repeated(2000));
        EXPECT_LT(std::chrono::steady_clock::now() - start, 1s) << part;
    }
}

TEST(Speech, IsCutIntoPiecesThatBeginWithAShortOne)
{
    TextReader reader;
    const QString lists = QString("apples, pears and plums ").repeated(30);
    for (const QString& text : {lists, QString("word ").repeated(200), QString("Go. ").repeated(99)}) {
        const std::vector<SpokenPiece> pieces = spokenPieces(reader.words(text));
        EXPECT_LE(pieces.front().line().size(), 40);
        std::size_t words = 0;
        for (const SpokenPiece& piece : pieces) {
            EXPECT_LE(piece.line().size(), 200);
            words += piece.words.size();
        }
        EXPECT_EQ(words, reader.words(text).size());
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
    const QString text = "The answer, in 1947, was 1,60,000 \u0928\u092e.";
    const SpokenPiece piece{TextReader().words(text)};
    for (const bool dropped : {false, true, false}) {
        const Speech speech = voice->synthesise(piece, [dropped] { return dropped; });
        if (dropped)
            continue;
        EXPECT_NEAR(static_cast<double>(speech.times.length.count()), 4900, 1000);
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

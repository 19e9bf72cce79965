#include "bank/near.h"

#include "bank/text.h"

#include <QSet>

#include <algorithm>
#include <tuple>

namespace bank {
namespace {

constexpr double leastSimilarity = 0.6;

// A question is compared with so many behind it, so that many with one right answer do not make the work
// quadratic.
constexpr std::size_t window = 24;

bool isIgnored(const QString& word)
{
    static const QSet<QString> little = [] {
        const QString words = "a an the of in on at to for from by with and or as is are was were be been "
                              "being do does did has have had which what who whom whose when where how many "
                              "much this that these those it its there called named known following";
        const auto list = words.split(u' ');
        return QSet<QString>(list.begin(), list.end());
    }();
    return little.contains(word);
}

bool isAccent(QChar c)
{
    // Only those of the alphabets with upper and lower case; elsewhere marks make other words.
    return c.unicode() >= 0x300 && c.unicode() <= 0x36f;
}

bool isApostrophe(QChar c)
{
    return c == u'\'' || c == u'\u2019';
}

bool isSign(QChar c)
{
    return c.category() == QChar::Symbol_Math || QStringView(u"-*/^%").contains(c);
}

/// What is compared of a question.
struct Sketch
{
    std::size_t question = 0;
    std::size_t right = 0; ///< hash of the right answer
    QString numbers;       ///< and what stands between them in a calculation
    QString words;         ///< each with a blank before and behind it
    QString backwards;     ///< the same from its end, for the second order
    std::vector<std::uint64_t> trigrams;
};

void addWord(Sketch& sketch, QString& word)
{
    if (std::any_of(word.begin(), word.end(), [](QChar c) { return c.isNumber(); }))
        sketch.numbers += word + u' ';
    if (!word.isEmpty() && !isIgnored(word))
        sketch.words += word + u' ';
    word.clear();
}

void addWords(Sketch& sketch, const QString& text)
{
    const QString plain = text.normalized(QString::NormalizationForm_KD).toCaseFolded();
    // Elsewhere a dash joins or parts words.
    const bool isArithmetic = std::any_of(plain.begin(), plain.end(), [](QChar c) { return c.isNumber(); });
    sketch.words = " ";
    QString word;
    for (const QChar c : plain) {
        if (isAccent(c) || (isApostrophe(c) && !word.isEmpty()))
            continue;
        if (c.isLetterOrNumber() || c.isMark() || c.isSurrogate() ||
            (!word.isEmpty() && (c == u'+' || c == u'#'))) {
            word += c;
            continue;
        }
        addWord(sketch, word);
        if (isArithmetic && isSign(c))
            sketch.numbers += c;
    }
    addWord(sketch, word);
}

Sketch sketchOf(const Question& question, std::size_t index)
{
    Sketch sketch;
    sketch.question = index;
    sketch.right = qHash(folded(question.rightOption()));
    addWords(sketch, question.text);
    const QString& words = sketch.words;
    for (qsizetype at = 0; at + 2 < words.size(); ++at) {
        sketch.trigrams.push_back(std::uint64_t{words[at].unicode()} << 32U |
                                  std::uint64_t{words[at + 1].unicode()} << 16U | words[at + 2].unicode());
    }
    std::sort(sketch.trigrams.begin(), sketch.trigrams.end());
    sketch.trigrams.erase(std::unique(sketch.trigrams.begin(), sketch.trigrams.end()), sketch.trigrams.end());
    sketch.backwards = words;
    std::reverse(sketch.backwards.begin(), sketch.backwards.end());
    return sketch;
}

double similarity(const Sketch& a, const Sketch& b)
{
    std::size_t common = 0;
    for (auto x = a.trigrams.begin(), y = b.trigrams.begin();
         x != a.trigrams.end() && y != b.trigrams.end();) {
        if (*x == *y) {
            ++common;
            ++x;
            ++y;
        } else {
            *x < *y ? ++x : ++y;
        }
    }
    return static_cast<double>(common) / static_cast<double>(a.trigrams.size() + b.trigrams.size() - common);
}

/// Sets `earliest` of each question to the first one that it nearly repeats.
void compareNeighbours(const std::vector<Sketch>& sketches, const std::vector<Question>& questions,
                       std::vector<std::size_t>& earliest, Progress& progress)
{
    for (std::size_t i = 0; i < sketches.size(); ++i) {
        const Sketch& a = sketches[i];
        progress.step();
        for (std::size_t j = i + 1; j < sketches.size() && j <= i + window; ++j) {
            const Sketch& b = sketches[j];
            if (a.right != b.right || a.numbers != b.numbers)
                break;
            const auto [first, second] = std::minmax(a.question, b.question);
            if (first < earliest[second] && similarity(a, b) >= leastSimilarity &&
                folded(questions[first].text) != folded(questions[second].text))
                earliest[second] = first;
        }
    }
}

} // namespace

std::vector<Twins> nearRepeats(const std::vector<Question>& questions, Progress& progress)
{
    progress.begin("Comparing question", 3 * static_cast<long long>(questions.size()));
    std::vector<Sketch> sketches;
    for (std::size_t i = 0; i < questions.size(); ++i) {
        progress.step();
        if (questions[i].rightIndex() < 0)
            continue;
        Sketch sketch = sketchOf(questions[i], i);
        if (!sketch.trigrams.empty())
            sketches.push_back(std::move(sketch));
    }
    std::vector<std::size_t> earliest(questions.size(), questions.size());
    // One word that is another moves a question in one of the two orders at most.
    for (const auto order : {&Sketch::words, &Sketch::backwards}) {
        std::sort(sketches.begin(), sketches.end(), [order](const Sketch& a, const Sketch& b) {
            return std::tie(a.right, a.numbers, a.*order) < std::tie(b.right, b.numbers, b.*order);
        });
        compareNeighbours(sketches, questions, earliest, progress);
    }
    std::vector<Twins> twins;
    for (std::size_t i = 0; i < questions.size(); ++i)
        if (earliest[i] < i)
            twins.push_back({earliest[i], i});
    return twins;
}

void checkNearRepeats(const Bank& bank, Complaints& complaints, Progress& progress)
{
    for (const auto& [earlier, later] : nearRepeats(bank.questions, progress)) {
        const Question& first = bank.questions[earlier];
        complaints.add(
            bank.questions[later].place,
            QString("asks nearly the same as the question \"%1\" in %2").arg(first.text, first.place.text()));
    }
}

} // namespace bank

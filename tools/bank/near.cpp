#include "bank/near.h"

#include "bank/text.h"
#include "db/likeness.h"

#include <algorithm>
#include <tuple>

namespace bank {
namespace {

constexpr double leastSimilarity = 0.6;

// A question is compared with so many behind it, so that many with one right answer do not make the work
// quadratic.
constexpr std::size_t window = 24;

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

Sketch sketchOf(const Question& question, std::size_t index)
{
    Sketch sketch;
    sketch.question = index;
    sketch.right = qHash(db::folded(question.rightOption()));
    const db::QuestionWords asked(question.text);
    sketch.numbers = asked.numbers;
    sketch.words = ' ' + asked.words.join(' ') + ' ';
    const QString& words = sketch.words;
    for (qsizetype at = 0; at + 2 < words.size(); ++at)
        sketch.trigrams.push_back(std::uint64_t{words[at].unicode()} << 32U |
                                  std::uint64_t{words[at + 1].unicode()} << 16U | words[at + 2].unicode());
    std::ranges::sort(sketch.trigrams);
    sketch.trigrams.erase(std::unique(sketch.trigrams.begin(), sketch.trigrams.end()), sketch.trigrams.end());
    std::ranges::reverse_copy(words, std::back_inserter(sketch.backwards));
    return sketch;
}

double similarity(const Sketch& a, const Sketch& b)
{
    std::vector<std::uint64_t> common;
    std::ranges::set_intersection(a.trigrams, b.trigrams, std::back_inserter(common));
    return static_cast<double>(common.size()) /
           static_cast<double>(a.trigrams.size() + b.trigrams.size() - common.size());
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
                !db::isSame(questions[first].text, questions[second].text))
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
        std::ranges::sort(sketches, {},
                          [order](const Sketch& a) { return std::tie(a.right, a.numbers, a.*order); });
        compareNeighbours(sketches, questions, earliest, progress);
    }
    std::vector<Twins> twins;
    for (std::size_t i = 0; i < questions.size(); ++i)
        if (earliest[i] < i)
            twins.push_back({earliest[i], i});
    return twins;
}

void checkMix(Bank& bank, const Place& source, Complaints& complaints, Progress& progress)
{
    checkOptionSets(bank, complaints);
    for (const auto& [earlier, later] : nearRepeats(bank.questions, progress)) {
        const Question& first = bank.questions[earlier];
        complaints.add(bank.questions[later].place, QString("asks nearly the same as the question %1 in %2")
                                                        .arg(quoted(first.text), first.place.text()));
    }
    checkBalance(bank, source, complaints);
    removeRepeats(bank, complaints);
    progress.clear();
}

} // namespace bank

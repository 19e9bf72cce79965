#include "bank/near.h"

#include "bank/text.h"
#include "bank/words.h"

#include <QHash>

#include <algorithm>
#include <cstdint>
#include <functional>

namespace bank {
namespace {

using Hash = std::uint64_t;

// Questions that share a key are compared with so many behind them in the order of their words, so that many
// questions of one pattern do not make the work quadratic.
constexpr std::ptrdiff_t window = 24;

constexpr std::size_t fewestWords = 3; // of fewer words, one more makes another question

constexpr double similarity = 0.65;         ///< share of common words from which questions are near,
constexpr double similarityOfOptions = 0.5; ///< and when they have the same options

Hash mixed(Hash hash)
{
    hash ^= hash >> 31U;
    hash *= 0x9e3779b97f4a7c15U;
    return hash ^ (hash >> 29U);
}

Hash hashOf(const QString& text, Hash seed)
{
    return mixed(static_cast<Hash>(qHash(text, static_cast<std::size_t>(seed))) + seed);
}

/// What is compared of a question.
struct Sketch
{
    std::vector<QString> words;
    std::vector<Hash> sorted; ///< of the words
    Hash sum = 0;             ///< of the words, in whatever order
    Hash sequence = 0;        ///< of the words in order
    Hash numbers = 0;         ///< of the numeric words
    Hash right = 0;
    Hash options = 0; ///< of all of them, in whatever order
    QString same;     ///< folded text
};

Sketch sketchOf(const Question& question)
{
    Sketch sketch;
    sketch.words = meaningfulWords(question.text);
    for (const QString& word : sketch.words) {
        const Hash hash = hashOf(word, 1);
        sketch.sorted.push_back(hash);
        sketch.sum += hash;
        sketch.sequence = mixed(sketch.sequence + hash);
        sketch.numbers += isNumeric(word) ? hash : 0;
    }
    std::sort(sketch.sorted.begin(), sketch.sorted.end());
    for (const QString& option : question.options)
        sketch.options += hashOf(folded(option), 2);
    sketch.right = question.rightIndex() < 0 ? 0 : hashOf(folded(question.rightOption()), 3);
    sketch.same = folded(question.text);
    return sketch;
}

/// A key of a question. Those of the same key are candidates; `word` says in which order they stand there,
/// and what the question has besides what the key stands for.
struct Entry
{
    Hash key;
    int question;
    QString word;

    bool operator<(const Entry& other) const
    {
        return key != other.key     ? key < other.key
               : word != other.word ? word < other.word
                                    : question < other.question;
    }
};

class NearRepeats
{
public:
    NearRepeats(const Bank& bank, Progress& progress)
        : bank_(bank), progress_(progress), twins_(bank.questions.size(), -1)
    {
        progress_.begin("Comparing question", 5 * static_cast<long long>(bank.questions.size()));
        for (const Question& question : bank.questions) {
            sketches_.push_back(sketchOf(question));
            progress_.step();
        }
    }

    /// For every question the earlier one that it nearly repeats, or -1.
    const std::vector<int>& find()
    {
        compareAll([](const Sketch& s, auto add) { add(s.sequence, QString()); },
                   [this](const Entry& a, const Entry& b) {
                       return sketch(a).right == sketch(b).right || sketch(a).words.size() >= fewestWords;
                   });
        compareAll([](const Sketch& s, auto add) { addWithoutOneWord(s, add); },
                   [this](const Entry& a, const Entry& b) { return differInOneWord(a, b); });
        compareAll([](const Sketch& s, auto add) { add(s.right ^ s.options, firstWordOf(s)); },
                   [this](const Entry& a, const Entry& b) { return areSimilar(a, b, similarityOfOptions); });
        compareAll([](const Sketch& s, auto add) { add(s.right, firstWordOf(s)); },
                   [this](const Entry& a, const Entry& b) { return areSimilar(a, b, similarity); });
        return twins_;
    }

private:
    using Add = std::function<void(Hash, QString)>;

    static QString firstWordOf(const Sketch& sketch)
    {
        return *std::min_element(sketch.words.begin(), sketch.words.end());
    }

    static void addWithoutOneWord(const Sketch& sketch, const Add& add)
    {
        add(mixed(sketch.sum) ^ sketch.right, {});
        for (const QString& word : sketch.words)
            add(mixed(sketch.sum - hashOf(word, 1)) ^ sketch.right, word);
    }

    [[nodiscard]] const Sketch& sketch(const Entry& entry) const
    {
        return sketches_[static_cast<std::size_t>(entry.question)];
    }

    template <class KeysOf, class IsNear>
    void compareAll(KeysOf keysOf, IsNear isNear)
    {
        std::vector<Entry> entries;
        for (int i = 0; i < static_cast<int>(sketches_.size()); ++i) {
            const Sketch& s = sketches_[static_cast<std::size_t>(i)];
            if (!s.words.empty() && s.right != 0)
                keysOf(s, [&](Hash key, const QString& word) { entries.push_back({key, i, word}); });
        }
        std::sort(entries.begin(), entries.end());
        for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
            const auto end = entries.end() - entry > window ? entry + window + 1 : entries.end();
            for (auto other = entry + 1; other != end && other->key == entry->key; ++other)
                if (entry->question != other->question && isNear(*entry, *other))
                    note(entry->question, other->question);
        }
        progress_.step(static_cast<long long>(sketches_.size()));
    }

    void note(int a, int b)
    {
        int& twin = twins_[static_cast<std::size_t>(std::max(a, b))];
        const bool equal =
            sketches_[static_cast<std::size_t>(a)].same == sketches_[static_cast<std::size_t>(b)].same;
        if (twin < 0 && !equal)
            twin = std::min(a, b);
    }

    [[nodiscard]] bool differInOneWord(const Entry& a, const Entry& b) const
    {
        if (a.word.isEmpty() || b.word.isEmpty()) {
            return std::min(sketch(a).words.size(), sketch(b).words.size()) >= fewestWords &&
                   sketch(a).numbers == sketch(b).numbers;
        }
        return sketch(a).words.size() >= fewestWords && (a.word == b.word || alike(a.word, b.word));
    }

    [[nodiscard]] bool areSimilar(const Entry& a, const Entry& b, double wanted) const
    {
        const auto& x = sketch(a).sorted;
        const auto& y = sketch(b).sorted;
        if (sketch(a).numbers != sketch(b).numbers || sketch(a).right != sketch(b).right)
            return false;
        std::size_t common = 0;
        for (auto p = x.begin(), q = y.begin(); p != x.end() && q != y.end();) {
            if (*p == *q) {
                ++common;
                ++p;
                ++q;
            } else {
                *p < *q ? ++p : ++q;
            }
        }
        const auto all = static_cast<double>(x.size() + y.size() - common);
        return common >= 2 && static_cast<double>(common) >= wanted * all;
    }

    const Bank& bank_;
    Progress& progress_;
    std::vector<Sketch> sketches_;
    std::vector<int> twins_;
};

} // namespace

void checkNearRepeats(const Bank& bank, Complaints& complaints, Progress& progress)
{
    const auto twins = NearRepeats(bank, progress).find();
    for (std::size_t i = 0; i < twins.size(); ++i) {
        if (twins[i] >= 0) {
            const Question& earlier = bank.questions[static_cast<std::size_t>(twins[i])];
            complaints.add(bank.questions[i].place,
                           QString("asks nearly the same as the question \"%1\" in %2")
                               .arg(earlier.text, earlier.place.text()));
        }
    }
}

} // namespace bank

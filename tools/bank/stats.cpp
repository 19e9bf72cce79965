#include "bank/stats.h"

#include "bank/text.h"

#include <QHash>

#include <algorithm>
#include <map>
#include <numeric>
#include <optional>
#include <ostream>

namespace bank {
namespace {

struct Count
{
    qint64 questions = 0;
    qint64 played = 0; ///< questions that were chosen from at least once
    qint64 plays = 0;
    qint64 right = 0;

    Count& operator+=(const Count& other)
    {
        questions += other.questions;
        played += other.played;
        plays += other.plays;
        right += other.right;
        return *this;
    }
};

/// What the tallies tell; nothing of plays where they cannot be, as in files that did not begin them at 1.
Count countOf(const Question& question)
{
    Count count{1};
    const auto& tallies = question.tallies;
    const bool tell = question.rightIndex() >= 0 &&
                      std::all_of(tallies.begin(), tallies.end(), [](qint64 tally) { return tally >= 1; });
    if (tell) {
        count.plays = std::accumulate(tallies.begin(), tallies.end(), qint64{0}) - 4;
        count.right = tallies.at(static_cast<std::size_t>(question.rightIndex())) - 1;
        count.played = count.plays > 0 ? 1 : 0;
    }
    return count;
}

QString rightShare(const Count& count)
{
    return count.plays == 0
               ? "-"
               : QString("%1 %").arg(
                     100.0 * static_cast<double>(count.right) / static_cast<double>(count.plays), 0, 'f', 0);
}

void printRow(std::ostream& out, const QString& name, const QStringList& cells)
{
    QString row = name.leftJustified(20);
    for (const QString& cell : cells)
        row += cell.rightJustified(11);
    out << row.toStdString() << '\n';
}

void printCount(std::ostream& out, const QString& name, const Count& count)
{
    printRow(out, name,
             {QString::number(count.questions), QString::number(count.played), QString::number(count.plays),
              rightShare(count)});
}

void printPlayed(const std::vector<Question>& questions, std::ostream& out)
{
    bool first = true;
    for (const Question& question : questions) {
        const Count count = countOf(question);
        if (count.plays == 0)
            continue;
        if (std::exchange(first, false))
            out << "\n  number level  plays  right  question\n";
        out << QString("%1 %2 %3 %4  %5\n")
                   .arg(question.place.id, 8)
                   .arg(question.level, 5)
                   .arg(count.plays, 6)
                   .arg(rightShare(count), 6)
                   .arg(question.text)
                   .toStdString();
    }
}

} // namespace

void printStats(const std::vector<Question>& questions, const std::vector<Question>& topics,
                std::ostream& out)
{
    QHash<QString, QString> topicOf;
    for (const Question& question : topics)
        topicOf.insert(folded(question.text), question.topic);
    struct Level
    {
        Count all;
        std::map<QString, Count> byTopic;
    };
    std::map<QString, Level> levels;
    Count all;
    for (const Question& question : questions) {
        const Count count = countOf(question);
        Level& level = levels[question.level];
        all += count;
        level.all += count;
        if (!topics.empty())
            level.byTopic[topicOf.value(folded(question.text), "(unknown)")] += count;
    }
    printRow(out, {}, {"questions", "played", "plays", "right"});
    for (const auto& [name, level] : levels) {
        printCount(out, "level " + name, level.all);
        for (const auto& [topic, count] : level.byTopic)
            printCount(out, "  " + topic, count);
    }
    printCount(out, "all", all);
    printPlayed(questions, out);
}

} // namespace bank

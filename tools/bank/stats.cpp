#include "bank/actions.h"

#include "bank/rules.h"
#include "bank/source.h"
#include "bank/text.h"
#include "db/likeness.h"

#include <QHash>

#include <algorithm>
#include <map>
#include <numeric>
#include <ostream>

namespace bank {
namespace {

struct Count
{
    qint64 questions = 0;
    qint64 played = 0; ///< questions that were chosen from at least once
    qint64 plays = 0;
    qint64 right = 0;

    void add(const Count& other)
    {
        questions += other.questions;
        played += other.played;
        plays += other.plays;
        right += other.right;
    }

    [[nodiscard]] double share() const { return static_cast<double>(right) / static_cast<double>(plays); }
    [[nodiscard]] QString percent() const
    {
        return plays == 0 ? "-" : QString("%1 %").arg(100 * share(), 0, 'f', 0);
    }
};

/// What the tallies tell; nothing of plays where they cannot be, as in files that did not begin them at 1.
Count countOf(const Question& question)
{
    const auto& tallies = question.tallies;
    if (question.rightIndex() < 0 ||
        !std::ranges::all_of(tallies, [](qint64 tally) { return tally >= 1 && isCount(tally); }))
        return {1};
    const qint64 plays = std::accumulate(tallies.begin(), tallies.end(), qint64{-4});
    return {1, plays > 0 ? 1 : 0, plays, tallies.at(static_cast<std::size_t>(question.rightIndex())) - 1};
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
              count.percent()});
}

/// How many questions each level holds, also by topic where `topics` has a question of the same text, how
/// often they were played and answered right.
void printLevels(const std::vector<Question>& questions, const std::vector<Question>& topics,
                 std::ostream& out)
{
    QHash<QString, QString> topicOf;
    for (const Question& question : topics)
        topicOf.insert(db::folded(question.text), question.topic);
    struct Level
    {
        Count all;
        std::map<QString, Count> byTopic;
    };
    std::map<QString, Level> byLevel;
    Count all;
    for (const Question& question : questions) {
        const Count count = countOf(question);
        Level& level = byLevel[question.level];
        all.add(count);
        level.all.add(count);
        if (!topics.empty())
            level.byTopic[topicOf.value(db::folded(question.text), "(unknown)")].add(count);
    }
    printRow(out, {}, {"questions", "played", "plays", "right"});
    for (const auto& [name, level] : byLevel) {
        printCount(out, "level " + shown(name), level.all);
        for (const auto& [topic, count] : level.byTopic)
            printCount(out, "  " + shown(topic), count);
    }
    printCount(out, "all", all);
}

using Played = std::vector<std::pair<const Question*, Count>>;

/// The questions that were played.
Played playedOf(const std::vector<Question>& questions, StatsOrder order)
{
    Played played;
    for (const Question& question : questions)
        if (const Count count = countOf(question); count.plays > 0)
            played.emplace_back(&question, count);
    // Of equal shares the one that was seen more often goes first.
    const int sign = order == StatsOrder::HardestFirst ? 1 : -1;
    if (order != StatsOrder::Number)
        std::ranges::stable_sort(played, {}, [sign](const auto& one) {
            return std::pair(sign * one.second.share(), -one.second.plays);
        });
    return played;
}

void printPlayed(const Played& played, std::ostream& out)
{
    if (!played.empty())
        out << "\n  number level  plays  right  question\n";
    for (const auto& [question, count] : played)
        out << QString("%1 %2 %3 %4  %5\n")
                   .arg(question->place.id, 8)
                   .arg(shown(question->level), 5)
                   .arg(count.plays, 6)
                   .arg(count.percent(), 6)
                   .arg(shown(question->text))
                   .toStdString();
}

void printAsCsv(const Played& played, std::ostream& out)
{
    out << "number,level,plays,right,question\r\n";
    for (const auto& [question, count] : played)
        out << question->place.id << ',' << csvCell(question->level).toStdString() << ',' << count.plays
            << ',' << count.right << ',' << csvCell(question->text).toStdString() << "\r\n";
}

} // namespace

void actions::stats(Command& command)
{
    Intake topics = command.intake(Texts::Played);
    if (!command.other.empty()) {
        readSource(command.other, command.format, topics);
        topics.complaints.throwIfAny();
    }
    if (command.reset) {
        Store store = command.store(db::schema::questions);
        store.changing([&] { store.resetTallies(); });
        command.out << "The tallies of all questions are 1 again, as before the first game.\n";
        return;
    }
    const auto questions = command.questions();
    const Played played = playedOf(questions, command.order);
    if (command.asCsv)
        return printAsCsv(played, command.out);
    printLevels(questions, topics.bank.questions, command.out);
    printPlayed(played, command.out);
}

} // namespace bank

#include "bank/import.h"

#include "bank/near.h"
#include "bank/text.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <random>

namespace bank {
namespace {

/// Leaves the transaction of a dry run, which undoes it.
struct DryRun
{
};

void shuffle(Question& question)
{
    static std::mt19937 random{std::random_device()()};
    if (hasNumericOptions(question) || question.rightIndex() < 0)
        return;
    const QString right = question.rightOption();
    std::array<std::size_t, 4> order = {0, 1, 2, 3};
    std::shuffle(order.begin(), order.end(), random);
    const Question former = question;
    for (std::size_t i = 0; i < order.size(); ++i) {
        question.options.at(i) = former.options.at(order.at(i));
        question.tallies.at(i) = former.tallies.at(order.at(i));
        if (static_cast<int>(order.at(i)) == former.rightIndex())
            question.right = nameOf(optionFields.at(i));
    }
}

/// The tallies of a question whose options have changed: they go where the text of their option goes, and
/// stay where it has gone.
std::array<qint64, 4> carriedTallies(const Question& former, const Question& question)
{
    std::array<qint64, 4> tallies = former.tallies;
    for (std::size_t i = 0; i < tallies.size(); ++i) {
        const auto* const found = std::ranges::find(former.options, question.options.at(i));
        const bool stays =
            std::ranges::find(question.options, former.options.at(i)) == question.options.end();
        if (found != former.options.end())
            tallies.at(i) = former.tallies.at(static_cast<std::size_t>(found - former.options.begin()));
        else if (!stays)
            tallies.at(i) = 1;
    }
    return tallies;
}

/// Names of the fields in which two questions differ.
QStringList differences(const Question& a, const Question& b)
{
    QStringList names;
    for (const Field field : playedFields)
        if (a.at(field) != b.at(field))
            names << nameOf(field);
    return names;
}

class Import
{
public:
    Import(Store& store, Intake& intake, const ImportOptions& options, Progress& progress)
        : store_(store), intake_(intake), options_(options), progress_(progress)
    {
    }

    Imported run()
    {
        result_ = {};
        std::vector<Question> added;
        if (options_.replace) {
            store_.removeQuestions();
            added = intake_.bank.questions;
        } else {
            added = sortOut(store_.questions());
        }
        for (Question& question : added)
            if (options_.shuffle)
                shuffle(question);
        store_.addQuestions(added);
        result_.added = added.size();
        if (!intake_.bank.prompts.empty())
            result_.prompts = importPrompts(store_, intake_.bank.prompts, options_.replace);
        if (options_.dryRun)
            throw DryRun();
        return result_;
    }

    [[nodiscard]] const Imported& result() const { return result_; }

private:
    /// The questions that the database does not have. Those that it has are changed, skipped or complained
    /// about.
    std::vector<Question> sortOut(const std::vector<Question>& known)
    {
        QHash<QString, const Question*> texts;
        for (const Question& question : known)
            texts.insert(folded(question.text), &question);
        std::vector<Question> unknown;
        for (const Question& question : intake_.bank.questions) {
            const auto* const same = texts.value(folded(question.text));
            if (!same)
                unknown.push_back(question);
            else if (options_.update)
                update(*same, question);
            else if (options_.skipKnown)
                ++result_.known;
            else
                intake_.complaints.add(question.place,
                                       QString("the same question stands in %1").arg(same->place.text()));
        }
        if (options_.skipUnfit)
            intake_.complaints.leaveOut();
        intake_.complaints.throwIfAny();
        noteNearRepeats(known, unknown);
        return unknown;
    }

    void update(const Question& former, Question question)
    {
        question.place = former.place;
        // Their order has come about by chance.
        if (options_.shuffle && former.rightIndex() >= 0 && question.rightOption() == former.rightOption() &&
            std::ranges::is_permutation(question.options, former.options)) {
            question.options = former.options;
            question.right = former.right;
        }
        question.tallies = carriedTallies(former, question);
        const QStringList changed = differences(former, question);
        if (changed.empty()) {
            ++result_.known;
            return;
        }
        ++result_.changed;
        result_.notes << QString("%1: %2 changed").arg(former.place.text(), changed.join(", "));
        store_.changeQuestion(question);
    }

    /// Only questions with a right answer that both have can ask the same.
    void noteNearRepeats(const std::vector<Question>& known, const std::vector<Question>& added)
    {
        QSet<QString> answers;
        std::vector<Question> candidates;
        for (const Question& question : added)
            answers.insert(folded(question.rightOption()));
        for (const Question& question : known)
            if (question.rightIndex() >= 0 && answers.contains(folded(question.rightOption())))
                candidates.push_back(question);
        if (candidates.empty())
            return;
        const std::size_t ofBank = candidates.size();
        candidates.insert(candidates.end(), added.begin(), added.end());
        for (const auto& [earlier, later] : nearRepeats(candidates, progress_))
            if (earlier < ofBank && later >= ofBank)
                result_.notes << candidates[later].place.text() + ": warning: asks nearly the same as " +
                                     candidates[earlier].place.text();
    }

    Store& store_;
    Intake& intake_;
    const ImportOptions& options_;
    Progress& progress_;
    Imported result_;
};

} // namespace

Imported importQuestions(Store& store, Intake& intake, const ImportOptions& options, Progress& progress)
{
    if (options.skipUnfit)
        removeRepeats(intake.bank, intake.complaints);
    else
        checkRepeats(intake.bank, intake.complaints);
    if (options.skipUnfit)
        intake.complaints.leaveOut();
    intake.complaints.throwIfAny();
    for (const auto& table : db::schema::tables)
        store.require(table);
    Import import(store, intake, options, progress);
    try {
        store.changing([&] { import.run(); });
    } catch (const DryRun&) {
        // Nothing was kept.
    }
    return import.result();
}

std::size_t importPrompts(Store& store, const std::vector<Prompt>& prompts, bool replace)
{
    QSet<QString> known;
    if (replace)
        store.removePrompts();
    else
        for (const Prompt& prompt : store.prompts())
            known.insert(folded(prompt.message));
    std::vector<Prompt> unknown;
    std::ranges::copy_if(prompts, std::back_inserter(unknown),
                         [&](const Prompt& prompt) { return !known.contains(folded(prompt.message)); });
    store.addPrompts(unknown);
    return unknown.size();
}

} // namespace bank

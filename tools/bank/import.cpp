#include "bank/import.h"

#include "bank/text.h"

#include <QHash>

#include <algorithm>

namespace bank {
namespace {

/// Leaves the transaction of a dry run, which undoes it.
struct DryRun
{
};

void complainOfKnown(const std::vector<Question>& known, Intake& intake)
{
    QHash<QString, const Question*> texts;
    for (const Question& question : known)
        texts.insert(folded(question.text), &question);
    for (const Question& question : intake.bank.questions) {
        if (const auto* const same = texts.value(folded(question.text))) {
            intake.complaints.add(question.place,
                                  QString("the same question stands in %1").arg(same->place.text()));
        }
    }
}

std::vector<Prompt> newPrompts(const std::vector<Prompt>& prompts, const std::vector<Prompt>& known)
{
    std::vector<Prompt> unknown;
    std::copy_if(prompts.begin(), prompts.end(), std::back_inserter(unknown), [&](const Prompt& prompt) {
        return std::none_of(known.begin(), known.end(), [&](const Prompt& other) {
            return folded(other.message) == folded(prompt.message);
        });
    });
    return unknown;
}

std::size_t write(Store& store, Intake& intake, const ImportOptions& options, Progress& progress)
{
    const Bank& bank = intake.bank;
    if (options.replace) {
        store.removeQuestions();
        if (!bank.prompts.empty())
            store.removePrompts();
    } else {
        complainOfKnown(store.questions(progress), intake);
        intake.complaints.throwIfAny();
    }
    store.addQuestions(bank.questions, progress);
    const auto prompts = bank.prompts.empty() ? bank.prompts : newPrompts(bank.prompts, store.prompts());
    store.addPrompts(prompts);
    return prompts.size();
}

} // namespace

std::size_t importQuestions(Store& store, Intake& intake, const ImportOptions& options, Progress& progress)
{
    checkRepeats(intake.bank, intake.complaints);
    intake.complaints.throwIfAny();
    for (const char* table : tables)
        store.require(table);
    std::size_t prompts = 0;
    try {
        store.changing([&] {
            prompts = write(store, intake, options, progress);
            if (options.dryRun)
                throw DryRun();
        });
    } catch (const DryRun&) {
        return prompts;
    }
    return prompts;
}

} // namespace bank

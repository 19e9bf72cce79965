#include "bank/actions.h"

#include "bank/near.h"
#include "bank/source.h"
#include "bank/text.h"
#include "db/likeness.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <ostream>
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
    question.key = question.rightOption();
    for (std::size_t i = question.options.size() - 1; i > 0; --i) {
        const auto other = std::uniform_int_distribution<std::size_t>(0, i)(random);
        std::swap(question.options.at(i), question.options.at(other));
        std::swap(question.tallies.at(i), question.tallies.at(other));
    }
    question.findRight();
}

/// The tallies of a question whose options have changed: they go where the text of their option goes, and
/// stay where it has gone.
std::array<qint64, 4> carriedTallies(const Question& former, const Question& question)
{
    std::array<qint64, 4> tallies = former.tallies;
    for (std::size_t i = 0; i < tallies.size(); ++i) {
        const auto* const found = std::ranges::find(former.options, question.options.at(i));
        if (found != former.options.end())
            tallies.at(i) = former.tallies.at(static_cast<std::size_t>(found - former.options.begin()));
        else if (std::ranges::count(question.options, former.options.at(i)) > 0)
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

/// Puts the questions and prompts of an intake into the database, all or none. Prompts that it has already
/// are left out.
class Import
{
public:
    Import(Command& command, Intake& intake)
        : command_(command), intake_(intake), store_(command.file, command.progress)
    {
    }

    /// Throws Failure, or db::Failure, and changes no byte, if any question breaks a rule or, unless the
    /// command says what then, stands in the database already.
    void run()
    {
        removeRepeats(intake_.bank, intake_.complaints);
        requireSound();
        for (const auto& table : db::schema::tables)
            store_.require(table);
        try {
            store_.changing([&] { write(); });
        } catch (const DryRun&) {
            // Nothing was kept.
        }
    }

    void tell() const
    {
        command_.tell(intake_.complaints.warnings(), command_.err);
        command_.tell(notes_, command_.err);
        const bool dry = command_.dryRun;
        command_.out << command_.file << (dry ? " would take" : " has taken") << " in "
                     << counted(added_, "question")
                     << (prompts_ > 0 ? " and " + counted(prompts_, "prompt") : "")
                     << (command_.replace ? " in place of those it had" : "") << ".\n";
        if (command_.update)
            command_.out << counted(changed_, "question")
                         << (dry             ? " would be"
                             : changed_ == 1 ? " was"
                                             : " were")
                         << " changed.\n";
        if (known_ > 0)
            command_.out << counted(known_, "question") << " that it has stay as they are.\n";
    }

    /// Adds those that are not there, or all in place of those that are. Returns how many.
    static std::size_t addPrompts(Store& store, const std::vector<Prompt>& prompts, bool replace)
    {
        if (replace)
            store.clear(db::schema::locking);
        QSet<QString> known;
        for (const Prompt& prompt : store.prompts())
            known.insert(db::folded(prompt.message));
        std::size_t count = 0;
        for (const Prompt& prompt : prompts) {
            if (known.contains(db::folded(prompt.message)))
                continue;
            store.add(db::schema::locking, {prompt.message});
            ++count;
        }
        return count;
    }

private:
    void requireSound()
    {
        if (command_.skipUnfit)
            intake_.complaints.leaveOut();
        intake_.complaints.throwIfAny();
    }

    void write()
    {
        notes_.clear();
        changed_ = known_ = 0;
        if (command_.replace)
            store_.clear(db::schema::questions);
        const auto known = store_.questions();
        std::vector<Question> sorted;
        if (!known.empty() || command_.shuffle)
            sorted = sortOut(known);
        if (command_.shuffle)
            std::ranges::for_each(sorted, shuffle);
        // A large file is not copied where nothing is to be sorted out.
        const auto& added = known.empty() && !command_.shuffle ? intake_.bank.questions : sorted;
        store_.addQuestions(added);
        added_ = added.size();
        if (!intake_.bank.prompts.empty())
            prompts_ = addPrompts(store_, intake_.bank.prompts, command_.replace);
        if (command_.dryRun)
            throw DryRun();
    }

    /// The questions that the database does not have. Those that it has are changed, skipped or complained
    /// about.
    std::vector<Question> sortOut(const std::vector<Question>& known)
    {
        QHash<QString, const Question*> texts;
        for (const Question& question : known)
            texts.insert(db::folded(question.text), &question);
        std::vector<Question> unknown;
        for (const Question& question : intake_.bank.questions) {
            const auto* const same = texts.value(db::folded(question.text));
            if (!same)
                unknown.push_back(question);
            else if (command_.update)
                update(*same, question);
            else if (command_.skipKnown)
                ++known_;
            else
                intake_.complaints.add(question.place,
                                       QString("the same question stands in %1").arg(same->place.text()));
        }
        requireSound();
        noteNearRepeats(known, unknown);
        return unknown;
    }

    void update(const Question& former, Question question)
    {
        question.place = former.place;
        // Their order has come about by chance.
        if (command_.shuffle && former.rightIndex() >= 0 && question.rightOption() == former.rightOption() &&
            std::ranges::is_permutation(question.options, former.options)) {
            question.options = former.options;
            question.right = former.right;
        }
        question.tallies = carriedTallies(former, question);
        const QStringList changed = differences(former, question);
        if (changed.empty()) {
            ++known_;
            return;
        }
        ++changed_;
        notes_ << QString("%1: %2 changed").arg(former.place.text(), changed.join(", "));
        store_.changeQuestion(question);
    }

    /// Only questions with a right answer that both have can ask the same.
    void noteNearRepeats(const std::vector<Question>& known, const std::vector<Question>& added)
    {
        QSet<QString> answers;
        std::vector<Question> candidates;
        for (const Question& question : added)
            answers.insert(db::folded(question.rightOption()));
        for (const Question& question : known)
            if (question.rightIndex() >= 0 && answers.contains(db::folded(question.rightOption())))
                candidates.push_back(question);
        if (candidates.empty())
            return;
        const std::size_t ofBank = candidates.size();
        candidates.insert(candidates.end(), added.begin(), added.end());
        for (const auto& [earlier, later] : nearRepeats(candidates, command_.progress))
            if (earlier < ofBank && later >= ofBank)
                notes_ << candidates[later].place.text() + ": warning: asks nearly the same as " +
                              candidates[earlier].place.text();
    }

    Command& command_;
    Intake& intake_;
    Store store_;
    std::size_t added_ = 0;
    std::size_t changed_ = 0;
    std::size_t known_ = 0; ///< left as they are
    std::size_t prompts_ = 0;
    QStringList notes_; ///< what was changed, and what asks nearly the same as a question of the database
};

} // namespace

namespace actions {

void importSource(Command& command)
{
    Intake intake = command.intake(Texts::Played);
    readSource(command.other, command.format, intake);
    if (std::ranges::any_of(intake.bank.questions, &QString::isEmpty, &Question::level))
        intake.complaints.add({nameOf(command.other)}, "--level gives a level to questions without");
    Import import(command, intake);
    import.run();
    import.tell();
}

void importPrompts(Command& command)
{
    Intake intake = command.intake(Texts::Played);
    readPrompts(readText(command.other, intake.complaints), intake);
    if (intake.complaints.empty() && intake.bank.prompts.empty())
        intake.complaints.add({nameOf(command.other)}, "there are no prompts in it");
    removeRepeats(intake.bank, intake.complaints);
    intake.complaints.throwIfAny();
    Store store = command.store(db::schema::locking);
    std::size_t count = 0;
    store.changing([&] { count = Import::addPrompts(store, intake.bank.prompts, command.replace); });
    command.out << command.file << " has taken in " << counted(count, "prompt")
                << (command.replace ? " in place of those it had" : "") << ".\n";
}

} // namespace actions
} // namespace bank

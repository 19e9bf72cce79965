#pragma once

#include "bank/progress.h"
#include "bank/question.h"
#include "db/handle.h"

#include <filesystem>

namespace bank {

/// An account of the administration console.
struct Account
{
    std::string name;
    std::string password;
};

/// Inserts questions, one after another, within a transaction of the caller.
class Insertion
{
public:
    /// `statement` is one of insertQuestion. The rows are numbered from `firstId` on, or by the engine if it
    /// is 0.
    explicit Insertion(SQLite::Statement statement, qint64 firstId = 0);

    void add(const Question& question);

private:
    SQLite::Statement statement_;
    qint64 id_;
};

namespace sql {
extern const char* const insertQuestion;
extern const char* const insertPrompt;  ///< message ->
extern const char* const insertAccount; ///< name, password ->
} // namespace sql

/// A quiz database that exists. Every call may throw db::Failure, the work that is handed in Failure too.
class Store
{
public:
    explicit Store(const std::filesystem::path& file);

    /// Throws db::Failure unless `table`, one of the three, has all of its fields.
    void require(const char* table);

    /// Throws Failure if the file is damaged.
    void checkIntegrity();

    /// All questions in the order of their numbers. A level that the game would not find is given with the
    /// reason, a right answer that is none of the options leaves `right` empty.
    [[nodiscard]] std::vector<Question> questions(Progress& progress);
    [[nodiscard]] std::vector<Prompt> prompts();
    [[nodiscard]] std::vector<Account> accounts();

    /// What follows is called within the work that is handed to changing().
    void addQuestions(const std::vector<Question>& questions, Progress& progress);
    void addPrompts(const std::vector<Prompt>& prompts);
    void removeQuestions();
    void removePrompts();
    void addAccount(const Account& account);
    void setPassword(const Account& account);

    /// Runs `work` as one transaction, which leaves every byte of the file as it was when the work throws.
    template <class Work>
    void changing(Work work)
    {
        handle_.changing([&] {
            work();
            return true;
        });
    }

    [[nodiscard]] const QString& file() const { return file_; }

private:
    void run(const char* sql, std::initializer_list<std::string> values = {});

    QString file_; ///< as the user calls it
    db::Handle handle_;
};

/// The tables of a quiz database.
inline constexpr std::array<const char*, 3> tables = {"questions", "users", "locking"};

} // namespace bank

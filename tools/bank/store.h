#pragma once

#include "bank/progress.h"
#include "bank/question.h"
#include "db/failure.h"
#include "db/handle.h"
#include "db/schema.h"

#include <filesystem>
#include <memory>

namespace bank {

/// An account of the administration console.
struct Account
{
    std::string name;
    std::string password;
};

/// A quiz database that exists. While another program keeps it for itself, every call waits for ten seconds
/// and tells so. Every call may throw db::Failure, the work that is handed in Failure too.
class Store
{
public:
    Store(const std::filesystem::path& file, Progress& progress);

    /// Throws db::Failure unless the table has all of its fields.
    void require(const db::schema::Table& table);

    /// Throws Failure if the file is damaged.
    void checkIntegrity();

    /// All questions in the order of their numbers. A level that the game would not find is given with the
    /// reason, a right answer that is none of the options leaves `right` empty, and a tally that is no whole
    /// number is -1.
    [[nodiscard]] std::vector<Question> questions();
    [[nodiscard]] std::vector<Prompt> prompts();
    [[nodiscard]] std::vector<Account> accounts();

    /// What follows is called within the work that is handed to changing().
    void addQuestions(const std::vector<Question>& questions);
    /// Writes the question of this `place.id` anew.
    void changeQuestion(const Question& question);
    void resetTallies();
    /// Adds a row with a value for each field of the table.
    void add(const db::schema::Table& table, const std::vector<db::Value>& row);
    /// Sets one field of the rows whose `keyField` is `of`.
    void set(const db::schema::Table& table, const char* field, const db::Value& value, const char* keyField,
             const db::Value& of);
    void remove(const db::schema::Table& table, const char* keyField, const db::Value& of);
    void clear(const db::schema::Table& table);

    /// Runs `work` as one transaction, which leaves every byte of the file as it was when the work throws. It
    /// is run again if the file was locked.
    template <class Work>
    void changing(Work work)
    {
        patiently([&] {
            handle_->changing([&] {
                work();
                return true;
            });
        });
    }

    [[nodiscard]] const QString& file() const { return file_; }

private:
    /// Tells that the file is locked; throws the failure if it has been for long enough.
    void wait(const db::Failure& failure, int attempt);

    template <class Work>
    auto patiently(Work work)
    {
        for (int attempt = 1;; ++attempt) {
            try {
                return work();
            } catch (const db::Failure& failure) {
                wait(failure, attempt);
            }
        }
    }

    template <class Work>
    auto reading(Work work)
    {
        return patiently([&] { return handle_->reading(work); });
    }

    /// What `make` makes of every row.
    template <class Make>
    auto rows(const std::string& sql, Make make)
    {
        return reading([&] {
            std::vector<std::invoke_result_t<Make, SQLite::Statement&>> all;
            for (auto row = handle_->prepared(sql); row.executeStep(); progress_.step())
                all.push_back(make(row));
            return all;
        });
    }

    void run(const std::string& sql, const std::vector<db::Value>& values = {})
    {
        handle_->prepared(sql, values).exec();
    }

    QString file_; ///< as the user calls it
    Progress& progress_;
    std::unique_ptr<db::Handle> handle_;
};

/// Runs an insertion of db::schema::questionFields for each question, whose number is left to the engine or,
/// from `*id` + 1 on, given.
void insert(const std::vector<Question>& questions, SQLite::Statement& insertion, Progress& progress,
            qint64* id = nullptr);

} // namespace bank

#pragma once

#include <array>
#include <span>

namespace db {

using Fields = std::span<const char* const>;

/// What is fixed about a question bank: its file, its tables and their fields, and what these may hold.
namespace schema {

struct Table
{
    const char* name;
    Fields fields;
};

inline constexpr const char* fileName = "orv.orv";

inline constexpr const char* questionId = "question_id";
inline constexpr const char* question = "question";
inline constexpr std::array answers = {"answer1", "answer2", "answer3", "answer4"};
inline constexpr const char* correctAnswer = "correct_answer"; ///< the text of the right one of the answers
inline constexpr const char* level = "Level";
/// How often each answer has been chosen.
inline constexpr std::array tallies = {"a", "b", "c", "d"};
inline constexpr std::array questionFields = {questionId, question,   answers[0],    answers[1],
                                              answers[2], answers[3], correctAnswer, level,
                                              tallies[0], tallies[1], tallies[2],    tallies[3]};
inline constexpr Table questions = {"questions", questionFields};

inline constexpr const char* username = "username";
inline constexpr const char* password = "password";
inline constexpr std::array accountFields = {username, password};
inline constexpr Table users = {"users", accountFields};

inline constexpr const char* message = "message";
inline constexpr std::array messageFields = {message};
inline constexpr Table locking = {"locking", messageFields};

inline constexpr std::array tables = {questions, users, locking};

/// The levels of difficulty, easiest first, kept as texts.
inline constexpr std::array levels = {"1", "2", "3"};

// The longest texts that can be typed in, in code points.
inline constexpr int questionLimit = 100;
inline constexpr int answerLimit = 25;
inline constexpr int accountLimit = 15; ///< of a name and of a password

} // namespace schema
} // namespace db

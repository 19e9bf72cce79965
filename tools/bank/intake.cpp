#include "bank/intake.h"

#include <utility>

namespace bank {

Intake::Intake(Texts demanded, QString level, Progress& progress)
    : demanded_(demanded), level_(std::move(level)), progress_(progress)
{
}

void Intake::accept(Question question)
{
    if (question.level.isEmpty())
        question.level = level_;
    checkQuestion(question, demanded_, complaints);
    bank.questions.push_back(std::move(question));
    progress_.step();
}

} // namespace bank

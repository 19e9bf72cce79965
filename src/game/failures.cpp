#include "game/failures.h"

namespace game {

db::Failure tooFewQuestions(const QString& file, const QString& level, int count)
{
    return {db::Failure::Cause::Other,
            QString("The question bank %1 has too few questions of level %2: a game asks five of them, and "
                    "it holds %3. Add questions of this level in the administration console.")
                .arg(file, level)
                .arg(count)};
}

QString noPromptMessages(const QString& file)
{
    return QString("The question bank %1 has no prompt message, so the host makes do with one of its own. "
                   "Add messages in the administration console.")
        .arg(file);
}

QString questionRemoved(const QString& file)
{
    return QString("Another program has just removed this question from the question bank %1, so your choice "
                   "is not counted in its statistics. The game goes on.")
        .arg(file);
}

} // namespace game

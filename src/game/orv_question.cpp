#include "game/draw.h"
#include "game/orv.h"

#include "db/statements.h"
#include "game/failures.h"

namespace game {

namespace schema = db::schema;

void Orv::displayquestion()
{
    random->setEnabled(true);
    services().random.reseed();
    state.questionlevel = levelAfter(state.questionnumber).value_or(state.questionlevel);
    ++state.questionnumber;
    drawQuestion();

    db::Recordset& row = state.currentquestion;
    row = state.connection->Execute(db::statements::questionsOfLevel(state.questionlevel));
    row.MoveFirst();
    row.Move(state.questionindex);
    const std::array answers = {row.text(schema::answers[0]), row.text(schema::answers[1]),
                                row.text(schema::answers[2]), row.text(schema::answers[3])};
    question->setText(row.text(schema::question));
    for (int i = 0; i < options; ++i)
        option[i]->setText(QString("%1> ").arg(QChar('A' + i)) + answers[i]);
    state.chosenanswer.clear();
    state.begun = true;
    clearoptions();
    narrate(AtOnce, "announce",
            "Your question is,," + row.text(schema::question) + ",,the four options are,,A," + answers[0] +
                ",B," + answers[1] + ",C," + answers[2] + ",D," + answers[3]);
    narrate(Queued, "think", "");
}

/// Picks a row of the level whose question has not been asked in this game: sets questionindex.
void Orv::drawQuestion()
{
    db::Recordset ids = state.connection->Execute(db::statements::questionIdsOfLevel(state.questionlevel));
    int count = 0;
    bool unasked = false;
    for (ids.MoveFirst(); !ids.Eof(); ids.MoveNext()) {
        // With more rows than questions asked there is an unasked one; no need to look for it.
        if (!unasked)
            unasked = count >= state.askedquestions.size() ||
                      !state.askedquestions.contains(ids.number(schema::questionId));
        ++count;
    }
    if (!unasked)
        throw tooFewQuestions(state.databasepath, state.questionlevel, count);

    qint64 id = 0;
    do {
        services().random.reseed();
        state.questionindex = pickedRow(services().random.next(), count);
        ids.MoveFirst();
        ids.Move(state.questionindex);
        id = ids.number(schema::questionId);
    } while (state.askedquestions.contains(id));
    state.askedquestions.insert(id);
}

} // namespace game

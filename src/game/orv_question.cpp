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
        showOption(i, answers[i]);
    state.chosenanswer.clear();
    state.toldOfRemovedQuestion = false;
    state.begun = true;
    clearoptions();
    narrate(AtOnce, "announce", questionAloud());
    narrate(Queued, "think", "");
    announce(QString("Question %1 of %2: %3 %4")
                 .arg(state.questionnumber)
                 .arg(lastQuestion)
                 .arg(question->text(), optionsForReaders()));
}

void Orv::showOption(int i, const QString& answer)
{
    const QChar letter('A' + i);
    option[i]->setText(QString("%1> ").arg(letter) + answer);
    option[i]->setAccessibleName(QString("%1, ").arg(letter) + answer);
}

void Orv::removeOption(int i)
{
    option[i]->setText("");
    option[i]->setAccessibleName(QString("%1, removed").arg(QChar('A' + i)));
    if (lastFocused() == option[i])
        focus(LL);
}

/// As the host reads it out, with the options that are left.
QString Orv::questionAloud() const
{
    QString listed;
    int left = 0;
    for (int i = 0; i < options; ++i) {
        if (option[i]->text().isEmpty())
            continue;
        listed += QString(",%1,").arg(QChar('A' + i)) + answerOf(*option[i]);
        ++left;
    }
    return "Your question is,," + question->text() +
           (left == options ? ",,the four options are," : ",,the options are,") + listed;
}

QString Orv::optionsForReaders() const
{
    QStringList names;
    for (const auto* label : option)
        if (!label->text().isEmpty())
            names << label->accessibleName();
    return names.join("; ");
}

/// Picks a row of the level whose question has not been asked in this game: sets questionindex.
void Orv::drawQuestion()
{
    db::Recordset rows = state.connection->Execute(db::statements::questionIdsOfLevel(state.questionlevel));
    int count = 0;
    bool unasked = false;
    for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
        unasked = unasked || !state.askedquestions.contains(rows.key());
        ++count;
    }
    if (!unasked)
        throw tooFewQuestions(state.databasepath, state.questionlevel, count);

    do {
        services().random.reseed();
        state.questionindex = pickedRow(services().random.next(), count);
        rows.MoveFirst();
        rows.Move(state.questionindex);
    } while (state.askedquestions.contains(rows.key()));
    state.askedquestions.insert(rows.key());
}

} // namespace game

#pragma once

#include "db/recordset.h"
#include "game/ladder.h"

#include <QSet>
#include <QString>

#include <memory>

namespace narrator {
class Character;
}

namespace game {

enum class Panel { Closed, Open };

/// One game, from the loading of the game form to its unloading.
struct GameState
{
    int questionnumber = 0; ///< of the question on screen; after a correct answer still of the one answered
    QString questionlevel;  ///< "1", "2" or "3"
    QSet<qint64> askedquestions; ///< by the keys of their rows: a foreign bank may repeat its question_ids
    int questionindex = 0;       ///< offset of the drawn question among those of its level
    db::Recordset currentquestion;
    db::Recordset lockmessages;
    QString chosenanswer; ///< without the prefix of its option
    bool answered = false;
    int flashcount = 0;
    int chosenoption = 0; ///< 1 to 4
    bool pollused = false;
    bool friendused = false;
    bool fiftyused = false;
    Ladder ladder = prizeLadder();
    QString safeamount = ladder[0]; ///< kept after a wrong answer
    QString playername;
    QString databasepath;
    std::unique_ptr<db::Connection> connection;
    Panel lifelinespanel = Panel::Closed;
    Panel statuspanel = Panel::Closed;
    narrator::Character* host = nullptr;
    bool hostready = false;

    QString stagetext = ladderPanelText(); ///< with its marks; the box on screen drops carriage returns
    int clockcount = 0;                    ///< seconds of ask a friend
    bool begun = false;                    ///< a question has been shown
    bool toldOfMissingPrompts = false;
    bool toldOfRemovedQuestion = false; ///< of the one on screen
    bool toldOfProtectedBank = false;
};

} // namespace game

#include "game/orv.h"

#include "toolkit/screens.h"

#include <QDir>

namespace game {

void Orv::Form_Load()
{
    screens().show("back");
    openBank();
    loadHost();
    state.playername = services().dialogs.input(this, boxTitle(), "Please Enter your First Name ", "Guest");
    displayquestion();
}

void Orv::openBank()
{
    state.databasepath = db::databasepath();
    state.connection = db::opendatabase();
    state.connection->require(db::schema::questions);
    state.connection->require(db::schema::locking);
}

// Whatever goes wrong with the host, the show goes on without it or with what it can do.
void Orv::loadHost()
{
    try {
        myagent->Load("genie", QDir::current().filePath("genie.acs"));
        state.host = &myagent->Item("genie");
        state.hostready = true;
        state.host->Show();
        narrate(Queued, "Greet", "swagat hai aapka ,orvanta main");
    } catch (const std::exception&) {
        return;
    }
}

} // namespace game

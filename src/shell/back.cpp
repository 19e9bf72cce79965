#include "shell/back.h"

#include "toolkit/screens.h"

namespace shell {

Back::Back(toolkit::Services services)
    : Form({.name = "back",
            .width = 15000,
            .height = 12000,
            .placement = toolkit::Placement::WindowDefault,
            .background = QColor(0, 0, 64)},
           services)
{
    setEnabled(false);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setWindowFlag(Qt::WindowDoesNotAcceptFocus);
}

void Back::Form_Load()
{
    screens().show("orv");
}

} // namespace shell

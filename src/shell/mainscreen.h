#pragma once

#include "toolkit/form.h"

namespace shell {

/// The title screen of the show.
class MainScreen final : public toolkit::Form
{
public:
    explicit MainScreen(toolkit::Services services);

protected:
    void Form_Load() override;

private:
    void mainscreen_Command1_Click();

    toolkit::Label* title;
};

} // namespace shell

#pragma once

#include "toolkit/form.h"

namespace shell {

/// The rules of the game and the contestant's consent to them.
class Rules final : public toolkit::Form
{
public:
    explicit Rules(toolkit::Services services);

protected:
    void Form_Activate() override { focus(startplay); }

private:
    void rules_accept_Click();
    void rules_reject_Click();
    void rules_startplay_Click();

    QCheckBox* accept;
    QCheckBox* reject;
    toolkit::Button* startplay;
};

} // namespace shell

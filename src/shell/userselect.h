#pragma once

#include "toolkit/form.h"

namespace shell {

/// The first screen, to which every path returns: contestant or administrator.
class UserSelect final : public toolkit::Form
{
public:
    explicit UserSelect(toolkit::Services services);

protected:
    void Form_Load() override { startFade(); }
    void Form_GotFocus() override { startFade(); }
    void Form_Activate() override { focus(contestant); }
    void Form_MouseMove() override;

private:
    void userselect_Timer1_Timer();
    void userselect_contestant_Click();
    void userselect_administrator_Click();
    void userselect_email_MouseMove();
    void userselect_site_MouseMove();
    void userselect_email_Click();
    void userselect_site_Click();
    /// Opens it outside, or says in a box that nothing does.
    void openLink(const QString& scheme, const QString& address);
    void startFade();

    int fadeLevel = 1;

    toolkit::Label* welcome;
    toolkit::Button* administrator;
    toolkit::Button* contestant;
    toolkit::Label* email;
    toolkit::Label* site;
    toolkit::Timer* Timer1;
};

} // namespace shell

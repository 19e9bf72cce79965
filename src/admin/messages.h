#pragma once

#include "admin/editor.h"
#include "toolkit/text_box.h"

namespace admin {

/// The editor of the prompts that the host puts to a contestant before an answer is locked.
class Messages final : public Editor
{
public:
    explicit Messages(toolkit::Services services);

protected:
    void Form_Load() override;

private:
    void displaymessage();
    void displayrow() override { displaymessage(); }

    void messages_cmdadd_Click();
    void messages_cmdsave_Click();
    void messages_cmdupdate_Click();
    void messages_cmdcancel_Click();
    void messages_cmdexit_Click();

    toolkit::TextBox* message;
};

} // namespace admin

#pragma once

#include "toolkit/form.h"

namespace admin {

/// What the owner's screens share: boxes with a title of their own, and the desktop's colours and font.
class AdminForm : public toolkit::Form
{
protected:
    AdminForm(toolkit::FormSettings settings, toolkit::Services services)
        : Form(std::move(settings), services)
    {
        setFont(toolkit::systemFont());
    }

    [[nodiscard]] QString boxTitle() const override { return "Admin"; }

    /// Ends the table of controls, and gives each box and list the name of its label for screen readers.
    void controlsDone();
};

} // namespace admin

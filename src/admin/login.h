#pragma once

#include "toolkit/form.h"

namespace admin {

/// The administrator's login.
class Login final : public toolkit::Form
{
public:
    explicit Login(toolkit::Services services)
        : Form({.name = "login",
                .caption = "Orvanta",
                .width = 7050,
                .height = 2595,
                .border = toolkit::Border::FixedSingle},
               services)
    {
    }
};

} // namespace admin

#pragma once

#include "toolkit/form.h"

namespace shell {

/// The thank-you screen, which leads back to the first screen by itself.
class Thank final : public toolkit::Form
{
public:
    explicit Thank(toolkit::Services services);

private:
    void thank_Timer1_Timer();
};

} // namespace shell

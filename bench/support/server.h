#pragma once

#include "display/process.h"

#include <QSize>

namespace bench {

/// An X server of its own for this process and what it starts; DISPLAY names it.
class Server : public desk::Server
{
public:
    Server() : desk::Server({1024, 768}, QProcessEnvironment::systemEnvironment())
    {
        qputenv("DISPLAY", name());
    }
};

} // namespace bench

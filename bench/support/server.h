#pragma once

#include "bench/program.h"

#include <string>

namespace bench {

/// An X server of its own for this process and what it starts; DISPLAY names it.
class Server
{
public:
    /// Throws if there can be none.
    Server();

    [[nodiscard]] const std::string& name() const { return name_; }

private:
    struct Pipe
    {
        Pipe();
        ~Pipe();
        Pipe(const Pipe&) = delete;
        Pipe& operator=(const Pipe&) = delete;
        int ends[2] = {};
    };

    std::string nameFromServer();

    Pipe pipe_;
    Program server_;
    std::string name_;
};

} // namespace bench

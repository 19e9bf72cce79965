#include "bench/server.h"

#include <cstdlib>
#include <stdexcept>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace bench {

Server::Pipe::Pipe()
{
    if (pipe2(ends, O_CLOEXEC) != 0)
        throw std::runtime_error("there can be no pipe");
}

Server::Pipe::~Pipe()
{
    close(ends[0]);
    close(ends[1]);
}

Server::Server()
    : server_({"Xvfb", "-displayfd", "1", "-screen", "0", "1280x800x24", "-nolisten", "tcp"}, ".",
              pipe_.ends[1]),
      name_(nameFromServer())
{
}

std::string Server::nameFromServer()
{
    std::string name = ":";
    close(std::exchange(pipe_.ends[1], -1));
    for (char digit = 0; read(pipe_.ends[0], &digit, 1) == 1 && digit != '\n';)
        name += digit;
    setenv("DISPLAY", name.c_str(), 1);
    return name;
}

} // namespace bench

#include "bank/command.h"

#include <iostream>

#include <unistd.h>

int main(int argc, char** argv)
{
    return bank::run(argc, argv, std::cout, std::cerr, ::isatty(STDERR_FILENO) ? &std::cerr : nullptr);
}

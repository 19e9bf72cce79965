#include "bank/command.h"

#include <iostream>

int main(int argc, char** argv)
{
    return bank::run(argc, argv, std::cout, std::cerr);
}

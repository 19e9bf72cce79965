// Stands in for the desktop's own "xdg-open": notes what it was asked to open, one call a line.

#include <cstdlib>
#include <fstream>

int main(int argc, char** argv)
{
    const char* const notes = std::getenv("DESK_OPENED");
    if (notes == nullptr)
        return 1;
    std::ofstream out(notes, std::ios::app);
    for (int i = 1; i < argc; ++i)
        out << (i == 1 ? "" : " ") << argv[i];
    out << std::endl;
    return 0;
}

// Prints a page of the manual with the synopses of all commands in place of the line "@SYNOPSIS@".
#include "commandline/CommandHelp.h"

#include <fstream>
#include <iostream>

int main(int argc, char** argv)
{
    std::ifstream page(argc > 1 ? argv[1] : "");
    if (!page)
        return 1;
    for (std::string line; std::getline(page, line);)
        std::cout << (line == "@SYNOPSIS@" ? Kovrel::CommandHelp::manualSynopsis() : line + '\n');
    return std::cout.flush() ? 0 : 1;
}

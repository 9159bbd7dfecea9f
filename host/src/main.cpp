// jexdesign: the design host program.
#include <iostream>

#include "commands.h"

int main(int argc, char** argv) {
    std::vector<std::string> args(argv + 1, argv + argc);
    return host::RunMain(args, std::cin, std::cout, std::cerr);
}

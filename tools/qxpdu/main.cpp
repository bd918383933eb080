#include <iostream>

#include <unistd.h>

#include "CommandLine.h"

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    std::cin.tie(nullptr);
    return qxpdu::RunTool({argv + 1, argv + argc},
                          {std::cin, std::cout, std::cerr, isatty(STDOUT_FILENO) != 0});
}

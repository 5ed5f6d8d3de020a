#include "tool/tool.h"

#include <iostream>

int main(int count, char** arguments) {
    return vorna::runTool({arguments + 1, arguments + count}, std::cout, std::cerr);
}

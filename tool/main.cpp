#include "platform/log.h"
#include "tool/tool.h"

#include <cstdlib>
#include <iostream>

int main(int count, char** arguments) {
    // For developers: tells on standard error which statements were passed over.
    vorna::switchLogOn(std::getenv("VORNA_LOG") != nullptr);
    return vorna::runTool({arguments + 1, arguments + count}, std::cout, std::cerr);
}

#include "demo/demonstration.h"
#include "platform/failure.h"
#include "tool/command.h"

#include <CLI/CLI.hpp>

#include <iostream>

int main(int count, char** arguments) {
    CLI::App app("vorna-demo: evaluates and draws the sample client's measurements.");
    vorna::DemonstrationOptions options;
    std::string installation;
    std::string sources;
    std::string result;
    app.add_option("--installation", installation, "the assembled installation folder")->required();
    app.add_option("--sources", sources, "the installation's sources")->required();
    app.add_option("--result", result, "an empty folder for the result")->required();
    app.add_option("--locale", options.locale, "such as cs_CZ; it chooses the language");
    CLI11_PARSE(app, count, arguments);
    options.installation = installation;
    options.sources = sources;
    options.result = result;
    try {
        const auto page = vorna::runDemonstration(options, std::cout);
        std::cout << "The result lies in " << page.string() << '\n';
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "vorna-demo: " << error.what() << '\n';
        return 1;
    }
}

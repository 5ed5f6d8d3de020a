// The text files from which the installation's content is made. What is wrong in one of them stops
// the build with a Failure whose text names the file, and the line where there is one:
// "Points.tsv:12: ...".
#pragma once

#include "platform/database.h"
#include "platform/failure.h"
#include "platform/files.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace vorna {

// A line of a source, counted from 1.
struct SourcePlace {
    std::string file;
    std::size_t line = 0;
};

[[noreturn]] void failAt(const SourcePlace& place, std::string_view what);

// Runs a step on a file; its Failure then names the file.
template <class Step>
auto naming(const fs::path& file, Step&& step) {
    try {
        return step();
    } catch (const Failure& failure) {
        throw Failure(pathText(file) + ": " + failure.what());
    }
}

// The whole file. Failure when it cannot be read.
std::string readSource(const fs::path& file);

// Runs the statements of a file. Each ends with a semicolon at the end of a line, before any
// comment. Failure with the line on which the failing statement begins.
void runScript(Database& database, const fs::path& file);

} // namespace vorna

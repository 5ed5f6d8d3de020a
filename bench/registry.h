// A made registry of clients, the same at each call.
#pragma once

#include <filesystem>
#include <random>
#include <string>

namespace vorna {

// Of the usual build and spread: a stem of syllables, half of them in the feminine form.
std::string madeSurname(std::mt19937& random);

// Adds clients with as many empty measurements each to a data root.
void makeRegistry(const std::filesystem::path& dataRoot, int clients, int measurements);

} // namespace vorna

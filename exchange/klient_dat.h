// The klient.dat of a client who comes from elsewhere, read once and never trusted.
#pragma once

#include "core/settings_file.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vorna {

class KlientDat {
public:
    // Of a client's folder. A file that is larger than any klient.dat counts as missing.
    explicit KlientDat(const std::filesystem::path& folder);

    [[nodiscard]] bool exists() const { return exists_; }
    // The value of a key in the file's section; empty when it is missing.
    [[nodiscard]] std::string value(std::string_view key) const;

private:
    bool exists_ = false;
    std::vector<IniEntry> entries_;
};

} // namespace vorna

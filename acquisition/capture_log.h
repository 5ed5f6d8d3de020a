// The capture log: once armed, the next 100 readings of the probe go to a text file in the data
// root's LOG folder.
//
//   log  = posun line, 100 reading lines
//   line = ( " " | "-" ) digits " " CR LF
//
// The file is open while it logs, over stops of the measurement too, and each line reaches it at
// once.
#pragma once

#include "platform/clock.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

namespace vorna {

class CaptureLog {
public:
    // The next start uses this name, whatever it holds.
    void arm(std::string measurementName);
    [[nodiscard]] bool armed() const { return armed_; }
    [[nodiscard]] bool logging() const { return logging_; }

    // Opens the file, replacing one of that name, and writes the zero point. A file that cannot be
    // opened (the name is not cleaned, and may be none that a file can have) is passed over: the
    // count goes on without it.
    void start(const std::filesystem::path& dataRoot, std::int16_t posun, LocalTime now);

    // Writes a reading. True for the hundredth: the log is then neither armed nor logging, and
    // waits to be closed.
    bool write(std::int16_t rawReading);
    void close();

    // Measurement name, yymmdd_hhmmss and ".txt".
    [[nodiscard]] const std::string& fileName() const { return fileName_; }

private:
    void openFile(const std::filesystem::path& dataRoot);
    void writeLine(std::int16_t number);

    bool armed_ = false;
    bool logging_ = false;
    std::int16_t count_ = 0; // number of the next reading, from 1
    std::string measurementName_;
    std::string fileName_;
    std::ofstream file_;
};

} // namespace vorna

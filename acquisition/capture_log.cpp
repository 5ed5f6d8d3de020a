#include "acquisition/capture_log.h"

#include "core/file_names.h"
#include "core/number.h"
#include "platform/failure.h"
#include "platform/files.h"

#include <utility>

namespace vorna {
namespace {

constexpr std::int16_t readingsOfLog = 100;

} // namespace

void CaptureLog::arm(std::string measurementName) {
    measurementName_ = std::move(measurementName);
    armed_ = true;
}

void CaptureLog::start(const std::filesystem::path& dataRoot, std::int16_t posun, LocalTime now) {
    fileName_ = measurementName_ + formatTime(now, "yyMMdd_HHmmss") + ".txt";
    attempt([&] { openFile(dataRoot); });
    attempt([&] { writeLine(posun); });
    count_ = 1;
    logging_ = true;
}

void CaptureLog::openFile(const std::filesystem::path& dataRoot) {
    if (isForbiddenFileName(fileName_))
        throw Failure("a capture log cannot have this name");
    file_.close();
    file_.clear();
    file_.open(under(under(dataRoot, names::log), fileName_), std::ios::binary | std::ios::trunc);
    if (!file_)
        throw Failure("a capture log cannot be opened");
}

void CaptureLog::writeLine(std::int16_t number) {
    file_ << (number < 0 ? "" : " ") << decimalText(std::int64_t{number}) << " \r\n" << std::flush;
    if (!file_)
        throw Failure("a capture log cannot be written");
}

bool CaptureLog::write(std::int16_t rawReading) {
    attempt([&] { writeLine(rawReading); });
    if (count_ != readingsOfLog) {
        ++count_;
        return false;
    }
    logging_ = false;
    armed_ = false;
    return true;
}

void CaptureLog::close() {
    file_.close();
    file_.clear();
}

} // namespace vorna

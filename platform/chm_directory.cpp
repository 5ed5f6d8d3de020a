#include "platform/chm_directory.h"

#include "platform/failure.h"
#include "platform/text.h"

#include <bit>

namespace vorna {
namespace {

// The file's header (ITSF), then, where it says, the directory's (ITSP), then the pages.
constexpr std::size_t fileHeader = 0x60;
constexpr std::size_t directoryHeader = 0x54;
constexpr std::size_t entryPageHeader = 0x14;
constexpr std::size_t indexPageHeader = 8;
constexpr std::size_t longestPath = 512;
constexpr std::uint32_t none = 0xFFFFFFFF;

constexpr std::uint64_t blockBytes = 0x8000; // what the compression works in
constexpr std::uint64_t largestSection = 256U << 20U;

void require(bool sound) {
    if (!sound)
        throw Failure("a help book is damaged");
}

std::uint64_t numberAt(std::string_view bytes, std::size_t at, std::size_t size) {
    require(bytes.size() >= size && at <= bytes.size() - size);
    std::uint64_t number = 0;
    for (std::size_t i = size; i-- > 0;)
        number = number << 8U | static_cast<unsigned char>(bytes[at + i]);
    return number;
}

std::uint32_t number32At(std::string_view bytes, std::size_t at) {
    return static_cast<std::uint32_t>(numberAt(bytes, at, 4));
}

std::uint64_t number64At(std::string_view bytes, std::size_t at) {
    return numberAt(bytes, at, 8);
}

// The entries of a page, read one value after the other.
class PageReader {
public:
    PageReader(std::string_view page, std::size_t header) {
        const std::size_t free = number32At(page, 4);
        require(free <= page.size() - header);
        rest_ = page.substr(header, page.size() - header - free);
    }

    [[nodiscard]] bool atEnd() const { return rest_.empty(); }

    // Seven bits a byte, the highest first; the last byte has no high bit.
    std::uint64_t number() {
        std::uint64_t value = 0;
        for (int bytes = 0;; ++bytes) {
            require(!rest_.empty() && bytes < 9);
            const auto byte = static_cast<unsigned char>(rest_.front());
            rest_.remove_prefix(1);
            value = value << 7U | (byte & 0x7FU);
            if (byte < 0x80)
                return value;
        }
    }

    std::string name() {
        const std::uint64_t length = number();
        require(length <= longestPath && length <= rest_.size());
        std::string name(rest_.substr(0, length));
        require(name.find('\0') == std::string::npos);
        rest_.remove_prefix(length);
        return name;
    }

private:
    std::string_view rest_;
};

// Pages of entries come first; a page of the index leads to pages before it only, so that nobody
// who follows it walks in a circle.
void readPages(std::string_view pages, std::size_t pageBytes, std::vector<ChmObject>& objects) {
    for (std::size_t number = 0; number * pageBytes < pages.size(); ++number) {
        const std::string_view page = pages.substr(number * pageBytes, pageBytes);
        if (page.starts_with("PMGL")) {
            for (PageReader reader(page, entryPageHeader); !reader.atEnd();) {
                ChmObject object;
                object.path = reader.name();
                object.section = reader.number();
                object.start = reader.number();
                object.length = reader.number();
                objects.push_back(std::move(object));
            }
        } else if (page.starts_with("PMGI")) {
            for (PageReader reader(page, indexPageHeader); !reader.atEnd();) {
                reader.name();
                require(reader.number() < number);
            }
        }
    }
}

std::vector<ChmObject> readObjects(std::string_view file) {
    const std::uint64_t at = number64At(file, 0x48);
    const std::uint64_t length = number64At(file, 0x50);
    require(at <= file.size() && length <= file.size() - at && length >= directoryHeader);
    const std::string_view bytes = file.substr(at, length);
    require(bytes.starts_with("ITSP") && number32At(bytes, 8) == directoryHeader);
    const std::uint32_t pageBytes = number32At(bytes, 0x10);
    const std::uint32_t root = number32At(bytes, 0x1C);
    const std::uint32_t first = number32At(bytes, 0x20);
    const std::uint64_t count = number32At(bytes, 0x2C);
    require(std::has_single_bit(pageBytes) && pageBytes >= 512 && pageBytes <= 65'536);
    require(count * pageBytes <= length - directoryHeader);
    require((root == none || root < count) && first < count);

    std::vector<ChmObject> objects;
    readPages(bytes.substr(directoryHeader, count * pageBytes), pageBytes, objects);
    return objects;
}

void checkControlData(std::string_view table) {
    constexpr std::uint32_t signature = 0x43585A4C; // "LZXC"
    require(number32At(table, 4) == signature);
    const std::uint64_t unit = number32At(table, 8) == 2 ? blockBytes : 1;
    const std::uint64_t interval = number32At(table, 12) * unit;
    const std::uint64_t window = number32At(table, 16) * unit;
    const std::uint64_t most = 64 * blockBytes;
    require(std::has_single_bit(window) && window >= blockBytes && window <= most);
    require(interval >= blockBytes && interval <= most && interval % blockBytes == 0);
    require(interval % (window / 2) == 0);
    const std::uint32_t windows = number32At(table, 20); // in one interval
    require(windows > 0 && windows <= 64);
}

// Gives the length of the section when it is unpacked.
std::uint64_t checkResetTable(std::string_view table, std::uint64_t plainBytes) {
    const std::uint64_t blocks = number32At(table, 4);
    const std::uint64_t offset = number32At(table, 12);
    const std::uint64_t unpacked = number64At(table, 16);
    const std::uint64_t packed = number64At(table, 24);
    require(number64At(table, 32) == blockBytes);
    require(unpacked <= largestSection && packed <= plainBytes);
    require(blocks >= (unpacked + blockBytes - 1) / blockBytes);
    require(offset + blocks * 8 <= table.size());
    for (std::uint64_t i = 0; i < blocks; ++i)
        require(number64At(table, offset + i * 8) <= packed);
    return unpacked;
}

// Whatever bears the name of one of the tables must be sound: the library takes any of them.
void checkCompression(std::string_view plain, ChmDirectory& directory) {
    for (const ChmObject& object : directory.objects) {
        const std::string name = foldCase(object.path);
        const bool control = name.ends_with("/controldata");
        const bool reset = name.ends_with("/resettable");
        if (!control && !reset && !name.ends_with("/mscompressed/content"))
            continue;
        require(object.section == 0 && object.start <= plain.size() &&
                object.length <= plain.size() - object.start);
        const std::string_view table = plain.substr(object.start, object.length);
        if (control)
            checkControlData(table);
        else if (reset)
            directory.unpackedBytes = checkResetTable(table, plain.size());
    }
}

} // namespace

ChmDirectory readChmDirectory(std::string_view file) {
    require(file.size() >= fileHeader && file.starts_with("ITSF") && number32At(file, 4) == 3);
    const std::uint64_t data = number64At(file, 0x58);
    require(data <= file.size());
    ChmDirectory directory;
    directory.plainBytes = file.size() - data;
    directory.objects = readObjects(file);
    checkCompression(file.substr(data), directory);
    return directory;
}

} // namespace vorna

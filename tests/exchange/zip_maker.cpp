#include "tests/exchange/zip_maker.h"

#include "platform/files.h"
#include "tests/support/scratch_folder.h"

#include <zip.h>

namespace vorna {
namespace {

constexpr std::uint32_t day = 0x5950'1234; // in the year 2024

void put(std::string& bytes, std::uint64_t number, int width) {
    for (int i = 0; i < width; ++i)
        bytes += static_cast<char>(number >> (8 * i));
}

std::uint32_t crcOf(std::string_view content) {
    std::uint32_t crc = 0xFFFFFFFF;
    for (const char c : content) {
        crc ^= static_cast<unsigned char>(c);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
    }
    return ~crc;
}

// What stands in both headers of an entry.
void putFacts(std::string& bytes, const ZipEntry& entry) {
    put(bytes, 20, 2); // version needed
    put(bytes, entry.flags, 2);
    put(bytes, entry.method, 2);
    put(bytes, day, 4);
    put(bytes, entry.crc.value_or(crcOf(entry.content)), 4);
    put(bytes, entry.packedSize.value_or(static_cast<std::uint32_t>(entry.content.size())), 4);
    put(bytes, entry.size.value_or(static_cast<std::uint32_t>(entry.content.size())), 4);
    put(bytes, entry.name.size(), 2);
    put(bytes, 0, 2); // extra field
}

} // namespace

std::string zipOf(const std::vector<ZipEntry>& entries) {
    std::string bytes;
    std::string directory;
    for (const ZipEntry& entry : entries) {
        directory += "PK\1\2";
        put(directory, 20, 1);
        put(directory, entry.system, 1);
        putFacts(directory, entry);
        put(directory, 0, 6); // comment, disk, internal attributes
        put(directory, entry.attributes, 4);
        put(directory, entry.offset.value_or(static_cast<std::uint32_t>(bytes.size())), 4);
        directory += entry.name;
        if (entry.offset)
            continue;
        bytes += "PK\3\4";
        putFacts(bytes, entry);
        bytes += entry.name + entry.content;
    }
    const std::size_t begin = bytes.size();
    bytes += directory + "PK\5\6";
    put(bytes, 0, 4);
    put(bytes, entries.size(), 2);
    put(bytes, entries.size(), 2);
    put(bytes, directory.size(), 4);
    put(bytes, begin, 4);
    put(bytes, 0, 2);
    return bytes;
}

ZipEntry zeros(const std::string& name, std::size_t size) {
    constexpr std::size_t header = 31; // with a name of one letter
    const ScratchFolder folder;
    const fs::path file = folder / "zeros.zip";
    const std::string content(size, '\0');
    zip_t* const zip = zip_open(file.c_str(), ZIP_CREATE, nullptr);
    zip_file_add(zip, "z", zip_source_buffer(zip, content.data(), content.size(), 0), 0);
    zip_close(zip);
    const std::string bytes = readWholeFile(file);
    return {.name = name,
            .content = bytes.substr(header, bytes.find("PK\1\2") - header),
            .method = 8,
            .size = static_cast<std::uint32_t>(size),
            .crc = crcOf(content)};
}

std::string bytesOfHex(std::string_view hex) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
        bytes += static_cast<char>(std::stoi(std::string(hex.substr(i, 2)), nullptr, 16));
    return bytes;
}

} // namespace vorna

#include "exchange/rtf_pictures.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace vorna {
namespace {

constexpr int maxPixels = 30000;     // of a side
constexpr int maxShownTwips = 20000; // of a side

// Little-endian numbers in data of any length; 0 beyond their end.
class Fields {
public:
    explicit Fields(std::string_view bytes) : bytes_(bytes) {}
    [[nodiscard]] std::uint32_t byte(std::size_t at) const {
        return at < bytes_.size() ? static_cast<unsigned char>(bytes_[at]) : 0U;
    }
    [[nodiscard]] std::uint32_t word(std::size_t at) const { return byte(at) | byte(at + 1) << 8; }
    [[nodiscard]] std::uint32_t dword(std::size_t at) const {
        return word(at) | word(at + 2) << 16;
    }
    [[nodiscard]] std::uint32_t bigDword(std::size_t at) const {
        return byte(at) << 24 | byte(at + 1) << 16 | byte(at + 2) << 8 | byte(at + 3);
    }

private:
    std::string_view bytes_;
};

bool isSide(std::uint32_t pixels) {
    return pixels >= 1 && pixels <= static_cast<std::uint32_t>(maxPixels);
}

bool isPng(std::string_view bytes) {
    const Fields fields(bytes);
    return bytes.size() > 64 && bytes.starts_with("\x89PNG\r\n\x1A\n") &&
           bytes.substr(12, 4) == "IHDR" && isSide(fields.bigDword(16)) &&
           isSide(fields.bigDword(20));
}

bool isJpeg(std::string_view bytes) {
    return bytes.size() > 64 && bytes.starts_with("\xFF\xD8\xFF");
}

std::string littleEndian(std::size_t value, int size) {
    std::string bytes;
    for (int i = 0; i < size; ++i, value >>= 8)
        bytes += static_cast<char>(value & 0xFF);
    return bytes;
}

// Where the pixels of a device-independent bitmap begin; 0 when it is none that can be shown.
//   dword header size (40 or more), dword width, dword height (negative from the top), word planes,
//   word bits of a pixel, dword compression, ..., at 32 dword colours used; palette; pixels
std::size_t pixelOffset(std::string_view dib) {
    const Fields fields(dib);
    const std::uint32_t header = fields.dword(0);
    const std::uint32_t height = fields.dword(8);
    const std::uint32_t bits = fields.word(14);
    const std::uint32_t compression = fields.dword(16);
    const bool known =
        bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32;
    if (header < 40 || header > 124 || !known || compression > 3 || !isSide(fields.dword(4)) ||
        !isSide(height >> 31 != 0 ? ~height + 1 : height))
        return 0;
    std::size_t colours = fields.dword(32);
    if (colours == 0 && bits <= 8)
        colours = std::size_t{1} << bits;
    const std::size_t masks = compression == 3 && header == 40 ? 12 : 0;
    if (colours > 256 || header + masks + colours * 4 >= dib.size())
        return 0;
    return header + masks + colours * 4;
}

// A bitmap as a file of its own: "BM", dword size, dword 0, dword offset of the pixels, the bitmap.
std::string bitmapFile(std::string_view dib) {
    constexpr std::size_t fileHeader = 14;
    const std::size_t offset = pixelOffset(dib);
    if (offset == 0)
        return {};
    std::string bytes = "BM";
    bytes += littleEndian(fileHeader + dib.size(), 4);
    bytes += littleEndian(0, 4);
    bytes += littleEndian(fileHeader + offset, 4);
    return bytes.append(dib);
}

// The largest bitmap that a metafile draws. After its header (9 words, 11 more before it where it
// can be placed) come records: dword size in words, word function, parameters.
std::string_view bitmapOfMetafile(std::string_view metafile) {
    struct Drawing {
        std::uint32_t function;
        std::size_t bitmapAt;
    };
    static constexpr Drawing drawings[] = {{0x0940, 22}, {0x0B41, 26}, {0x0D33, 24}, {0x0F43, 28}};
    const Fields fields(metafile);
    std::string_view best;
    std::size_t at = fields.dword(0) == 0x9AC6CDD7 ? 22 + 18 : 18;
    while (at + 6 <= metafile.size()) {
        const std::size_t size = std::size_t{fields.dword(at)} * 2;
        if (size < 6)
            break;
        const std::string_view record = metafile.substr(at, size);
        for (const Drawing& drawing : drawings)
            if (drawing.function == fields.word(at + 4) && record.size() > drawing.bitmapAt &&
                record.size() > best.size() && pixelOffset(record.substr(drawing.bitmapAt)) != 0)
                best = record.substr(drawing.bitmapAt);
        at += size;
    }
    return best;
}

} // namespace

void RtfPictureReader::takeWord(const RtfToken& word) {
    struct Number {
        std::string_view word;
        int RtfPictureReader::*field;
    };
    static constexpr Number numbers[] = {
        {"picw", &RtfPictureReader::width_},
        {"pich", &RtfPictureReader::height_},
        {"picwgoal", &RtfPictureReader::wantedWidth_},
        {"pichgoal", &RtfPictureReader::wantedHeight_},
        {"picscalex", &RtfPictureReader::scaleX_},
        {"picscaley", &RtfPictureReader::scaleY_},
    };
    for (const Number& number : numbers)
        if (number.word == word.text)
            this->*number.field = std::clamp(word.numberOr(0), 0, 100'000);
    if (word.text == "pngblip" || word.text == "jpegblip" || word.text == "dibitmap")
        kind_ = Kind::Bitmap;
    else if (word.text == "wmetafile")
        kind_ = Kind::Metafile;
}

void RtfPictureReader::takeDigits(std::string_view digits) {
    for (const char c : digits) {
        const int digit = hexDigit(c);
        if (digit < 0)
            continue;
        if (pendingDigit_ >= 0)
            bytes_ += static_cast<char>(pendingDigit_ * 16 + digit);
        pendingDigit_ = pendingDigit_ < 0 ? digit : -1;
    }
}

std::optional<RtfPicture> RtfPictureReader::finish() {
    RtfPicture picture;
    if (isPng(bytes_) || isJpeg(bytes_)) {
        picture.extension = isPng(bytes_) ? "png" : "jpg";
        picture.bytes = std::move(bytes_);
    } else if (kind_ != Kind::Device) {
        picture.extension = "bmp";
        picture.bytes = bitmapFile(kind_ == Kind::Metafile ? bitmapOfMetafile(bytes_) : bytes_);
    }
    if (picture.bytes.empty())
        return std::nullopt;
    picture.width = shownSize(wantedWidth_, scaleX_, width_);
    picture.height = shownSize(wantedHeight_, scaleY_, height_);
    return picture;
}

int RtfPictureReader::shownSize(int wanted, int scale, int natural) const {
    constexpr long long twipsOfPixel = 15;
    long long size = wanted;
    if (wanted <= 0)
        size = kind_ == Kind::Metafile ? natural * 1440LL / 2540 : natural * twipsOfPixel;
    size = size * (scale > 0 ? scale : 100) / 100;
    return static_cast<int>(std::min<long long>(size, maxShownTwips));
}

} // namespace vorna

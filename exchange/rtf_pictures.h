// The pictures of a document: which kinds of data a page can show, and how they become files. The
// kind is told by the data themselves, never by what the document calls them.
#pragma once

#include "exchange/rtf_document.h"
#include "exchange/rtf_tokens.h"

#include <optional>
#include <string>
#include <string_view>

namespace vorna {

// Gathers one picture from the words and the data of its group.
class RtfPictureReader {
public:
    void takeWord(const RtfToken& word);
    // Hexadecimal digits; anything else between them is passed over.
    void takeDigits(std::string_view digits);
    void takeBytes(std::string_view bytes) { bytes_.append(bytes); }

    // PNG and JPEG as they are; a device-independent bitmap, also the largest one that a metafile
    // draws, as BMP. Nothing for other data: drawings, other metafiles, damaged ones.
    std::optional<RtfPicture> finish();

private:
    enum class Kind { Bitmap, Metafile, Device };
    [[nodiscard]] int shownSize(int wanted, int scale, int natural) const;

    std::string bytes_;
    int pendingDigit_ = -1;
    Kind kind_ = Kind::Device;
    int wantedWidth_ = 0; // twips
    int wantedHeight_ = 0;
    int width_ = 0; // pixels, or hundredths of a millimetre for a metafile
    int height_ = 0;
    int scaleX_ = 100; // percent
    int scaleY_ = 100;
};

} // namespace vorna

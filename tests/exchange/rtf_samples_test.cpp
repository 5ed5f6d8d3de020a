#include "platform/files.h"
#include "tests/exchange/rtf_shown.h"

namespace vorna {
namespace {

const fs::path source = VORNA_TEST_SOURCE;

// Documents in the way that the usual programs write them, and their pages, which were looked at in
// a browser beside the documents.
TEST(RtfSamples, GiveThePagesThatWereLookedAt) {
    for (const char* name : {"wordpad", "wordpad_russian", "word", "libreoffice"}) {
        const fs::path file = source / "tests/exchange/rtf" / name;
        const std::string page = pageOf(readWholeFile(fs::path(file) += ".rtf"));
        EXPECT_EQ(page, readWholeFile(fs::path(file) += ".html")) << name;
    }
}

TEST(RtfSamples, TemplatesAreWholePages) {
    const std::string folder = "installation/templates/";
    for (const char* name : {"anamneza.rtf", "doporuceni.rtf"}) {
        const std::string page = pageOf(readWholeFile(source / (folder + name)));
        EXPECT_EQ(page.find("Anamnesis"), std::string::npos) << "the header is left out";
        EXPECT_NE(page.find("border-bottom:0.5pt solid #17655a"), std::string::npos);
        EXPECT_NE(page.find("<span style=\"display:inline-block;min-width:141.75pt;text-indent:0\">"
                            "<b>Jméno a příjmení: </b></span></p>"),
                  std::string::npos);
        EXPECT_NE(page.find("<b>Poznámky</b>"), std::string::npos);
    }
}

} // namespace
} // namespace vorna

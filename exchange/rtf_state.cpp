#include "exchange/rtf_state.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <unordered_set>

namespace vorna {

char32_t characterOfWord(std::string_view word) {
    static const std::unordered_map<std::string_view, char32_t> characters = {
        {"tab", U'\t'},           {"line", U'\n'},        {"lbr", U'\n'},
        {"emdash", U'\u2014'},    {"endash", U'\u2013'},  {"emspace", U'\u2003'},
        {"enspace", U'\u2002'},   {"qmspace", U'\u2005'}, {"bullet", U'\u2022'},
        {"lquote", U'\u2018'},    {"rquote", U'\u2019'},  {"ldblquote", U'\u201C'},
        {"rdblquote", U'\u201D'}, {"zwj", U'\u200D'},     {"zwnj", U'\u200C'},
        {"zwbo", U'\u200B'},      {"ltrmark", U'\u200E'}, {"rtlmark", U'\u200F'},
    };
    const auto found = characters.find(word);
    return found == characters.end() ? U'\0' : found->second;
}

bool isLeftOut(std::string_view word) {
    static const std::unordered_set<std::string_view> words = {
        "aftncn",        "aftnsep",      "aftnsepc",     "background",
        "blipuid",       "bkmkend",      "bkmkstart",    "colorschememapping",
        "datastore",     "falt",         "filetbl",      "footer",
        "footerf",       "footerl",      "footerr",      "fontemb",
        "ftncn",         "ftnsep",       "ftnsepc",      "header",
        "headerf",       "headerl",      "headerr",      "info",
        "latentstyles",  "levelnumbers", "listname",     "listpicture",
        "liststylename", "mmathPr",      "nonesttables", "objalias",
        "objclass",      "objdata",      "objname",      "objsect",
        "panose",        "picprop",      "pn",           "pnseclvl",
        "pntxta",        "pntxtb",       "private",      "revtbl",
        "rsidtbl",       "rxe",          "tc",           "tcn",
        "template",      "themedata",    "title",        "txe",
        "userprops",     "xe",           "xmlnstbl",
    };
    return words.contains(word);
}

} // namespace vorna

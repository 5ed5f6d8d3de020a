// A client desk with the texts of export and import: "exported", "all exported", "imported",
// "again? " before the name of a client who is there already.
#pragma once

#include "exchange/client_export.h"
#include "exchange/client_import.h"
#include "exchange/zip/zip_archive.h"
#include "tests/clients/client_desk.h"

#include <map>

namespace vorna {

using Tree = std::map<std::string, std::string>;

// The files below a folder with their content, and its folders with a slash behind.
inline Tree treeOf(const fs::path& folder) {
    Tree tree;
    std::error_code error;
    for (fs::recursive_directory_iterator at(folder, error), end; !error && at != end; ++at) {
        const std::string name = pathText(at->path().lexically_relative(folder));
        if (at->is_directory())
            tree[name + "/"] = "";
        else
            tree[name] = readWholeFile(at->path());
    }
    return tree;
}

// Cancels at a given call.
struct CancelAfter final : WorkProgress {
    explicit CancelAfter(int calls) : left(calls) {}
    bool goesOn(const Step& step) override {
        wrong = wrong || step.done > step.total;
        steps.push_back(std::to_string(step.done) + "/" + std::to_string(step.total) + " " +
                        std::string(step.name));
        return left-- > 0;
    }
    int left;
    bool wrong = false;
    std::vector<std::string> steps; // "3/12 name"
};

struct ExchangeDesk : ClientDesk {
    explicit ExchangeDesk(std::int16_t language = languageCzech) : ClientDesk(language) {
        place.folder.write("installation/lang1.ini",
                           "[other]\nT1=saved\nt9=where to\nt10=exported\nt11=archives\n"
                           "t12=imported\nt133=\"again? \"\nt134=from where\nt139=all exported\n"
                           "noBackup=not backed up\n");
        fs::create_directories(place.folder / "out");
    }

    // A client with a row, a klient.dat and files.
    void addClient(const std::string& surname, const std::string& intid,
                   const std::vector<std::string>& files = {}) {
        place.addClient(surname, intid);
        place.folder.write("VORNA/data/" + intid + "/klient.dat",
                           "[global]\r\nprijmeni=" + surname + "\r\njmeno=Jan\r\nintid=" + intid +
                               "\r\nzalozeni=1.1.2020 12:00\r\n");
        for (const std::string& file : files)
            place.folder.write("VORNA/data/" + intid + "/" + file, file + " of " + surname);
        searchClients(context);
    }

    // What was shown so far, which is then forgotten.
    Texts takeShown() { return std::exchange(seams.dialogs.shown, {}); }

    ExchangeContext exchange{.clients = context, .makeArchive = makeZipArchive};
};

} // namespace vorna

// An exchange desk to which archives are offered, and what clients come in.
#pragma once

#include "exchange/client_import.h"
#include "tests/exchange/exchange_desk.h"
#include "tests/exchange/zip_maker.h"

#include <deque>
#include <string>
#include <string_view>

namespace vorna {

inline constexpr const char* fileChooser = "file: archives (*.zip)|*.zip";
inline constexpr const char* measurement = "241224180000_P_Zizka_Jan~D^T.daf";

inline std::string klientDatOf(const std::string& prijmeni, const std::string& jmeno,
                               const std::string& more = {}) {
    return "[global]\r\nprijmeni=" + prijmeni + "\r\njmeno=" + jmeno +
           "\r\nintid=a9\r\nzalozeni=1.1.2001 10:00\r\n" + more;
}

// What became of the clients: "a1 new", "a2 overwritten", "a3 skipped".
inline Texts told(const ImportedClients& clients) {
    static constexpr const char* words[] = {" new", " overwritten", " skipped"};
    Texts texts;
    for (const ImportedClient& client : clients)
        texts.push_back(client.intid + words[static_cast<std::size_t>(client.result)]);
    return texts;
}

struct ImportDesk : ExchangeDesk {
    using ExchangeDesk::ExchangeDesk;

    Texts importOne(const std::string& bytes, std::deque<bool> answers = {}) {
        offer(bytes, std::move(answers));
        return told(importClient(exchange));
    }
    Texts importMany(const std::string& bytes, std::deque<bool> answers = {}) {
        offer(bytes, std::move(answers));
        return told(importGroup(exchange));
    }
    void offer(const std::string& bytes, std::deque<bool> answers) {
        seams.dialogs.paths = {place.folder.write("offered.zip", bytes)};
        seams.dialogs.answers = std::move(answers);
    }
    [[nodiscard]] bool hasImportFolder() const {
        return fs::exists(place.session.clientsFolder / "TEMPImport");
    }
    // The names, joined by commas, in the folder of a client.
    [[nodiscard]] std::string namesOf(const std::string& intid) const {
        std::string names;
        for (const std::string& name : listFiles(folderOf(intid), "*"))
            names += (names.empty() ? "" : ",") + name;
        return names;
    }
    [[nodiscard]] std::string klientDatValue(const std::string& intid, std::string_view key) const {
        return ReadIniValue(folderOf(intid) / "klient.dat", "global", key);
    }
};

// The first intid of a desk's clock, which a new client of an import gets.
inline constexpr const char* firstIntid = "a79170121005";

} // namespace vorna

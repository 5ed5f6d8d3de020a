// The session: what start-up sets and everybody reads. There is one in a process, made by the
// program and handed on by reference.
#pragma once

#include "core/language_texts.h"
#include "platform/database.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace vorna {

// The evaluation modes. A setting can hold other numbers: they show as APM and open the TCM
// database.
inline constexpr std::int16_t modeApm = 0;
inline constexpr std::int16_t modeTcm = 1;

inline constexpr std::int16_t languageCzech = 1;
inline constexpr std::int16_t languageEnglish = 2;
inline constexpr std::int16_t languageGerman = 3;
inline constexpr std::int16_t languageRussian = 4;

// The name of the language whose alphabet sorts the clients: "cs" for language 1.
std::string alphabetOf(std::int16_t language);

struct Session {
    std::filesystem::path appFolder;     // what the installer laid down; never written but at start
    std::filesystem::path dataRoot;      // what changes
    std::filesystem::path clientsFolder; // one folder for each client
    std::filesystem::path modeFolder;    // the pictures of the mode

    std::int16_t language = 0;
    std::int16_t mode = modeTcm;

    std::string posunrez = "3"; // reserve in percent on a measured zero offset
    std::int16_t maxhod = 4000; // top of the scale, calibrated device units
    std::int16_t koeflog = 1;   // bend of the logarithmic percent
    std::int16_t dobamer = 40;  // ticks of contact that a guided point takes
    std::int16_t koef = 30;     // stored value per chart unit
    std::int16_t sklon = 100;   // slope in percent
    std::int32_t odchylka = 0;  // half-width of the band, chart units
    std::int32_t rozstep = 50;  // tolerated difference of two sides, chart units
    std::int16_t posun = 0;     // device units; a reading at or below it is no contact

    std::string userName;
    std::string userContact;

    LanguageTexts texts;
    std::optional<Database> referenceDb; // empty when it did not open
    std::optional<Database> clientDb;

    std::string currentClientFolder; // the selected client's intid; empty when none
    std::filesystem::path klientDatPath;
    bool newClientPending = false;
};

// The connection, or a Failure when it is not open.
Database& referenceDatabase(Session& session);
Database& clientDatabase(Session& session);

// A file of the selected client's folder. Failure when either name could lead out of its folder.
std::filesystem::path currentClientFile(const Session& session, std::string_view name);

} // namespace vorna

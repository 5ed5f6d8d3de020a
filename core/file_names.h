// Every file and folder name of the installation folder and the data root. No other file of the
// system spells one.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace vorna::names {

// The data root inside the common application data folder.
inline constexpr std::string_view dataRoot = "VORNA";
inline constexpr std::string_view backup = "backup";

// In the installation folder and, as working copies, in the data root.
inline constexpr std::string_view referenceTcm = "vorna-tcm.mdb";
inline constexpr std::string_view referenceApm = "vorna-apm.mdb";
inline constexpr std::string_view clients = "klienti.mdb";
inline constexpr std::string_view anamnesis = "anamneza.rtf";
inline constexpr std::string_view recommendation = "doporuceni.rtf";
inline constexpr std::string_view setup = "setup.ini";
inline constexpr std::string_view user = "user.ini";
inline constexpr std::string_view newk = "newk.ini";
inline constexpr std::string_view data = "data";
inline constexpr std::string_view html = "HTML";
inline constexpr std::string_view log = "LOG";
// There while a first run is not finished.
inline constexpr std::string_view unfinishedFirstRun = "first-run.unfinished";

// Among the clients' folders: what an import unpacks. Found without regard to case.
inline constexpr std::string_view importFolder = "TEMPImport";

// In the installation folder alone.
inline constexpr std::string_view dataMovedAside = "CANDELETEDATA";
inline constexpr std::string_view htmlMovedAside = "CANDELETEHTML";
inline constexpr std::string_view charts = "charts";
inline constexpr std::string_view help = "VORNA.chm";
inline constexpr std::string_view rezimTcm = "rezim\\tcm";
inline constexpr std::string_view rezimApm = "rezim\\apm";
inline constexpr std::string_view startSound = "start.wav";
inline constexpr std::string_view pipSound = "pip.wav";
inline constexpr std::string_view dingdongSound = "dingdong.wav";
inline constexpr std::string_view twinklesSound = "twinkles.wav";

std::string languageFile(std::int16_t language); // lang1.ini
std::string helpFile(std::int16_t language);     // VORNAhelp1.chm

// In the installation folder: the emblems of the main window.
std::string flagPicture(std::int16_t language);     // obr\flag1.png
std::string modePicture(std::string_view modeName); // obr\mode-TCM.png, modeName TCM or APM

// In a mode's folder: pictures with words in them, such as hvezdice1.jpg.
std::string languagePicture(std::string_view stem, std::int16_t language);

// In a mode's folder: one of the three picture folders of a measurement set.
std::string setPictures(int sada, int folder);

// In a mode's folder: the pictures of meridians and points, found by patterns.
inline constexpr std::string_view libraryPictures = "obr2";
inline constexpr std::string_view energyPentagram = "obr2\\lang\\EnergyPentagram1.jpg";
std::string meridianApmPicture(std::string_view meridian);             // M01apm-0*.jpg
std::string meridianTcmPicture(std::string_view meridian, int number); // M01TCM-0*.jpg, number 0, 1
std::string pointPicture(std::string_view pointLong, char side);       // 01090F*.jpg, side F, K
// The same of a point's key with the digit of its side: 0 left, 1 right. The library asks for 0.
std::string pointPictureOfTag(std::string_view tag, char kind); // 01091F*.jpg, kind F, K

// In a client's folder.
inline constexpr std::string_view klientDat = "klient.dat";
inline constexpr std::string_view measurementPattern = "*.daf";
inline constexpr std::string_view recommendationPattern = "D*.rtf";
std::string recommendationOf(std::string_view yymmdd); // D250131.rtf

// In the data root's HTML folder: the two report pages.
inline constexpr std::string_view reportPage = "sestava.html";
inline constexpr std::string_view picturePage = "sestavapicture.html";

// In the data root's HTML folder: what reports leave until the next one, and what a crash left of a
// page half written.
inline constexpr std::array<std::string_view, 4> reportLeavings{"sestava*.html", "graf*.bmp",
                                                                "rtf*-*.*", ".vorna-*~"};

// In the data root's HTML folder: the picture of one chart of a report.
std::string reportChartPicture(std::string_view reportChartKey);

} // namespace vorna::names

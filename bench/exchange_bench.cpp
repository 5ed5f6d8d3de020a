// Export and import of all clients, from the tool's start to its end, beside the zip and unzip
// programs on the same files, run by run in turn. Prints the median of each, in milliseconds.
//
//     exchange_bench 1000 20 5      clients, files of each, runs
#include "core/file_names.h"
#include "core/settings_file.h"
#include "exchange/client_export.h"
#include "exchange/client_import.h"
#include "exchange/zip/zip_archive.h"
#include "platform/files.h"
#include "tool/process.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <random>
#include <stdexcept>

namespace {

using namespace vorna;

// Answers each chooser with one path and each question with yes.
class FixedDialogs final : public Dialogs {
public:
    explicit FixedDialogs(EventLoop& loop) : loop_(loop) {}
    void message(const std::string& text, const std::string&) override { lastMessage = text; }
    bool question(const std::string&, const std::string&) override { return true; }
    std::string input(const std::string&, const std::string&) override { return {}; }
    fs::path chooseFolder(const std::string&) override { return path; }
    fs::path chooseFile(const std::string&, const std::string&) override { return path; }
    void notice(const std::string&) override { loop_.wait(std::chrono::milliseconds{2000}); }

    fs::path path;
    std::string lastMessage;

private:
    EventLoop& loop_;
};

// A process of the tool that exports or imports.
struct Exchanger {
    Exchanger(const ToolOptions& options, const fs::path& path) : process(options) {
        process.start();
        dialogs.path = path;
    }

    ToolProcess process;
    FixedDialogs dialogs{process.loop};
    Platform platform{process.loop,      process.clock,  process.platform.locale, dialogs,
                      process.clipboard, process.opener, process.sound,           process.drawing};
    ClientContext clients = clientContext(process.window, process.session, platform);
    ExchangeContext context{.clients = clients, .makeArchive = makeZipArchive};
};

void writeFile(const fs::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary) << bytes;
}

// Clients as a practice has them: a klient.dat, an anamnesis, and measurements of 300 bytes.
void makeClients(const ToolOptions& options, int clients, int files) {
    std::mt19937 random(1);
    const fs::path dataRoot = options.commonData / names::dataRoot;
    const std::string anamnesis = readWholeFile(under(dataRoot, names::anamnesis));
    Database database(under(dataRoot, names::clients));
    Transaction transaction(database);
    for (int i = 0; i < clients; ++i) {
        const std::string intid = "a" + std::to_string(800000000 + i) + "05";
        const std::string surname = "Novák" + std::to_string(i);
        database.execute("insert into klienti (prijmeni, jmeno, intid, zalozeni)"
                         " values (?, 'Jana', ?, '31.1.2025 14:30:05')",
                         {surname, intid});
        const fs::path folder = dataRoot / names::data / intid;
        fs::create_directory(folder);
        writeFile(folder / names::klientDat, "[global]\r\nprijmeni=" + surname +
                                                 "\r\njmeno=Jana\r\nnarozeni=01.02.1980\r\nintid=" +
                                                 intid + "\r\ntelefon=+420 123 456 789\r\n");
        writeFile(folder / names::anamnesis, anamnesis);
        for (int k = 2; k < files; ++k) {
            std::string values(204, ' ');
            for (int slot = 0; slot < 24; ++slot) {
                const auto value = static_cast<std::uint32_t>(500 + random() % 5500);
                for (unsigned byte = 0; byte < 4; ++byte)
                    values += static_cast<char>(value >> (8 * byte));
            }
            writeFile(folder / (std::to_string(250101120000 + 1000000LL * k) + "_P_" + surname +
                                "_Jana~Dvořák^T.daf"),
                      values);
        }
    }
    transaction.commit();
}

class Figures {
public:
    void measure(const std::string& what, const std::function<void()>& work) {
        const auto begin = std::chrono::steady_clock::now();
        work();
        times_[what].push_back(
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin)
                .count());
    }
    void run(const std::string& what, const std::string& command) {
        measure(what, [&] {
            if (std::system(command.c_str()) != 0)
                throw std::runtime_error(command);
        });
    }
    void print() {
        for (auto& [what, times] : times_) {
            std::sort(times.begin(), times.end());
            std::cout << what << std::string(24 - std::min<std::size_t>(what.size(), 23), ' ')
                      << times[times.size() / 2] << "  (" << times.front() << " to " << times.back()
                      << ")\n";
        }
    }

private:
    std::map<std::string, std::vector<double>> times_;
};

void measureOnce(Figures& figures, const ToolOptions& options, const fs::path& folder) {
    const fs::path data = options.commonData / names::dataRoot / names::data;
    const fs::path archive = folder / "VornaExport.zip";
    fs::remove(folder / "z.zip");
    figures.run("zip -1", // the level of an export
                "cd " + data.string() + " && zip -q -r -1 " + (folder / "z.zip").string() + " .");
    figures.measure("export", [&] {
        Exchanger tool(options, folder);
        if (exportGroup(tool.context) != archive)
            throw std::runtime_error(tool.dialogs.lastMessage);
    });
    const std::string unpacked = (folder / "unpacked").string();
    figures.run("unzip and cp -r", "unzip -q " + archive.string() + " -d " + unpacked +
                                       " && cp -r " + unpacked + " " +
                                       (folder / "copied").string());
    fs::remove_all(folder / "unpacked");
    fs::remove_all(folder / "copied");
    ToolOptions empty = options;
    empty.commonData = folder / "other";
    ToolProcess(empty).start(); // the first start
    // The installation's own went to the other data root; without one each start is a first one.
    fs::create_directories(empty.commonData / names::dataRoot / names::html);
    figures.measure("import", [&] {
        Exchanger tool(empty, archive);
        if (importGroup(tool.context).empty())
            throw std::runtime_error(tool.dialogs.lastMessage);
    });
    figures.measure("import once more", [&] {
        Exchanger tool(empty, archive);
        if (importGroup(tool.context).front().result != ImportResult::Overwritten)
            throw std::runtime_error(tool.dialogs.lastMessage);
    });
    fs::remove_all(folder / "other");
}

} // namespace

int main(int argc, char** argv) {
    const auto argument = [&](int at, int otherwise) {
        return argc > at ? std::atoi(argv[at]) : otherwise;
    };
    std::string pattern = (fs::temp_directory_path() / "vorna-bench-XXXXXX").string();
    const fs::path folder = mkdtemp(pattern.data());
    const fs::path installation = VORNA_BENCH_INSTALLATION;
    copyFolderInto(installation, folder);
    const ToolOptions options{.appFolder = folder / installation.filename(),
                              .commonData = folder / "data",
                              .locale = "cs_CZ"};
    ToolProcess(options).start(); // the first start
    makeClients(options, argument(1, 1000), argument(2, 20));
    Figures figures;
    for (int i = 0; i < argument(3, 5); ++i)
        measureOnce(figures, options, folder);
    figures.print();
    std::cout << "archive                 " << fs::file_size(folder / "VornaExport.zip") / 1000
              << " kB, zip " << fs::file_size(folder / "z.zip") / 1000 << " kB\n";
    fs::remove_all(folder);
    return 0;
}

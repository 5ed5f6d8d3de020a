// One client out of another installation becomes one of this: a new client, made by driving the
// card, or an existing one, whose card is overwritten and whose files are joined by those that
// came.
#pragma once

#include "exchange/client_files.h"
#include "exchange/exchange_context.h"
#include "exchange/klient_dat.h"
#include "platform/database.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vorna {

enum class ImportResult : std::uint8_t { New, Overwritten, Skipped };

// What became of a client that an import met; for a skipped one the intid of the existing client
// that was left as it is, if there is one.
struct ImportedClient {
    std::string intid;
    ImportResult result;
};
using ImportedClients = std::vector<ImportedClient>;

// A row of the client list that has the name of the client who comes.
struct MatchedClient {
    std::size_t row;
    std::string id;
    std::string intid;
};

// A client who comes: a folder with a klient.dat.
struct ComingClient {
    std::filesystem::path source;
    KlientDat card;
    bool isTemporary = false; // the folder goes afterwards: its files may be taken away
};

// The state of one import from its beginning to its end.
class ImportRun {
public:
    explicit ImportRun(ExchangeContext& context);
    ImportRun(const ImportRun&) = delete;
    ImportRun& operator=(const ImportRun&) = delete;
    ~ImportRun(); // all that came is on the disk

    // Makes a new client, or overwrites the matched one, which goes into the backup first. When it
    // cannot, the client is skipped, and the first time that is told.
    void merge(const ComingClient& client, const std::optional<MatchedClient>& match);
    void skip(const std::string& intid);

    [[nodiscard]] ExchangeContext& context() const { return context_; }
    ImportedClients results;

private:
    void beginCard(bool matched);
    bool takeOwnIntid();
    [[nodiscard]] bool isTaken(const std::string& intid) const;
    void fillCard(const ComingClient& client);
    void makeNew(const ComingClient& client);
    void overwrite(const ComingClient& client, const MatchedClient& match);
    void storeOver(const ComingClient& client, const MatchedClient& match);
    void changeRow(const MatchedClient& match);
    void endBatch();
    void batchNext(std::chrono::steady_clock::duration taken);

    ExchangeContext& context_;
    ImportBackup backup_;
    bool refusalTold_ = false;
    std::set<std::string> folders_;    // the clients' folders, folded
    std::optional<Transaction> batch_; // several clients reach the disk together
    std::chrono::steady_clock::time_point batchBegun_;
};

} // namespace vorna

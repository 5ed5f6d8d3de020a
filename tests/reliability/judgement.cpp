#include "core/file_names.h"
#include "core/settings_file.h"
#include "platform/encoding.h"
#include "tests/reliability/trials.h"

#include <algorithm>
#include <set>

namespace vorna {
namespace {

using Faults = std::vector<std::string>;

constexpr std::string_view rootPrefix = "common/VORNA/";
constexpr const char* clientTable = "common/VORNA/klienti.mdb";

// The name of a file that a first run moved aside, as it was before.
std::string placeOf(std::string name) {
    for (const auto& [aside, original] : {std::pair{names::dataMovedAside, names::data},
                                          std::pair{names::htmlMovedAside, names::html}})
        if (const std::string prefix = "installation/" + std::string(aside);
            name.starts_with(prefix))
            name.replace(0, prefix.size(), "installation/" + std::string(original));
    return name;
}

Tree atTheirPlaces(const Tree& files) {
    Tree placed;
    for (const auto& [name, bytes] : files)
        placed[placeOf(name)] = bytes;
    return placed;
}

// The name, below the data root, of what a file in a backup was; empty for any other file.
std::string backedUpName(const std::string& name) {
    const std::string backups = std::string(rootPrefix) + "backup/";
    if (!name.starts_with(backups))
        return {};
    return std::string(rootPrefix) + name.substr(name.find('/', backups.size()) + 1);
}

const std::string* find(const Tree& files, const std::string& name) {
    const auto at = files.find(name);
    return at == files.end() ? nullptr : &at->second;
}

std::map<std::string, std::string> entriesOf(const std::string& bytes) {
    std::map<std::string, std::string> entries;
    for (const IniEntry& entry : parseIniEntries(decodeTextFile(bytes).text))
        entries[entry.key] = entry.value;
    return entries;
}

// Holds what a trial left against the machine before and after a whole run.
class Judgement {
public:
    Judgement(const Operation& operation, const Trials& trials, const Trial& trial)
        : operation_(operation), trial_(trial), old_(trials.before), fresh_(trials.whole.state),
          before_(atTheirPlaces(old_.files)), after_(atTheirPlaces(fresh_.files)),
          now_(atTheirPlaces(trial.state.files)) {}

    Faults faults() {
        for (const auto& [name, bytes] : now_)
            judgeFile(name, bytes);
        for (const auto& [name, bytes] : before_)
            if (!now_.contains(name) && after_.contains(name))
                add(name, "is gone");
        if (operation_.isStart)
            for (const auto& [name, bytes] : after_)
                if (!now_.contains(name) && backedUpName(name).empty())
                    add(name, "never came");
        judgeDatabases();
        for (const auto& [name, tree] : trial_.state.archives)
            if (tree != valueOr(old_.archives, name) && tree != valueOr(fresh_.archives, name))
                add(name, "is no whole archive");
        for (const std::string& name : trial_.state.damaged)
            add(name, "is damaged");
        for (const fs::path& file : trial_.torn)
            if (!isTemporaryName(pathText(file.filename())) && !isImportFolder(pathText(file)) &&
                pathText(file).find(".mdb") == std::string::npos)
                add(pathText(file.filename()), "stands half written");
        for (const std::string& stray : trial_.strays)
            add(stray, "is outside");
        if (!trial_.escaped.empty())
            add(trial_.escaped, "came out");
        return std::move(faults_);
    }

private:
    template <class Map>
    static typename Map::mapped_type valueOr(const Map& map, const std::string& name) {
        const auto at = map.find(name);
        return at == map.end() ? typename Map::mapped_type{} : at->second;
    }

    void add(const std::string& name, const std::string& what) {
        faults_.push_back(name + " " + what);
    }

    static bool isImportFolder(const std::string& name) {
        return name.find("/data/TEMPImport/") != std::string::npos;
    }

    void judgeFile(const std::string& name, const std::string& bytes) {
        const std::string* const old = find(before_, name);
        const std::string* const fresh = find(after_, name);
        if (name.ends_with("-journal")) // of no consequence: the database was opened after that
            return;
        if (isTemporaryName(pathText(fs::path(name).filename()))) {
            if (!trial_.fault.lasting && !trial_.failed.starts_with("unlink"))
                add(name, "is left behind");
        } else if (isImportFolder(name)) {
            return;
        } else if (const std::string origin = backedUpName(name); !origin.empty()) {
            // A start may lay aside what the one before it has made.
            if (const std::string* const original = find(before_, origin);
                original == nullptr ? !operation_.isStart : *original != bytes)
                add(name, "is no backup");
        } else if ((old == nullptr || *old != bytes) && (fresh == nullptr || *fresh != bytes)) {
            judgeMixture(name, bytes);
        }
        if (old != nullptr && *old != bytes && operation_.replaces &&
            name.starts_with(rootPrefix) && !isBackedUp(name, *old))
            add(name, "was replaced without a backup");
    }

    [[nodiscard]] bool isBackedUp(const std::string& name, const std::string& bytes) const {
        return std::any_of(now_.begin(), now_.end(), [&](const auto& file) {
            return backedUpName(file.first) == name && file.second == bytes;
        });
    }

    // A file that is written in several steps, each of them whole.
    void judgeMixture(const std::string& name, const std::string& bytes) {
        const std::string ending = fs::path(name).extension();
        if (ending == ".ini" || ending == ".dat")
            judgeSettings(name, bytes);
        else if (ending == ".html")
            judgePage(name, bytes);
        else
            add(name, "is neither old nor new");
    }

    void judgePage(const std::string& name, const std::string& bytes) {
        constexpr std::size_t frame = 20;
        const std::string page = valueOr(after_, name);
        if (bytes.size() < 2 * frame || page.substr(0, frame) != bytes.substr(0, frame) ||
            !page.ends_with(bytes.substr(bytes.size() - frame)))
            add(name, "is no whole page");
    }

    // Each value is an old or a new one; a client's file, which begins as a copy of the settings,
    // has all or none of the client's.
    void judgeSettings(const std::string& name, const std::string& bytes) {
        const auto old = entriesOf(valueOr(before_, name));
        const auto fresh = entriesOf(valueOr(after_, name));
        const std::string user = valueOr(before_, std::string(rootPrefix) + "user.ini");
        const bool isClient = name.ends_with(names::klientDat);
        if (isClient && bytes == user)
            return;
        for (const auto& [key, value] : entriesOf(bytes))
            if (value != valueOr(old, key) && value != valueOr(fresh, key) &&
                value != valueOr(entriesOf(user), key) && key != "intid" && key != "zalozeni")
                add(name, "holds " + key + "=" + value);
        if (isClient && entriesOf(bytes).size() < 16)
            add(name, "lacks values");
        if (bytes.empty() && before_.contains(name))
            add(name, "is empty");
    }

    void judgeDatabases() {
        for (const auto& [name, tables] : fresh_.databases)
            if (!trial_.state.databases.contains(name) && backedUpName(name).empty())
                add(name, "is gone");
        for (const auto& [name, tables] : trial_.state.databases)
            if (name.ends_with(names::clients))
                judgeClients(name, tables);
            else
                judgeReference(name, tables);
    }

    // Whole in one language or the other, as any of both databases was.
    void judgeReference(const std::string& name, const Tables& tables) {
        for (const auto* const databases : {&old_.databases, &fresh_.databases})
            for (const auto& [known, content] : *databases)
                if (content == tables)
                    return;
        add(name, "is none that was");
    }

    using Clients = std::map<std::string, std::string>; // by the row's id

    static Clients clientsOf(const Tables& tables) {
        Clients clients;
        for (const std::string& row : valueOr(tables, "klienti")) {
            const std::size_t end = row.find('|');
            clients[row.substr(0, end)] = row.substr(end);
        }
        return clients;
    }

    // Each row is an old or a new one, and each new client is there once at most.
    void judgeClients(const std::string& name, const Tables& tables) {
        const std::string origin = backedUpName(name).empty() ? name : backedUpName(name);
        const Clients old = clientsOf(valueOr(old_.databases, origin));
        const Clients fresh = clientsOf(valueOr(fresh_.databases, origin));
        const Clients now = clientsOf(tables);
        if (operation_.isStart) { // which puts one table in the other's place
            if (now != old && (now != fresh || origin != name))
                add(name, "is neither the old nor the new table");
        } else {
            judgeRows(name, now, old, origin == name ? fresh : old);
        }
        const bool replaced = std::any_of(old.begin(), old.end(), [&](const auto& client) {
            return valueOr(now, client.first) != client.second;
        });
        if (replaced && operation_.replaces && !hasTableInBackup(name, old))
            add(name, "was changed without a backup");
    }

    void judgeRows(const std::string& name, const Clients& now, const Clients& old,
                   const Clients& fresh) {
        std::set<std::string> unused;
        for (const auto& [id, row] : clientsOf(valueOr(fresh_.databases, clientTable)))
            if (!old.contains(id))
                unused.insert(row);
        for (const auto& [id, row] : old)
            if (!now.contains(id))
                add(name, "lost client " + id);
        for (const auto& [id, row] : now)
            if (old.contains(id) ? row != old.at(id) && row != valueOr(fresh, id)
                                 : unused.erase(row) == 0)
                add(name, "holds " + row);
    }

    // With the old rows; what came before the table was laid aside may stand there too.
    [[nodiscard]] bool hasTableInBackup(const std::string& name, const Clients& old) const {
        const auto& all = trial_.state.databases;
        return std::any_of(all.begin(), all.end(), [&](const auto& database) {
            const Clients kept = clientsOf(database.second);
            return backedUpName(database.first) == name &&
                   std::includes(kept.begin(), kept.end(), old.begin(), old.end());
        });
    }

    const Operation& operation_;
    const Trial& trial_;
    const MachineState& old_;
    const MachineState& fresh_;
    Tree before_;
    Tree after_;
    Tree now_;
    Faults faults_;
};

} // namespace

std::vector<std::string> faultsOf(const Operation& operation, const Trials& trials,
                                  const Trial& trial) {
    return Judgement(operation, trials, trial).faults();
}

} // namespace vorna

#include "core/number.h"
#include "platform/failure.h"
#include "tool/command.h"

#include <algorithm>

namespace vorna {
namespace {

using nlohmann::ordered_json;

CommandResult listClients(const std::string& filter, const ToolOptions& options) {
    ToolProcess process(options);
    process.start();
    process.window.clients.filter.text = filter;
    call(process.window.clients.filter.edited);
    auto rows = ordered_json::array();
    for (const ListRow& row : process.window.clients.list.rows())
        rows.push_back(clientRowAnswer(row));
    return {{{"messages", messagesOf(process)}, {"rows", rows}}};
}

struct SaveArguments {
    bool isNew = false;
    std::string client;
    std::vector<std::string> fields; // FIELD=VALUE
    bool twice = false;
};

struct Field {
    std::string name;
    std::string value;
};

Field parseField(const std::string& typed) {
    const std::size_t equals = typed.find('=');
    if (equals == std::string::npos)
        throw WrongUsage("--set: \"" + typed + "\" has not the form FIELD=VALUE");
    return {.name = typed.substr(0, equals), .value = typed.substr(equals + 1)};
}

void chooseRow(ComboBox& list, const Field& field) {
    const bool chosen = attempt([&] {
        const double number = numberOfDecimalText(field.value);
        list.choose(roundToInt32(number));
        if (list.index.get() != number)
            throw Failure("a list has no such row");
    });
    if (!chosen)
        throw WrongUsage("--set " + field.name + ": \"" + field.value +
                         "\" is no row of the list; rows count from 0, -1 is none");
}

// Types a value into the card. The personal number is left again as the focus goes on, which fills
// birth date and gender.
void fillField(ClientCard& card, const Field& field) {
    if (TextBox* const box = cardBox(card, field.name)) {
        box->text = field.value;
        call(box->left);
    } else if (field.name == "stav") {
        chooseRow(card.maritalStatus, field);
    } else if (field.name == "pohlavi") {
        chooseRow(card.gender, field);
    } else if (field.name == "narozeni") {
        card.born.type(field.value);
    } else if (field.name == "zalozeni") {
        card.founded.text = field.value;
    } else {
        throw WrongUsage("--set: the card has no field " + field.name);
    }
}

// As Tab goes through the card: the personal number before what it fills.
void fillCard(ClientCard& card, const std::vector<std::string>& typed) {
    std::vector<Field> fields;
    fields.reserve(typed.size());
    for (const std::string& one : typed)
        fields.push_back(parseField(one));
    std::stable_partition(fields.begin(), fields.end(),
                          [](const Field& field) { return field.name == "rc"; });
    for (const Field& field : fields)
        fillField(card, field);
}

// Empty when the table cannot be asked.
std::optional<std::int64_t> highestId(Session& session) {
    std::optional<std::int64_t> id;
    attempt([&] {
        id = clientDatabase(session)
                 .query("select coalesce(max(id), 0) as id from klienti")
                 .number("id");
    });
    return id;
}

// Tries the fields on a card of nobody, so that wrong usage touches nothing.
void checkFields(const std::vector<std::string>& typed) {
    Window window("");
    ClientCard card(window);
    card.maritalStatus.rows = std::vector<std::string>(4);
    card.gender.rows = std::vector<std::string>(2);
    fillCard(card, typed);
}

// The row of a loaded card, or the first that was made since `before`. Failure when there is none.
std::int64_t storedId(ToolProcess& process, std::optional<std::int64_t> before) {
    const ClientCard& card = process.window.card;
    if (!process.session.newClientPending)
        return roundToInt32(numberOfDecimalText(card.id.text.get()));
    if (!before)
        throw Failure("what was stored cannot be told from what was there");
    return clientDatabase(process.session)
        .query("select id from klienti where id > ? order by id", {*before})
        .number("id");
}

// The stored row: as the list shows it, and every column by its name. Null when there is none.
ordered_json storedRow(ToolProcess& process, std::optional<std::int64_t> before) {
    ordered_json answer = nullptr;
    attempt([&] {
        const std::int64_t id = storedId(process, before);
        ClientListTab& tab = process.window.clients;
        tab.filter.text = "";
        fillClientList(process.session, tab);
        const auto& rows = tab.list.unfinishedRows();
        const auto at = std::find_if(rows.begin(), rows.end(), [&](const ListRow& row) {
            return row.tag == decimalText(id);
        });
        answer = clientRowAnswer(tab.list.row(static_cast<std::size_t>(at - rows.begin())));
        const Recordset row =
            clientDatabase(process.session).query("select * from klienti where id = ?", {id});
        for (const char* const column :
             {"prijmeni", "jmeno", "titulpred", "titulza", "adresa", "stav", "email", "telefon",
              "rc", "adresa2", "povolani", "telefon2", "narozeni", "intid", "zalozeni", "poslakce"})
            answer[column] = row.isNull(column) ? ordered_json(nullptr)
                                                : ordered_json(jsonText(row.text(column)));
    });
    return answer;
}

CommandResult save(const SaveArguments& arguments, const ToolOptions& options) {
    if (arguments.isNew == !arguments.client.empty())
        throw WrongUsage("client-save: one of --new and --client is wanted");
    checkFields(arguments.fields);
    ToolProcess process(options);
    process.start();
    if (arguments.isNew)
        process.window.clients.newClient.click();
    else
        process.selectClient(arguments.client);
    fillCard(process.window.card, arguments.fields);
    const std::optional<std::int64_t> before = highestId(process.session);
    process.window.card.save.click();
    if (arguments.twice)
        process.window.card.save.click();
    ordered_json row = storedRow(process, before);
    return {{{"messages", messagesOf(process)},
             {"row", std::move(row)},
             {"intid", jsonText(process.window.card.intid.text.get())}}};
}

} // namespace

nlohmann::ordered_json clientRowAnswer(const ListRow& row) {
    ordered_json id = nullptr;
    attempt([&] { id = roundToInt32(numberOfDecimalText(row.tag)); });
    auto columns = ordered_json::array({jsonText(row.text)});
    for (const std::string& column : row.sub)
        columns.push_back(jsonText(column));
    return {{"id", id}, {"columns", columns}};
}

CommandBody declareClients(CLI::App& subcommand) {
    const auto filter = std::make_shared<std::string>();
    subcommand.add_option("--filter", *filter, "what the surname holds");
    return [filter](const ToolOptions& options) { return listClients(*filter, options); };
}

CommandBody declareClientSave(CLI::App& subcommand) {
    const auto arguments = std::make_shared<SaveArguments>();
    subcommand.add_flag("--new", arguments->isNew, "a new client");
    subcommand.add_option("--client", arguments->client, "the client's intid");
    subcommand
        .add_option("--set", arguments->fields, "FIELD=VALUE: a column of klienti, or pohlavi")
        ->allow_extra_args(false);
    subcommand.add_flag("--twice", arguments->twice, "presses save again on the same card");
    return [arguments](const ToolOptions& options) { return save(*arguments, options); };
}

CommandBody declareClientDelete(CLI::App& subcommand) {
    const auto client = std::make_shared<std::string>();
    subcommand.add_option("--client", *client, "the client's intid")->required();
    return [client](const ToolOptions& options) -> CommandResult {
        ToolProcess process(options);
        process.start();
        process.selectClient(*client);
        process.window.clients.deleteClient.click();
        return {{{"messages", messagesOf(process)}}};
    };
}

} // namespace vorna

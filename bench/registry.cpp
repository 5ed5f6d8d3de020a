#include "bench/registry.h"

#include "core/file_names.h"
#include "platform/database.h"
#include "platform/files.h"

#include <array>
#include <fcntl.h>
#include <unistd.h>

namespace vorna {

std::string madeSurname(std::mt19937& random) {
    static constexpr std::array syllables{
        "No", "vá", "Svo", "bo", "Dvo", "řá", "Čer", "ný",  "Pro", "chá", "Ku", "če", "Ve", "se",
        "Ho", "rá", "Ně",  "me", "Po",  "ko", "Ma",  "rek", "Já",  "ra",  "Še", "Ži", "Chu"};
    std::string name;
    const auto any = [&] { return syllables[random() % syllables.size()]; };
    for (std::size_t i = 2 + random() % 2; i > 0; --i)
        name += any();
    return name + (random() % 2 == 0 ? "k" : "ková");
}

void makeRegistry(const std::filesystem::path& dataRoot, int clients, int measurements) {
    std::mt19937 random(1);
    Database database(under(dataRoot, names::clients));
    Transaction transaction(database);
    for (int i = 0; i < clients; ++i) {
        const std::string intid = "a" + std::to_string(800000000 + i) + "05";
        database.execute(
            "insert into klienti (prijmeni, jmeno, narozeni, telefon, intid, zalozeni)"
            " values (?, ?, '01.02.1980', '+420 123 456 789', ?, '31.1.2025 14:30:05')",
            {madeSurname(random), "Jana", intid});
        const std::filesystem::path folder = dataRoot / names::data / intid;
        std::filesystem::create_directory(folder);
        for (int k = 0; k < measurements; ++k) {
            const std::string name =
                std::to_string(250101120000 + 1000000LL * k) + "_P_N_J~D^T.daf";
            ::close(::open((folder / name).c_str(), O_WRONLY | O_CREAT, 0600));
        }
    }
    transaction.commit();
}

} // namespace vorna

#include "platform/ftdi_memory.h"
#include "platform/serial_line.h"
#include "platform/serial_ports.h"
#include "platform/simulated_port.h"
#include "tests/support/scratch_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace vorna {
namespace {

using testing::ElementsAre;

TEST(SerialLine, NamesTheDevicePathOfASetting) {
    const std::pair<const char*, const char*> cases[] = {
        {"/dev/pts/3", "/dev/pts/3"},
        {"COM4", "/dev/ttyUSB4"},
        {"com12", "/dev/ttyUSB12"},
        {"COM0", "/dev/ttyUSB0"},
        {"COM", "COM"},
        {"COM4:", "COM4:"},
        {"COM../x", "COM../x"},
        {"", ""},
        {"LPT1", "LPT1"},
    };
    for (const auto& [port, path] : cases)
        EXPECT_EQ(serialDevicePath(port), path);
}

// The system's folder of terminals in small: three ports of two devices, other terminals, an entry
// whose device is gone and one of no USB device.
class SerialPorts : public testing::Test {
protected:
    SerialPorts() {
        device("1-2", "1\n", "12\n");
        device("1-10", "1\n", "7\n");
        device("broken", "one\n", "7\n");
        port("ttyUSB3", "1-2/1-2:1.0/ttyUSB3");
        port("ttyUSB10", "1-10/1-10:1.0/ttyUSB10");
        port("ttyUSB2", "1-10/1-10:1.1/ttyUSB2");
        port("ttyUSB5", "broken/ttyUSB5");
        port("ttyS0", "serial/ttyS0");
        port("ttyUSB7", "serial/ttyUSB7");
        fs::create_symlink("../devices/gone", folder / "tty" / "ttyUSB9");
        fs::create_directories(folder / "tty" / "ttyUSBx");
    }
    void device(const std::string& name, const char* bus, const char* number) const {
        folder.write("devices/" + name + "/busnum", bus);
        folder.write("devices/" + name + "/devnum", number);
    }
    void port(const std::string& name, const std::string& entry) const {
        fs::create_directories(folder / "devices" / entry);
        fs::create_directories(folder / "tty");
        fs::create_symlink("../devices/" + entry, folder / "tty" / name);
    }
    ScratchFolder folder;
};

TEST_F(SerialPorts, AreListedByNumber) {
    EXPECT_THAT(serialPortNumbers(folder / "tty"), ElementsAre(2, 3, 5, 7, 9, 10));
    EXPECT_THAT(serialPortNumbers(folder / "nothing"), ElementsAre());
}

TEST_F(SerialPorts, AreFoundByTheAddressOfTheirDevice) {
    EXPECT_EQ(serialPortOfDevice({1, 12}, folder / "tty"), 3);
    EXPECT_EQ(serialPortOfDevice({1, 7}, folder / "tty"), 2); // the lowest of two
    EXPECT_EQ(serialPortOfDevice({2, 12}, folder / "tty"), std::nullopt);
}

// A chip's memory with a description at 0x18 and a serial number behind it.
std::vector<std::uint8_t> memoryWith(std::u16string_view description,
                                     std::u16string_view serialNumber, std::uint8_t addressBit) {
    std::vector<std::uint8_t> memory(256, 0xFF);
    std::size_t free = 0x18;
    const auto put = [&](std::size_t entry, std::u16string_view text) {
        memory[entry] = static_cast<std::uint8_t>(free | addressBit);
        memory[entry + 1] = static_cast<std::uint8_t>(2 + 2 * text.size());
        memory[free] = memory[entry + 1];
        memory[free + 1] = 3;
        free += 2;
        for (const char16_t unit : text) {
            memory[free++] = static_cast<std::uint8_t>(unit & 0xFF);
            memory[free++] = static_cast<std::uint8_t>(unit >> 8);
        }
    };
    put(0x10, description);
    put(0x12, serialNumber);
    return memory;
}

TEST(FtdiMemory, TellsTheNamesOfTheDevice) {
    for (const std::uint8_t addressBit : {std::uint8_t{0x00}, std::uint8_t{0x80}}) {
        const DeviceNames names =
            parseFtdiMemory(memoryWith(u"Měřicí sonda", u"A10482", addressBit));
        EXPECT_EQ(names.description, "Měřicí sonda");
        EXPECT_EQ(names.serialNumber, "A10482");
    }
    const DeviceNames cut =
        parseFtdiMemory(memoryWith(std::u16string_view(u"ab\0cd", 5), u"12345678901234567890", 0));
    EXPECT_EQ(cut.description, "ab");
    EXPECT_EQ(cut.serialNumber, "1234567890123456");
}

TEST(FtdiMemory, OfABlankOrDamagedMemoryNothingIsTold) {
    const std::vector<std::uint8_t> blank(256, 0xFF);
    EXPECT_EQ(parseFtdiMemory(blank).description, "");
    EXPECT_EQ(parseFtdiMemory({}).serialNumber, "");
    std::mt19937 random(3);
    for (int round = 0; round < 2000; ++round) {
        std::vector<std::uint8_t> memory(random() % 257);
        for (std::uint8_t& byte : memory)
            byte = static_cast<std::uint8_t>(random() % 4 == 0 ? 3 : random());
        EXPECT_LE(parseFtdiMemory(memory).serialNumber.size(), 16U * 3);
    }
}

TEST(SimulatedPort, IsTheTerminalOfTheRunningProgram) {
    const ScratchFolder processes;
    EXPECT_FALSE(runningSimulatedPort(processes.path()));
    processes.write("17/comm", "bash\n");
    processes.write("17/fdinfo/3", "pos:\t0\ntty-index:\t2\n");
    processes.write("23/comm", "vorna-probe\n");
    processes.write("23/fdinfo/0", "pos:\t0\nflags:\t0100002\n");
    EXPECT_FALSE(runningSimulatedPort(processes.path()));
    processes.write("23/fdinfo/4", "pos:\t0\ntty-index:\t11\n");
    EXPECT_EQ(runningSimulatedPort(processes.path()), fs::path("/dev/pts/11"));
}

} // namespace
} // namespace vorna

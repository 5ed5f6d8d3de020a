// Over real pseudo-terminals: the simulated probe's end of one, and this end opened as a port.
#include "acquisition/reading_line.h"
#include "platform/devices/qt_serial_line.h"
#include "probe/pseudo_terminal.h"
#include "tests/support/scratch_folder.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <functional>
#include <memory>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vorna {
namespace {

// Qt's event loop until `done` says so; false when that took too long.
bool runUntil(const std::function<bool()>& done) {
    QElapsedTimer time;
    time.start();
    while (!done()) {
        if (time.hasExpired(10'000))
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    return true;
}

void runFor(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

double processorSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) * 1e-6;
}

class QtSerialLineTest : public testing::Test {
protected:
    QtSerialLineTest() {
        line.received = [this](std::string_view text) { received += text; };
    }
    void open() {
        ASSERT_TRUE(line.open(terminal->path()));
        line.configure("9600,n,8,1");
        ASSERT_TRUE(runUntil([&] { return terminal->hasReader(); }));
    }

    std::unique_ptr<PseudoTerminal> terminal = std::make_unique<PseudoTerminal>();
    QtSerialLine line;
    std::string received;
};

TEST_F(QtSerialLineTest, HandsOverWhatComesInOrder) {
    open();
    std::string sent;
    for (int reading = 0; reading < 300; ++reading) {
        terminal->write(formatReadingLine(reading));
        sent += formatReadingLine(reading);
    }
    EXPECT_TRUE(runUntil([&] { return received.size() >= sent.size(); }));
    EXPECT_EQ(received, sent);
}

TEST_F(QtSerialLineTest, EveryByteArrivesAsItWasSent) {
    open();
    std::string sent;
    for (int byte = 0; byte < 256; ++byte)
        sent += static_cast<char>(byte);
    terminal->write(sent);
    EXPECT_TRUE(runUntil([&] { return received.size() >= sent.size(); }));
    EXPECT_EQ(received, sent);
}

TEST_F(QtSerialLineTest, SendsWhileOpenAlone) {
    line.send("c");
    open();
    line.send("c");
    std::string sent;
    EXPECT_TRUE(runUntil([&] { return !(sent += terminal->read()).empty(); }));
    line.close();
    line.send("c");
    runFor(50);
    EXPECT_EQ(sent + terminal->read(), "c");
}

TEST_F(QtSerialLineTest, NothingComesAfterAClose) {
    open();
    terminal->write("xx1.234\r\n");
    line.close();
    line.close();
    runFor(50);
    EXPECT_EQ(received, "");
    open();
    terminal->write("xx2.345\r\n");
    EXPECT_TRUE(runUntil([&] { return received.find("2.345\r\n") != std::string::npos; }));
}

TEST_F(QtSerialLineTest, AnOpenLineStaysAsItIs) {
    open();
    EXPECT_FALSE(line.open(terminal->path()));
    terminal->write("xx1.234\r\n");
    EXPECT_TRUE(runUntil([&] { return received == "xx1.234\r\n"; }));
}

TEST_F(QtSerialLineTest, OpensNothingThatIsNoPort) {
    const ScratchFolder folder;
    const std::string file = folder.write("file", "xx1.234\r\n").string();
    const std::string pipe = (folder / "pipe").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& path : {std::string("/dev/ttyUSB_nothing"), std::string(), file, pipe,
                                    folder.path().string(), std::string("/dev/null")})
        EXPECT_FALSE(line.open(path)) << path;
    EXPECT_TRUE(line.open(terminal->path())); // as before
}

TEST_F(QtSerialLineTest, APortWithoutPermissionDoesNotOpen) {
    ASSERT_EQ(chmod(terminal->path().c_str(), 0), 0);
    // The superuser may open everything, so that the test steps down for a moment.
    const bool superuser = geteuid() == 0;
    if (superuser) {
        ASSERT_EQ(seteuid(65534), 0);
    }
    EXPECT_FALSE(line.open(terminal->path()));
    if (superuser) {
        ASSERT_EQ(seteuid(0), 0);
    }
}

// What came before still arrives; then the line is quiet, costs nothing and can be opened again.
TEST_F(QtSerialLineTest, APortThatVanishesIsQuiet) {
    open();
    terminal->write("xx1.234\r\n");
    EXPECT_TRUE(runUntil([&] { return received == "xx1.234\r\n"; }));
    terminal.reset();
    runFor(100);
    const double before = processorSeconds();
    line.send("c");
    runFor(300);
    EXPECT_LT(processorSeconds() - before, 0.15);
    terminal = std::make_unique<PseudoTerminal>();
    open();
    terminal->write("xx2.345\r\n");
    EXPECT_TRUE(runUntil([&] { return received == "xx1.234\r\nxx2.345\r\n"; }));
    line.close();
}

TEST_F(QtSerialLineTest, TakesAFlood) {
    open();
    const std::string block(1000, 'x');
    std::size_t sent = 0;
    EXPECT_TRUE(runUntil([&] {
        // The pseudo-terminal takes what it has room for; the end is a full block.
        terminal->write(block);
        sent += block.size();
        return received.size() > 1'000'000;
    }));
    EXPECT_GE(sent, received.size());
    EXPECT_EQ(received.find_first_not_of('x'), std::string::npos);
}

TEST_F(QtSerialLineTest, TextThatNobodyTakesDoesNotPileUp) {
    open();
    constexpr std::size_t sent = 200'000;
    for (std::size_t i = 0; i < sent; ++i)
        line.send("c");
    runFor(50);
    std::size_t taken = 0;
    for (std::string text; !(text = terminal->read()).empty(); runFor(1))
        taken += text.size();
    EXPECT_GT(taken, 0U);
    EXPECT_LT(taken, sent / 10);
}

} // namespace
} // namespace vorna

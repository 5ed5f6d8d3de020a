#include "platform/devices/ftdi_device_search.h"
#include "platform/virtual_event_loop.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

// Whatever is plugged in here: nothing throws, and what was not opened answers so.
TEST(FtdiDeviceSearch, AnswersWithoutADevice) {
    VirtualClock clock{LocalTime{}};
    VirtualEventLoop loop{clock};
    FtdiDeviceSearch search(loop);
    EXPECT_NE(search.readMemory().status, 0);
    EXPECT_EQ(search.portNumber(), std::nullopt);
    EXPECT_FALSE(search.close());
    EXPECT_TRUE(search.open() || search.readMemory().status != 0);
    static_cast<void>(search.portNumber());
    static_cast<void>(search.ports());
}

} // namespace
} // namespace vorna

// What the program's own libraries offer by name. Each library has `vornaVersion`, the version that
// it was built with, and the makers of its seams; whoever calls one owns what it gives.
#pragma once

#include "exchange/archive.h"
#include "platform/device_search.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/serial_line.h"

#pragma GCC visibility push(default)
extern "C" {
const char* vornaVersion();

// Library `archive`; as an ArchiveMaker.
vorna::Archive* makeArchive(vorna::WorkProgress* progress);

// Library `devices`. The loop must outlive the search.
vorna::SerialLine* makeSerialLine();
vorna::DeviceSearch* makeDeviceSearch(vorna::EventLoop* loop);

// Library `sound`.
vorna::Sound* makeSound();
}
#pragma GCC visibility pop

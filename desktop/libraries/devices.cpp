#include "desktop/libraries/makers.h"
#include "platform/devices/ftdi_device_search.h"
#include "platform/devices/qt_serial_line.h"

vorna::SerialLine* makeSerialLine() {
    return new vorna::QtSerialLine;
}

vorna::DeviceSearch* makeDeviceSearch(vorna::EventLoop* loop) {
    return new vorna::FtdiDeviceSearch(*loop);
}

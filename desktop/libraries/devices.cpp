// What the program finds in its library of devices by its name.
#include "platform/devices/ftdi_device_search.h"
#include "platform/devices/qt_serial_line.h"

#include <QtGlobal>

extern "C" Q_DECL_EXPORT vorna::SerialLine* makeSerialLine() {
    return new vorna::QtSerialLine;
}

extern "C" Q_DECL_EXPORT vorna::DeviceSearch* makeDeviceSearch(vorna::EventLoop* loop) {
    return new vorna::FtdiDeviceSearch(*loop);
}

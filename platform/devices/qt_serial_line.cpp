#include "platform/devices/qt_serial_line.h"

#include "platform/log.h"
#include "platform/text.h"

#include <QMetaObject>
#include <QSerialPort>
#include <QString>

#include <charconv>

namespace vorna {
namespace {

// A port that takes nothing must not let the waiting text grow.
constexpr qint64 waitingTextLimit = 256;

int numberIn(std::string_view text) {
    int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

QSerialPort::Parity parityOf(std::string_view letter) {
    if (letter == "e")
        return QSerialPort::EvenParity;
    if (letter == "o")
        return QSerialPort::OddParity;
    if (letter == "m")
        return QSerialPort::MarkParity;
    if (letter == "s")
        return QSerialPort::SpaceParity;
    return QSerialPort::NoParity;
}

} // namespace

class QtSerialLine::Port final : public QSerialPort {
public:
    explicit Port(QtSerialLine& line) : line_(line) {
        connect(this, &QSerialPort::readyRead, this, [this] { handOver(); });
        connect(this, &QSerialPort::errorOccurred, this, [this](QSerialPort::SerialPortError e) {
            // A port that is gone is ready to read without end; nothing but closing it helps. Not
            // here, where the port is still at work.
            if (isOpen() && (e == ResourceError || e == ReadError))
                QMetaObject::invokeMethod(
                    this, [this] { giveUp(); }, Qt::QueuedConnection);
        });
    }

private:
    void handOver() {
        const QByteArray text = readAll();
        if (!text.isEmpty() && line_.received)
            line_.received({text.constData(), static_cast<std::size_t>(text.size())});
    }
    void giveUp() {
        if (!isOpen())
            return;
        logLine("the probe's port is gone");
        handOver();
        close();
    }

    QtSerialLine& line_;
};

QtSerialLine::QtSerialLine() = default;

QtSerialLine::~QtSerialLine() = default;

bool QtSerialLine::open(const std::string& devicePath) {
    if (port_ && port_->isOpen())
        return false;
    // A new one each time: what was still under way at the old one's end is gone with it.
    port_ = std::make_unique<Port>(*this);
    port_->setPortName(QString::fromStdString(devicePath));
    if (port_->open(QIODevice::ReadWrite))
        return true;
    logLine("the probe's port does not open: " + port_->errorString().toStdString());
    return false;
}

void QtSerialLine::configure(std::string_view settings) {
    const std::vector<std::string_view> parts = split(settings, ',');
    if (!port_ || parts.size() != 4)
        return;
    port_->setBaudRate(numberIn(parts[0]));
    port_->setParity(parityOf(parts[1]));
    port_->setDataBits(static_cast<QSerialPort::DataBits>(numberIn(parts[2])));
    port_->setStopBits(numberIn(parts[3]) == 2 ? QSerialPort::TwoStop : QSerialPort::OneStop);
    port_->setFlowControl(QSerialPort::NoFlowControl);
}

void QtSerialLine::send(std::string_view text) {
    if (port_ && port_->isOpen() && port_->bytesToWrite() < waitingTextLimit)
        port_->write(text.data(), static_cast<qint64>(text.size()));
}

void QtSerialLine::close() {
    if (port_ && port_->isOpen())
        port_->close();
}

} // namespace vorna

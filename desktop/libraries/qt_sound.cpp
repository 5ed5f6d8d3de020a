#include "desktop/libraries/qt_sound.h"

#include <QAudioDevice>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QTimer>
#include <QUrl>
#include <QtEndian>

#include <algorithm>
#include <chrono>

namespace vorna {

using std::chrono::milliseconds;

namespace {

// How long a WAV file lasts by its own header; 0 for what is none.
milliseconds lengthOfWav(const std::filesystem::path& file) {
    constexpr qint64 headerSize = 44; // of the form in which the program's own sounds are written
    constexpr qint64 byteRatePlace = 28;
    constexpr milliseconds longest{10'000};
    QFile wav(QString::fromStdU16String(file.u16string()));
    if (!wav.open(QIODevice::ReadOnly) || wav.size() <= headerSize)
        return milliseconds{0};
    const QByteArray header = wav.read(headerSize);
    const quint32 bytesPerSecond = qFromLittleEndian<quint32>(header.constData() + byteRatePlace);
    if (!header.startsWith("RIFF") || bytesPerSecond == 0)
        return milliseconds{0};
    return std::min(milliseconds{(wav.size() - headerSize) * 1000 / bytesPerSecond}, longest);
}

} // namespace

QtSound::QtSound() = default;

QtSound::~QtSound() = default;

void QtSound::play(const std::filesystem::path& file, bool wait) {
    const milliseconds length = lengthOfWav(file);
    if (length == milliseconds{0} || QMediaDevices::defaultAudioOutput().isNull())
        return;
    auto& effect = effects_[file.string()];
    if (!effect) {
        effect = std::make_unique<QSoundEffect>();
        effect->setSource(QUrl::fromLocalFile(QString::fromStdU16String(file.u16string())));
    }
    effect->play();
    if (!wait)
        return;
    QElapsedTimer elapsed;
    elapsed.start();
    QTimer wake;
    wake.start(milliseconds{20});
    while (elapsed.elapsed() < length.count() &&
           (effect->isPlaying() || effect->status() == QSoundEffect::Loading))
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents |
                                        QEventLoop::WaitForMoreEvents);
}

} // namespace vorna

// SPDX-License-Identifier: MIT
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <fake/FakeAudioPlugin.h>
#include <fake/FakeAudioState.h>
#include <fake/FakeAudioTrack.h>

namespace {

constexpr int kRate = 48000;       // Hz
constexpr double kPeriod = 22500;  // samples, a beat of 128 BPM
constexpr double kPi = 3.14159265358979323846;

/// Steady music: a decaying 55 Hz stroke on each beat.
qint16 Stroke(qint64 pIndex, double pVolume)
{
    const double time = std::fmod(double(pIndex), kPeriod) / kRate;
    return qint16(pVolume * std::exp(-time / 0.1) * std::sin(2.0 * kPi * 55.0 * time));
}

FakeAudioTrack::Generator TrackOf(const QString& pName)
{
    if (pName == QLatin1String("music"))
        return [](qint64 pIndex) { return Stroke(pIndex, 29000.0); };
    if (pName == QLatin1String("quiet"))
        return [](qint64 pIndex) { return Stroke(pIndex, 600.0); };
    if (pName == QLatin1String("clipped"))
        return [](qint64 pIndex) { return qint16(pIndex / 240 % 2 == 0 ? 32767 : -32768); };
    return [](qint64) { return qint16(0); };
}

FakeAudioDevice DeviceOf(const QJsonObject& pScript)
{
    const QString name = pScript[QStringLiteral("name")].toString();
    const QString track = pScript[QStringLiteral("track")].toString();
    FakeAudioDevice device = FakeAudioTrack::FromGenerator(name, kRate, TrackOf(track));
    device.channelCounts = {pScript[QStringLiteral("channels")].toInt(1)};
    if (track == QLatin1String("none"))
        device.makeSource = nullptr;
    return device;
}

}  // namespace

/// The fake back end as a plugin for programs. The devices stand in devices.json beside the
/// program; the file is read again whenever somebody asks for them, so that a test can plug and
/// unplug.
class FakeModule : public FakeAudioPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.qt.audiosystemfactory/5.0" FILE "module.json")

public:
    QList<QByteArray> availableDevices(QAudio::Mode pMode) const override
    {
        _ReadScript();
        return FakeAudioPlugin::availableDevices(pMode);
    }

private:
    void _ReadScript() const
    {
        QFile file(
            QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("devices.json")));
        if (!file.open(QIODevice::ReadOnly))
            return;
        QHash<QString, QByteArray> present;
        const QJsonArray scripts = QJsonDocument::fromJson(file.readAll()).array();
        for (const QJsonValue& script : scripts) {
            const QString name = script.toObject()[QStringLiteral("name")].toString();
            const bool isKnown = m_handles.contains(name);
            present[name] = isKnown ? m_handles.value(name)
                                    : FakeAudioState::Get().Plug(DeviceOf(script.toObject()));
        }
        for (auto known = m_handles.cbegin(); known != m_handles.cend(); ++known)
            if (!present.contains(known.key()))
                FakeAudioState::Get().Unplug(known.value());
        m_handles = present;
    }

    mutable QHash<QString, QByteArray> m_handles;  ///< by device name
};

#include "FakeModule.moc"

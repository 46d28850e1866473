// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/QtAudioInputDevice.h>
#include <AudioAnalyzer/audio/QtAudioInputDeviceInfo.h>

#include <shared/capture/InputDevices.h>

#include <algorithm>
#include <memory>
#include <numeric>
#include <utility>

namespace {

QAudioFormat FormatOf(const QtAudioInputDeviceInfo& pInfo)
{
    const std::unique_ptr<QtAudioInputDevice> device(pInfo.Create(nullptr));
    return device ? device->getPreferredInputFormat() : QAudioFormat();
}

/// How many letters have to be added, removed or replaced to make one text the other.
int EditDistance(const QString& pLeft, const QString& pRight)
{
    std::vector<int> row(std::size_t(pRight.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    for (const QChar left : pLeft) {
        int diagonal = row.front()++;
        for (std::size_t i = 1; i < row.size(); ++i) {
            const int replaced = diagonal + (left == pRight[int(i) - 1] ? 0 : 1);
            diagonal = row[i];
            row[i] = std::min({replaced, row[i] + 1, row[i - 1] + 1});
        }
    }
    return row.back();
}

/// A part of a name is as good as a misspelling of one letter.
int Distance(const QString& pWanted, const QString& pName)
{
    const QString wanted = pWanted.trimmed().toLower();
    const QString name = pName.toLower();
    const int distance = EditDistance(wanted, name);
    const bool isPart = !wanted.isEmpty() && name.contains(wanted);
    return isPart ? std::min(distance, 1) : distance;
}

}  // namespace

std::optional<SoundSource> findSoundSource(const QString& pName)
{
    if (const SoundBackEnd* pBackEnd = SoundBackEnd::get())
        for (const SoundSource& source : pBackEnd->getSources())
            if (source.name.trimmed() == pName)
                return source;
    return {};
}

bool InputDevice::isMonitor() const
{
    if (source)
        return source->isMonitor;
    return name.endsWith(QLatin1String(".monitor"), Qt::CaseInsensitive) ||
           name.startsWith(QLatin1String("Monitor of "), Qt::CaseInsensitive);
}

std::vector<InputDevice> listInputDevices()
{
    std::vector<InputDevice> devices = listInputNames();
    for (InputDevice& device : devices)
        device.format = FormatOf(QtAudioInputDeviceInfo(device.name, device.isDefault));
    return devices;
}

std::vector<InputDevice> listInputNames()
{
    std::vector<InputDevice> devices;
    const QList<QtAudioInputDeviceInfo> infos = QtAudioInputDeviceInfo::Enumerate();
    for (const QtAudioInputDeviceInfo& info : infos) {
        const bool isKnown =
            std::any_of(devices.begin(), devices.end(), [&](const InputDevice& pDevice) {
                return pDevice.name == info.getDeviceName();
            });
        if (!isKnown)
            devices.push_back({info.getDeviceName(),
                               info.isDefault(),
                               QAudioFormat(),
                               findSoundSource(info.getDeviceName())});
    }
    return devices;
}

QStringList findSimilarNames(const QString& pName, const QStringList& pNames)
{
    constexpr int kMost = 3;
    std::vector<std::pair<int, QString>> found;
    for (const QString& name : pNames) {
        const int distance = Distance(pName, name);
        // Up to a third of the letters may differ.
        if (distance <= std::max(2, pName.size() / 3))
            found.emplace_back(distance, name);
    }
    std::stable_sort(found.begin(), found.end(), [](const auto& pLeft, const auto& pRight) {
        return pLeft.first < pRight.first;
    });
    QStringList names;
    for (const auto& [distance, name] : found)
        if (names.size() < kMost)
            names.append(name);
    return names;
}

// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/AudioResampler.h>
#include <AudioAnalyzer/audio/QtAudioInputDevice.h>
#include <AudioAnalyzer/audio/detail/FormatRank.h>

namespace {

const QLatin1String kPcmCodec("audio/pcm");
constexpr int kPreferredRates[] = {48000, 44100};  // Hz, the first that is there wins
constexpr int kPreferredSize = 16;                 // bits
constexpr int kAny = 0;

bool IsUsableSize(int pSampleSize)
{
    return pSampleSize == 8 || pSampleSize == 16 || pSampleSize == 32;
}

/// Every value when pWanted is below 1, else that value alone or nothing.
QList<int> Select(const QList<int>& pValues, int pWanted)
{
    if (pWanted < 1)
        return pValues;
    return pValues.contains(pWanted) ? QList<int>{pWanted} : QList<int>{};
}

/// Intended: a size that is asked for by its value is not limited to the usable ones.
QList<int> SelectSizes(const QList<int>& pValues, int pWanted)
{
    if (pWanted >= 1)
        return Select(pValues, pWanted);
    QList<int> result;
    for (int size : pValues)
        if (IsUsableSize(size))
            result.append(size);
    return result;
}

/// The byte order is left unset.
QAudioFormat MakeFormat(int pSampleRate, int pSampleSize, int pChannelCount)
{
    QAudioFormat format;
    format.setCodec(kPcmCodec);
    format.setChannelCount(pChannelCount);
    format.setSampleSize(pSampleSize);
    format.setSampleRate(pSampleRate);
    return format;
}

/// Appends the format with the integer type that suits its size best, else with the other one, else
/// nothing.
void AppendSupported(QList<QAudioFormat>& pResult,
                     const QAudioDeviceInfo& pDevice,
                     QAudioFormat pFormat)
{
    const bool isUnsignedFirst = pFormat.sampleSize() == 8;
    const QAudioFormat::SampleType first =
        isUnsignedFirst ? QAudioFormat::UnSignedInt : QAudioFormat::SignedInt;
    const QAudioFormat::SampleType second =
        isUnsignedFirst ? QAudioFormat::SignedInt : QAudioFormat::UnSignedInt;
    for (QAudioFormat::SampleType type : {first, second}) {
        pFormat.setSampleType(type);
        if (pDevice.isFormatSupported(pFormat)) {
            pResult.append(pFormat);
            return;
        }
    }
}

}  // namespace

QList<QAudioFormat> QtAudioInputDevice::getSupportedInputFormats(int pSampleRate,
                                                                 int pSampleSize,
                                                                 int pChannelCount) const
{
    const QList<int> rates = Select(m_deviceInfo.supportedSampleRates(), pSampleRate);
    const QList<int> sizes = SelectSizes(m_deviceInfo.supportedSampleSizes(), pSampleSize);
    const QList<int> channelCounts = Select(m_deviceInfo.supportedChannelCounts(), pChannelCount);
    QList<QAudioFormat> result;
    for (int channelCount : channelCounts) {
        for (int size : sizes)
            for (int rate : rates)
                AppendSupported(result, m_deviceInfo, MakeFormat(rate, size, channelCount));
    }
    return result;
}

QAudioFormat QtAudioInputDevice::getPreferredInputFormat() const
{
    for (int rate : kPreferredRates) {
        const QList<QAudioFormat> formats = getSupportedInputFormats(rate, kPreferredSize, 1);
        if (!formats.isEmpty())
            return formats.first();
    }
    QAudioFormat best;
    quint64 bestRank = 0;
    const QList<QAudioFormat> formats = getSupportedInputFormats(kAny, kAny, kAny);
    for (const QAudioFormat& format : formats) {
        const quint64 rank = _ComputeRank(format);
        if (rank > bestRank) {
            bestRank = rank;
            best = format;
        }
    }
    return best;
}

quint64 QtAudioInputDevice::_ComputeRank(const QAudioFormat& pFormat)
{
    return detail::FormatRank(pFormat.sampleRate(), pFormat.sampleSize(), pFormat.channelCount());
}

bool QtAudioInputDevice::SetRecordingFormat(const QAudioFormat& pFormat)
{
    if (isRecording() || !pFormat.isValid() || !m_deviceInfo.isFormatSupported(pFormat) ||
        pFormat.codec().compare(kPcmCodec, Qt::CaseInsensitive) != 0 ||
        !IsUsableSize(pFormat.sampleSize()))
        return false;

    // pFormat may be one of our own: the input format, which stays the same, is set first.
    m_inputFormat = pFormat;
    m_outputFormat = m_inputFormat;
    m_frameSize = static_cast<quint64>(qint64{m_inputFormat.channelCount()} *
                                       (m_inputFormat.sampleSize() / 8));
    m_outputFormat.setChannelCount(1);
    m_outputFormat.setSampleSize(16);
    m_outputFormat.setSampleType(QAudioFormat::SignedInt);

    delete m_pResampler;
    m_pResampler = nullptr;
    if (m_inputFormat == m_outputFormat)
        return true;
    // Intended: without a converter the formats stay, and raw samples would be delivered as if they
    // were mono 16-bit.
    m_pResampler = AudioResampler::Create(m_inputFormat);
    return m_pResampler != nullptr;
}

// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/AudioResampler.h>
#include <AudioAnalyzer/audio/AudioResamplerMonoToMono.h>
#include <AudioAnalyzer/audio/AudioResamplerMultiToMono.h>

#include <QAudioFormat>

namespace {

/// T: the sample type; Acc: the type that holds the sum of a frame's channels.
template <typename T, typename Acc>
AudioResampler* CreateFor(int pChannelCount)
{
    // Intended: an unset, negative count is a large unsigned one, and takes the multi-channel way.
    if (static_cast<quint32>(pChannelCount) < 2)
        return new AudioResamplerMonoToMono<T>;
    return new AudioResamplerMultiToMono<T, Acc>(static_cast<size_t>(pChannelCount));
}

AudioResampler* CreateSigned(int pSampleSize, int pChannelCount)
{
    switch (pSampleSize) {
    case 8:
        return CreateFor<signed char, short>(pChannelCount);
    case 16:
        return CreateFor<short, int>(pChannelCount);
    case 32:
        return CreateFor<int, long long>(pChannelCount);
    default:
        return nullptr;
    }
}

AudioResampler* CreateUnsigned(int pSampleSize, int pChannelCount)
{
    switch (pSampleSize) {
    case 8:
        return CreateFor<unsigned char, unsigned short>(pChannelCount);
    case 16:
        return CreateFor<unsigned short, unsigned int>(pChannelCount);
    case 32:
        return CreateFor<unsigned int, unsigned long long>(pChannelCount);
    default:
        return nullptr;
    }
}

}  // namespace

AudioResampler::~AudioResampler() = default;

AudioResampler* AudioResampler::Create(const QAudioFormat& pFormat)
{
    // Intended: what is not signed integer is unsigned, floating point included, and the byte order
    // is not consulted: samples are the machine's own.
    const bool isSigned = pFormat.sampleType() == QAudioFormat::SignedInt;
    return isSigned ? CreateSigned(pFormat.sampleSize(), pFormat.channelCount())
                    : CreateUnsigned(pFormat.sampleSize(), pFormat.channelCount());
}

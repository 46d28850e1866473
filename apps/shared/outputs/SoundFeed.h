// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/dsp/FastFourierTransform.h>

#include <shared/capture/LiveSource.h>
#include <shared/outputs/SoundPicture.h>

#include <QObject>

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

/// The sound of a live source, as outputs hear it, some fifty times a second. Its spectrum is its
/// own, since that of the analysis pauses with the music.
///
/// Threads: one event-loop thread.
class SoundFeed : public QObject
{
    Q_OBJECT

public:
    static constexpr std::size_t kBlock = 1024;  ///< samples; 21 ms at 48 kHz
    static constexpr double kLoudestSpan = 8.0;  ///< seconds; the strongest of which is 1

    explicit SoundFeed(QObject* pParent = nullptr) : QObject(pParent) {}

    /// Not owned. To be called once.
    void Follow(LiveSource& pSource);

Q_SIGNALS:
    void OnSound(const shared::OutputSound& pSound);

private:
    void _Take(const qint16* pSamples, std::size_t pCount, std::int64_t pEnd, int pSampleRate);
    void _TakeBlock(std::int64_t pEnd, int pSampleRate);

    FastFourierTransform m_transform;
    shared::SoundPicture m_picture;
    std::array<qint16, kBlock> m_block = {};
    std::size_t m_filled = 0;  ///< samples of it
    std::vector<double> m_amplitudes;
    int m_sampleRate = 0;  ///< Hz, of the transform's history
};

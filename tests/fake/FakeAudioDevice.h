// SPDX-License-Identifier: MIT
#pragma once

#include <QAudioFormat>
#include <QByteArray>
#include <QList>
#include <QString>

#include <functional>

/// What a capture sees of its device being pulled.
enum class eVanishing
{
    eSilent,         ///< the data just ends: no signal, the state stays active
    eStopped,        ///< StoppedState is signalled
    eStreamDeleted,  ///< the stream is destroyed first, then StoppedState is signalled
};

/// The script of one input device of the fake back end.
struct FakeAudioDevice
{
    QString name;
    QList<int> sampleRates{48000};  // Hz
    QList<int> sampleSizes{16};     // bits
    QList<int> channelCounts{1};
    QList<QAudioFormat::SampleType> sampleTypes{QAudioFormat::SignedInt};

    /// When set, the one judge of a format; otherwise every PCM format made of the lists is
    /// accepted.
    std::function<bool(const QAudioFormat&)> isSupported;

    bool givesStream = true;  ///< false: start() answers null
    eVanishing vanishing = eVanishing::eSilent;

    /// When set, every capture plays it in real time: called with the format and a count of frames,
    /// it returns that many frames, or fewer once the track has ended.
    using Source = std::function<QByteArray(const QAudioFormat&, int pFrames)>;
    /// Makes the source of one capture, so that each starts at the track's beginning.
    std::function<Source()> makeSource;
};

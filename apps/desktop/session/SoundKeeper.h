// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QObject>

#include <cstddef>
#include <vector>

class LiveSource;

/// Keeps the last two minutes of a source's sound in memory while it is on, and nothing before or
/// after.
///
/// Threads: the event-loop thread.
class SoundKeeper : public QObject
{
    Q_OBJECT

public:
    static constexpr int kSeconds = 120;

    explicit SoundKeeper(QObject* pParent = nullptr);

    /// Hears a source, which is not owned; null = none. What is kept stays until another sample
    /// rate comes.
    void Follow(LiveSource* pSource);
    /// Off at first. Off forgets all.
    void setOn(bool pIsOn);
    bool isOn() const { return m_isOn; }
    double getSeconds() const;
    /// A FLAC file of what is kept, mono with 16 bits; empty when nothing is, or it fails.
    QByteArray MakeFlac() const;

private:
    void _OnSamples(const qint16* pSamples, std::size_t pCount);

    LiveSource* m_pSource = nullptr;  ///< not owned
    bool m_isOn = false;
    int m_rate = 0;              ///< Hz
    std::vector<qint16> m_ring;  ///< the capacity, once a sample has come
    std::size_t m_written = 0;   ///< samples so far
};

// SPDX-License-Identifier: MIT
#pragma once

#include <shared/outputs/OutputReceiver.h>
#include <shared/outputs/wled/detail/WledPacket.h>

#include <QByteArray>
#include <QCoreApplication>

#include <cstdint>

namespace shared {

/// LED controllers that listen to WLED's audio sync: all in the net, by multicast, or one.
///
/// What is loud is loud in relation to the loudest of the last seconds, since controllers do not
/// know how far the mixer is turned up. A beat is sent the moment it falls due, and told again for
/// a while, since packets get lost. Silence is sent as zeros.
class WledReceiver : public OutputReceiver
{
    Q_DECLARE_TR_FUNCTIONS(shared::WledReceiver)

public:
    static constexpr const char* kGroup = "239.0.0.1";  ///< where all of them listen
    static constexpr std::uint16_t kPort = 11988;
    static constexpr double kSilence = 0.003;             ///< level; -50 dB of full scale
    static constexpr double kHalfLife = 8000000.0;        ///< µs; of the loudest
    static constexpr double kGreatestMagnitude = 2040.0;  ///< effects take an eighth as a byte
    static constexpr std::int64_t kPeakTime = 40000;      ///< µs; for which a beat is told
    static constexpr std::int64_t kSoundTime = 100000;    ///< µs; without sound that are silence

    /// A name or an address.
    explicit WledReceiver(QByteArray pHost = kGroup, std::uint16_t pPort = kPort);
    ~WledReceiver() override;

    bool hearsSound() const override { return true; }
    bool Open() override;
    void Close() override;
    QString getState() const override { return m_state; }
    bool Beat(const OutputMoment& pMoment) override;
    bool Sound(const OutputSound& pSound) override;
    bool Rest() override;

private:
    bool _Connect();
    void _Hear(const OutputSound& pSound);
    bool _Send();

    QByteArray m_host;
    std::uint16_t m_port;
    QString m_state;
    int m_socket = -1;  ///< -1 = none
    detail::WledFrame m_frame = {};
    double m_loudest = kSilence;   ///< level
    std::int64_t m_fadeTime = 0;   ///< µs; to which the loudest has faded
    std::int64_t m_soundTime = 0;  ///< µs; of the last sound
    std::int64_t m_peakEnd = 0;    ///< µs; until which the last beat is told
};

}  // namespace shared

// SPDX-License-Identifier: MIT
#pragma once

#include <shared/outputs/OutputReceiver.h>
#include <shared/outputs/osc/OscSocket.h>
#include <shared/outputs/osc/OscTemplate.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <vector>

namespace shared {

/// A program that takes Open Sound Control, sent what a template says.
class OscReceiver : public OutputReceiver
{
    Q_DECLARE_TR_FUNCTIONS(shared::OscReceiver)

public:
    /// pHost: a name or an address. pName: what the messages are called in words, a preset's name.
    OscReceiver(
        const QString& pHost, int pPort, bool pIsTCP, OscTemplate pTemplate, const QString& pName);

    std::int32_t getDivision() const override { return m_template.division; }
    bool Open() override;
    /// A receiver that was told that the clock runs is told that it stands.
    void Close() override;
    QString getState() const override;
    bool Beat(const OutputMoment& pMoment) override;
    bool Tick(const OutputMoment& pMoment) override;
    /// Is sent with the beat that brings it.
    bool Tempo(double pBPM) override;
    bool Playing(bool pIsPlaying, const BeatClockState& pState) override;
    bool Rest() override { return m_socket.Look(); }

private:
    void _Note(const OutputMoment& pMoment);
    bool _IsDue(const OscRule& pRule, const ClockTick& pTick) const;
    bool _SendDue(const ClockTick& pTick);
    bool _Send(const std::vector<const OscRule*>& pRules, std::int64_t pWallTime);

    const QString m_host;
    const int m_port;
    const bool m_isTCP;
    const OscTemplate m_template;
    const QString m_name;
    OscSocket m_socket;
    OscValues m_values;
    bool m_isTempoDue = false;
};

}  // namespace shared

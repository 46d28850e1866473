// SPDX-License-Identifier: MIT
#pragma once

#include <shared/outputs/midi/MidiPort.h>

#include <QCoreApplication>
#include <QStringList>

#include <memory>

class RtMidiOut;

namespace shared {

/// A port of the ALSA sequencer: of its own that others connect to, or one that is connected to a
/// named port.
class AlsaMidiPort : public MidiPort
{
    Q_DECLARE_TR_FUNCTIONS(shared::AlsaMidiPort)

public:
    /// pTarget: a part of the name of the port to reach; empty = none, others connect to this one.
    explicit AlsaMidiPort(QString pTarget, const MidiPortName& pName = kMidiClockPort);
    ~AlsaMidiPort() override;

    bool Open() override;
    void Close() override;
    bool Send(const MidiEvent& pEvent) override;
    bool isThere() const override;
    QString getState() const override { return m_state; }

    /// The ports that can be reached; none without a sequencer.
    static QStringList ListPorts();

private:
    bool _Connect();
    int _Find() const;

    QString m_target;
    MidiPortName m_name;
    QString m_state;
    std::unique_ptr<RtMidiOut> m_out;  ///< null = closed
};

}  // namespace shared

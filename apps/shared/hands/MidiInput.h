// SPDX-License-Identifier: MIT
#pragma once

#include <shared/clock/StallQueue.h>
#include <shared/hands/HandMessage.h>

#include <QObject>
#include <QString>
#include <QTimer>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

class QSocketNotifier;
class RtMidiIn;

/// Listens to MIDI: a port of its own that pedals and consoles are connected to, at the ALSA
/// sequencer if there is one, else at the JACK server; or one that is connected to a named port. A
/// server or port that is not there, or goes, is looked for four times a second.
///
/// Threads: one event-loop thread.
class MidiInput : public QObject
{
    Q_OBJECT

public:
    static constexpr int kPauseMs = 250;  ///< between two looks for it

    explicit MidiInput(QObject* pParent = nullptr);
    ~MidiInput() override;

    /// pTarget: a part of the name of the port to hear, behind alsa: or jack: where only one is
    /// meant; empty = none. Begins, and goes on until Close().
    void Open(const QString& pTarget);
    void Close();
    bool isOpen() const { return m_jack || m_alsa; }
    /// Whom it hears, or what is wrong, in words.
    QString getState() const { return m_state; }

Q_SIGNALS:
    /// In the order in which they came.
    void OnMessage(const shared::HandMessage& pMessage);
    /// getState() has other words.
    void OnStateChanged(const QString& pWords);

private:
    struct JackEnd;

    void _Try();
    void _Reach();
    bool _HearsAlsa() const;
    bool _HearsJack() const;
    bool _OpenAlsa(const QString& pTarget);
    bool _OpenJack(const QString& pTarget);
    void _Push(const std::uint8_t* pBytes, std::size_t pSize);
    void _Read();

    /// A message.
    struct Entry
    {
        std::size_t size;  ///< bytes
        std::array<std::uint8_t, 3> bytes;
    };

    static constexpr std::size_t kMostEntries = 256;

    QString m_target;
    QString m_name;  ///< of the port to hear; empty = others connect to this one's
    QString m_state;
    QString m_said;  ///< the state that was told last
    shared::StallQueue<Entry> m_entries{kMostEntries};
    int m_bell;  ///< rings for a new entry, from the thread of whoever has it
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::unique_ptr<RtMidiIn> m_alsa;
    std::unique_ptr<JackEnd> m_jack;
    QTimer m_watch;
};

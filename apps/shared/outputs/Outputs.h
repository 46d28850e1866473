// SPDX-License-Identifier: MIT
#pragma once

#include <shared/clock/ClockThread.h>
#include <shared/outputs/OutputRunner.h>

#include <QObject>
#include <QString>
#include <QStringList>

#include <map>
#include <memory>

/// The outputs of a host, by their names: each with a thread of its own, all driven by one clock's.
///
/// Threads: one event-loop thread.
class Outputs : public QObject
{
    Q_OBJECT

public:
    /// The thread is not owned, and outlives this.
    Outputs(shared::ClockThread& pThread,
            shared::OutputRunner::Confidence pConfidence,
            QObject* pParent = nullptr);
    /// Removes all, and waits until they are closed.
    ~Outputs() override;

    /// Begins at once; one of the same name goes. pOffset: ms, positive is later.
    void Add(const QString& pName,
             std::unique_ptr<shared::OutputReceiver> pReceiver,
             double pOffset = 0.0);
    /// Waits until it is closed. False when there is none.
    bool Remove(const QString& pName);
    void RemoveAll();
    /// False when there is none. ms, positive is later.
    bool setOffset(const QString& pName, double pOffset);

    /// In the order of the alphabet.
    QStringList getNames() const;
    /// What was said last of an output; empty before.
    QString getState(const QString& pName) const;
    /// Whether it is reached.
    bool isOpen(const QString& pName) const;
    /// Whether any of them hears sound.
    bool hearsSound() const;
    /// Of now, for those that hear it.
    void Hear(const shared::OutputSound& pSound);

Q_SIGNALS:
    /// Something is to be said of an output, in words for people.
    void OnStateChanged(const QString& pName, const QString& pWords);

private:
    struct Output
    {
        quint64 number = 0;  ///< no other one has it, also of the same name
        std::unique_ptr<shared::OutputRunner> pRunner;
        QString state;
    };

    void _Note(const QString& pName, quint64 pNumber, const QString& pWords);

    shared::ClockThread& m_thread;  ///< not owned
    const shared::OutputRunner::Confidence m_confidence;
    std::map<QString, Output> m_outputs;
    quint64 m_lastNumber = 0;
};

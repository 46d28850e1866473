// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/session/OutputStore.h>
#include <shared/clock/LiveBeats.h>
#include <shared/outputs/OutputTrial.h>
#include <shared/outputs/Outputs.h>
#include <shared/outputs/SoundFeed.h>

#include <QObject>
#include <QString>
#include <QStringList>

#include <map>
#include <memory>
#include <vector>

/// What the window sends its beats to: the stored outputs that are enabled, all on or all off. What
/// changes of them, here or in another program, takes effect at once.
///
/// Threads: the event-loop thread; each output has one of its own.
class MonitorOutputs : public QObject
{
    Q_OBJECT

public:
    struct State
    {
        QString name;
        bool isReached;
    };

    enum eState
    {
        eOff,  ///< it is disabled, or all are off
        eAway,
        eReached,
        eUseless  ///< nothing can be made of it
    };

    /// A stored output.
    struct Entry
    {
        StoredOutput output;
        eState state;
        QString words;  ///< what there is to say of it; may be empty
    };

    /// Two bars that are sent to one output instead of the music's, or were sent last.
    struct Test
    {
        QString name;   ///< of the output; empty = there was none
        QString seen;   ///< what is to be seen of it, in words for people
        QString words;  ///< how it goes; may be empty
        bool isRunning = false;
        bool hasFailed = false;
    };

    /// pBeats is not owned, and outlives this. At first all are off, and nothing is read.
    explicit MonitorOutputs(LiveBeats& pBeats, QObject* pParent = nullptr);
    ~MonitorOutputs() override;

    /// On: what is stored by now begins, and what others change from now on is taken over. Off:
    /// waits until all are closed. Returns what cannot be used, in words; the rest goes on all the
    /// same.
    QStringList setOn(bool pIsOn);
    bool isOn() const { return m_isOn; }
    /// Of those that are enabled and of use.
    std::vector<State> getStates() const;
    /// All, in the order in which they are stored.
    std::vector<Entry> getEntries() const;
    /// Lets those that hear sound hear a source, which is not owned; null = none.
    void Follow(LiveSource* pSource);

    // Each returns why all is as before, in words for people, or an empty text.
    QString Add(const StoredOutput& pOutput);
    /// An output takes the place of the one called pName.
    QString Replace(const QString& pName, const StoredOutput& pOutput);
    QString Remove(const QString& pName);
    QString setEnabled(const QString& pName, bool pIsEnabled);
    /// Of an output that is there: takes effect at once, and is stored soon. ms, positive is later.
    void setOffset(const QString& pName, double pOffset);

    /// Sends two bars at 120 BPM to a stored output, enabled or not, and nothing else meanwhile.
    void Try(const QString& pName);
    /// In the language in force, as far as it tells what is to be seen.
    Test getTest() const;

Q_SIGNALS:
    /// isOn(), getStates(), getEntries() or getTest() are others.
    void OnChanged();
    /// A change that was told by nothing else could not be stored.
    void OnFailed(const QString& pReason);

private:
    void _Apply();
    bool _RemoveOthers();
    bool _AddMissing();
    void _JudgeTrial();
    void _Begin(std::unique_ptr<shared::OutputReceiver> pReceiver);
    void _End(bool pIsDone, const QString& pWords);
    bool _IsTried(const QString& pName) const { return m_trial && m_tried.name == pName; }
    void _HearSource();

    LiveBeats& m_beats;  ///< not owned
    OutputStore m_store;
    Outputs m_outputs;
    std::map<QString, StoredOutput> m_sent;  ///< what m_outputs has, by names
    std::map<QString, QString> m_faults;     ///< why one cannot be used, by names
    LiveSource* m_pSource = nullptr;         ///< not owned
    std::unique_ptr<SoundFeed> m_sound;      ///< null while nobody hears it
    std::unique_ptr<OutputTrial> m_trial;    ///< null while none runs
    StoredOutput m_tried;                    ///< by the trial that runs
    quint64 m_trials = 0;                    ///< so far
    Test m_test;
    bool m_isOn = false;
};

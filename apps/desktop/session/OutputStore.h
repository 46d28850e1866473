// SPDX-License-Identifier: MIT
#pragma once

#include <shared/outputs/OutputSettings.h>

#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <functional>
#include <map>
#include <vector>

/// The stored outputs as they are by now. A change reads them anew, in turn with other programs, so
/// that nobody's change is lost; and what others change is taken over.
///
/// Threads: one event-loop thread.
class OutputStore : public QObject
{
    Q_OBJECT

public:
    static constexpr int kLookMs = 1000;     ///< between two looks at the file
    static constexpr int kDelayMs = 500;     ///< before what changes all the time is stored
    static constexpr int kPatienceMs = 300;  ///< with another program that keeps its turn

    explicit OutputStore(QObject* pParent = nullptr);
    /// Stores what is not stored yet.
    ~OutputStore() override;

    /// Reads the file, and looks for changes of others from now on. Returns what was left out, in
    /// words for people.
    QStringList Load();
    const std::vector<StoredOutput>& getOutputs() const { return m_settings.getOutputs(); }
    /// Letter case does not count. Null when there is none. [valid until the next change]
    const StoredOutput* Find(const QString& pName) const { return m_settings.Find(pName); }

    /// What changes the outputs, and returns what is refused, or an empty text.
    using Edit = std::function<QString(OutputSettings& pSettings)>;
    /// Changes them at once. Returns why they are as before, in words for people, or an empty text.
    QString Change(const Edit& pEdit);
    /// Of an output that is there; stored soon. ms.
    void setOffset(const QString& pName, double pOffset);

Q_SIGNALS:
    /// getOutputs() are others.
    void OnChanged();
    /// What was to be stored soon is not. It is tried again with the next change.
    void OnFailed(const QString& pReason);

private:
    QString _Store(const Edit& pEdit);
    void _StoreOffsets();
    void _PutOffsets(OutputSettings& pSettings) const;
    void _Look();

    OutputSettings m_settings;
    std::map<QString, double> m_offsets;  ///< not stored yet, ms, by names
    QString m_stamp;                      ///< of the file as it was read
    QTimer m_delay;
    QTimer m_look;
};

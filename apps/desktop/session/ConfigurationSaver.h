// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

class ConfigurationStore;

/// Saves the configuration when it has been left alone for a moment, so that a slider that is
/// dragged does not write a hundred files; and takes over what other programs store.
class ConfigurationSaver : public QObject
{
    Q_OBJECT

public:
    static constexpr int kDelayMs = 800;
    static constexpr int kLookMs = 1000;  ///< between two looks at the file

    /// pStore is not owned.
    explicit ConfigurationSaver(ConfigurationStore& pStore, QObject* pParent = nullptr);

    /// From now on takes over what other programs store.
    void Watch();
    /// The configuration may have been changed: save it soon, if it was.
    void Touch();
    /// Saves at once what is not saved yet, and waits for another program that is saving. False
    /// when that fails.
    bool Save();

Q_SIGNALS:
    void OnSaved();
    /// pError says what to do. The next change tries again.
    void OnFailed(const QString& pError);
    /// Values of the configuration are others now, since another program has stored them.
    void OnTakenOver();

private:
    void _SaveSoon();
    void _Look();
    bool _Save(int pPatienceMs);

    ConfigurationStore& m_store;  ///< not owned
    QTimer m_delay;
    QTimer m_look;
    QElapsedTimer m_sinceBusy;  ///< since it could not be saved; invalid = it could
    qint64 m_patienceMs;        ///< until another program that keeps its turn is told of
};

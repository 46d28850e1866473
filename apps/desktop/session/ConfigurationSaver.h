// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>

class ConfigurationStore;

/// Saves the configuration when it has been left alone for a moment, so that a slider that is
/// dragged does not write a hundred files.
class ConfigurationSaver : public QObject
{
    Q_OBJECT

public:
    static constexpr int kDelayMs = 800;

    /// pStore is not owned.
    explicit ConfigurationSaver(ConfigurationStore& pStore, QObject* pParent = nullptr);

    /// The configuration may have been changed: save it soon, if it was.
    void Touch();
    /// Saves at once what is not saved yet. False when that fails.
    bool Save();

Q_SIGNALS:
    void OnSaved();
    /// pError says what to do. The next change tries again.
    void OnFailed(const QString& pError);

private:
    ConfigurationStore& m_store;  ///< not owned
    QTimer m_delay;
};

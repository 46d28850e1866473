// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <desktop/session/ConfigurationSaver.h>
#include <shared/settings/ConfigurationStore.h>

ConfigurationSaver::ConfigurationSaver(ConfigurationStore& pStore, QObject* pParent)
    : QObject(pParent), m_store(pStore)
{
    m_delay.setSingleShot(true);
    m_delay.setInterval(kDelayMs);
    connect(&m_delay, &QTimer::timeout, this, &ConfigurationSaver::Save);
}

void ConfigurationSaver::Touch()
{
    if (m_store.getConfiguration().isModified())
        m_delay.start();
}

bool ConfigurationSaver::Save()
{
    m_delay.stop();
    if (!m_store.getConfiguration().isModified())
        return true;
    if (!m_store.Save()) {
        Q_EMIT OnFailed(m_store.getError());
        return false;
    }
    Q_EMIT OnSaved();
    return true;
}

#include "moc_ConfigurationSaver.cpp"

// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <desktop/session/ConfigurationSaver.h>
#include <shared/settings/ConfigurationStore.h>

ConfigurationSaver::ConfigurationSaver(ConfigurationStore& pStore, QObject* pParent)
    : QObject(pParent), m_store(pStore), m_patienceMs(ConfigurationStore::kPatienceMs)
{
    m_delay.setSingleShot(true);
    m_delay.setInterval(kDelayMs);
    m_look.setInterval(kLookMs);
    connect(&m_delay, &QTimer::timeout, this, &ConfigurationSaver::_SaveSoon);
    connect(&m_look, &QTimer::timeout, this, &ConfigurationSaver::_Look);
}

void ConfigurationSaver::Watch()
{
    m_look.start();
}

void ConfigurationSaver::Touch()
{
    if (m_store.getConfiguration().isModified())
        m_delay.start();
}

bool ConfigurationSaver::Save()
{
    const bool isSaved = _Save(ConfigurationStore::kPatienceMs);
    if (!isSaved)
        Q_EMIT OnFailed(m_store.getError());
    return isSaved;
}

/// The window and the beat do not wait for another program: it is tried again instead.
void ConfigurationSaver::_SaveSoon()
{
    if (_Save(0))
        return;
    if (m_store.isBusy())
        m_delay.start();
    if (!m_sinceBusy.isValid())
        m_sinceBusy.start();
    if (!m_store.isBusy() || m_sinceBusy.hasExpired(m_patienceMs))
        Q_EMIT OnFailed(m_store.getError());
}

bool ConfigurationSaver::_Save(int pPatienceMs)
{
    m_delay.stop();
    if (!m_store.getConfiguration().isModified())
        return true;
    const bool isSaved = m_store.Save(pPatienceMs);
    if (m_store.hasTakenOver())
        Q_EMIT OnTakenOver();
    if (isSaved) {
        m_sinceBusy.invalidate();
        Q_EMIT OnSaved();
    }
    return isSaved;
}

void ConfigurationSaver::_Look()
{
    if (m_store.TakeOver())
        Q_EMIT OnTakenOver();
}

#include "moc_ConfigurationSaver.cpp"

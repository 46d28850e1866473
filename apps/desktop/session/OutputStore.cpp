// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/UISettings.h>

#include <desktop/session/OutputStore.h>
#include <shared/settings/ChoicesTurn.h>

#include <QDateTime>
#include <QFileInfo>

namespace {

/// Another one whenever the file was written.
QString StampOfChoices()
{
    const QFileInfo file(UISettings::_getDefaultPath());
    return file.exists() ? QStringLiteral("%1 %2")
                               .arg(file.lastModified().toMSecsSinceEpoch())
                               .arg(file.size())
                         : QString();
}

}  // namespace

OutputStore::OutputStore(QObject* pParent) : QObject(pParent)
{
    m_delay.setSingleShot(true);
    m_delay.setInterval(kDelayMs);
    m_look.setInterval(kLookMs);
    connect(&m_delay, &QTimer::timeout, this, &OutputStore::_StoreOffsets);
    connect(&m_look, &QTimer::timeout, this, &OutputStore::_Look);
}

OutputStore::~OutputStore()
{
    if (!m_offsets.empty())
        _Store([](OutputSettings&) { return QString(); });
}

QStringList OutputStore::Load()
{
    m_look.start();
    // Taken before the file is read: what is written meanwhile is read once more.
    m_stamp = StampOfChoices();
    m_settings = OutputSettings::Load();
    _PutOffsets(m_settings);
    return m_settings.getProblems();
}

QString OutputStore::Change(const Edit& pEdit)
{
    const QString refusal = _Store(pEdit);
    if (refusal.isEmpty())
        Q_EMIT OnChanged();
    return refusal;
}

QString OutputStore::_Store(const Edit& pEdit)
{
    shared::ChoicesTurn turn;
    if (!turn.Take(kPatienceMs))
        return turn.getError();
    OutputSettings settings = OutputSettings::Load();
    _PutOffsets(settings);
    const QString refusal = pEdit(settings);
    if (!refusal.isEmpty())
        return refusal;
    if (!settings.Save())
        return tr("The outputs cannot be stored in %1.").arg(UISettings::_getDefaultPath());
    m_offsets.clear();
    m_delay.stop();
    m_settings = settings;
    m_stamp = StampOfChoices();
    return {};
}

void OutputStore::setOffset(const QString& pName, double pOffset)
{
    m_offsets[pName] = pOffset;
    _PutOffsets(m_settings);
    m_delay.start();
    Q_EMIT OnChanged();
}

void OutputStore::_StoreOffsets()
{
    const QString refusal = Change([](OutputSettings&) { return QString(); });
    if (!refusal.isEmpty())
        Q_EMIT OnFailed(refusal);
}

void OutputStore::_PutOffsets(OutputSettings& pSettings) const
{
    for (const auto& [name, offset] : m_offsets)
        if (StoredOutput* pOutput = pSettings.Find(name))
            pOutput->offset = offset;
}

void OutputStore::_Look()
{
    if (StampOfChoices() == m_stamp)
        return;
    const std::vector<StoredOutput> before = getOutputs();
    Load();
    if (getOutputs() != before)
        Q_EMIT OnChanged();
}

#include "moc_OutputStore.cpp"

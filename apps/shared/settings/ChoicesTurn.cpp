// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/UISettings.h>

#include <shared/settings/ChoicesTurn.h>

#include <QDir>
#include <QFileInfo>
#include <QStringList>

namespace shared {

bool ChoicesTurn::Take(int pPatienceMs)
{
    const QString path = UISettings::_getDefaultPath();
    QDir().mkpath(QFileInfo(path).path());
    // QSettings has a lock of its own at the path's, for the moment in which it writes.
    return m_lock.Take(path + QStringLiteral(".turn"), pPatienceMs) != FileLock::eBusy;
}

QString ChoicesTurn::getError() const
{
    return tr("%1 is being changed by another program, which does not finish; end that program "
              "and try again")
        .arg(UISettings::_getDefaultPath());
}

QString choiceText(const QSettings& pFile, const QString& pKey)
{
    return pFile.value(pKey).toStringList().join(QStringLiteral(", ")).trimmed();
}

}  // namespace shared

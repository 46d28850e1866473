// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QDateTime>
#include <QImage>
#include <QString>

class MonitorSession;

/// One zip file of what happened: the strip as a picture and as JSON, what was said, the settings,
/// and the sound if it was kept.
class MomentFile
{
    Q_DECLARE_TR_FUNCTIONS(MomentFile)

public:
    /// The session is read only.
    explicit MomentFile(MonitorSession& pSession) : m_session(pSession) {}

    /// The file appears whole or not at all. False when it cannot be written; getError() says what
    /// to do.
    bool Save(const QString& pPath, const QImage& pPicture);
    QString getError() const { return m_error; }
    /// A file name with date and time.
    static QString MakeName(const QDateTime& pNow);

private:
    bool _Write(const QString& pPath, const QImage& pPicture);
    static QByteArray _MakeReadMe(bool pHasSound);

    MonitorSession& m_session;  ///< not owned
    QString m_error;
};

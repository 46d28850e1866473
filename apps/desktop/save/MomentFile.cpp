// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/Version.h>
#include <AudioAnalyzer/config/UISettings.h>

#include <desktop/save/MomentFile.h>
#include <desktop/save/MomentTexts.h>
#include <desktop/save/ZipWriter.h>
#include <desktop/session/MonitorSession.h>
#include <desktop/session/SoundKeeper.h>
#include <shared/clock/ClockThread.h>
#include <shared/files/WholeFile.h>

#include <QBuffer>
#include <QFile>

namespace {

QByteArray ToPng(const QImage& pPicture)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    pPicture.save(&buffer, "PNG");
    return buffer.data();
}

QByteArray ReadAll(const QString& pPath)
{
    QFile file(pPath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

QString MomentFile::MakeName(const QDateTime& pNow)
{
    return QStringLiteral("beat-monitor %1.zip")
        .arg(pNow.toString(QStringLiteral("yyyy-MM-dd HH-mm-ss")));
}

bool MomentFile::Save(const QString& pPath, const QImage& pPicture)
{
    WholeFile file;
    m_error.clear();
    if (!file.Create(pPath))
        m_error = file.getError();
    else if (!_Write(file.getTemporaryPath(), pPicture))
        m_error = tr("“%1” cannot be written: %2").arg(pPath, m_error);
    else if (!file.Commit())
        m_error = file.getError();
    return m_error.isEmpty();
}

bool MomentFile::_Write(const QString& pPath, const QImage& pPicture)
{
    const StripData& data = m_session.getStrip().getData();
    const QByteArray sound = m_session.getSound().MakeFlac();
    ZipWriter zip;
    const bool isWritten =
        zip.Open(pPath) && zip.Add(QStringLiteral("README.txt"), _MakeReadMe(!sound.isEmpty())) &&
        zip.Add(QStringLiteral("strip.png"), ToPng(pPicture)) &&
        zip.Add(QStringLiteral("strip.json"),
                moment::makeStripJson(data, shared::ClockThread::getTime())) &&
        zip.Add(QStringLiteral("log.txt"), moment::makeLog(data)) &&
        zip.Add(QStringLiteral("settings.json"),
                moment::makeSettingsJson(m_session.getConfiguration(),
                                         m_session.isAutomatic(),
                                         m_session.getOffset())) &&
        zip.Add(QStringLiteral("AudioAnalyzer.ini"),
                moment::withoutSecrets(ReadAll(UISettings::_getDefaultPath()))) &&
        (sound.isEmpty() || zip.Add(QStringLiteral("sound.flac"), sound)) && zip.Close();
    m_error = zip.getError();
    return isWritten;
}

QByteArray MomentFile::_MakeReadMe(bool pHasSound)
{
    const QString sound =
        pHasSound ? tr("sound.flac        the sound, as it was kept\n") : QString();
    return tr("What beat-monitor %1 saw in the last two minutes.\n\n"
              "strip.png         the strip: what was said, beats, level, tempo\n"
              "strip.json        the same as numbers; times are seconds before it was saved\n"
              "log.txt           what was said, with the time of day\n"
              "settings.json     the settings of the analysis\n"
              "AudioAnalyzer.ini the window and the outputs, without secrets\n"
              "%2")
        .arg(QStringLiteral(AUDIOANALYZER_VERSION), sound)
        .toUtf8();
}

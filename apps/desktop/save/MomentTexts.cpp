// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/Version.h>
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/SettingsTable.h>

#include <desktop/save/MomentTexts.h>
#include <desktop/session/ClockOfDay.h>
#include <desktop/session/StripData.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <cmath>

namespace {

QString KindOf(eBeatKind pKind)
{
    return pKind == eHeardBeat      ? QStringLiteral("heard")
           : pKind == eForeseenBeat ? QStringLiteral("foreseen")
                                    : QStringLiteral("hand");
}

double Rounded(double pValue)
{
    return std::round(pValue * 1000.0) / 1000.0;
}

QJsonArray BeliefsOf(const StripData::Column& pColumn)
{
    QJsonArray beliefs;
    for (const quint8 belief : pColumn.beliefs)
        beliefs.append(Rounded(belief / 255.0));
    return beliefs;
}

QByteArray ToText(const QJsonObject& pObject)
{
    return QJsonDocument(pObject).toJson(QJsonDocument::Indented);
}

}  // namespace

QByteArray moment::makeStripJson(const StripData& pData, std::int64_t pNow)
{
    const auto ago = [pNow](std::int64_t pTime) { return Rounded(double(pTime - pNow) / 1e6); };
    QJsonArray columns;
    for (std::int64_t number = pData.getFirst(); number < pData.getEnd(); ++number) {
        const StripData::Column& column = *pData.getColumn(number);
        columns.append(QJsonObject{{QStringLiteral("time"), ago(number * StripData::kColumn)},
                                   {QStringLiteral("level"), column.level},
                                   {QStringLiteral("bpm"), Rounded(double(column.bpm))},
                                   {QStringLiteral("playing"), column.isPlaying},
                                   {QStringLiteral("beliefs"), BeliefsOf(column)}});
    }
    QJsonArray beats;
    for (const StripData::Beat& beat : pData.getBeats())
        beats.append(QJsonObject{{QStringLiteral("time"), ago(beat.time)},
                                 {QStringLiteral("kind"), KindOf(beat.kind)},
                                 {QStringLiteral("one"), beat.isOne}});
    QJsonArray said;
    for (const StripData::Saying& saying : pData.getSayings())
        said.append(QJsonObject{{QStringLiteral("time"), ago(saying.time)},
                                {QStringLiteral("text"), saying.text}});
    QJsonArray tempi;
    for (const double bpm : pData.getTempi())
        tempi.append(Rounded(bpm));
    return ToText({{QStringLiteral("saved"),
                    desktop::toClockOfDay(pNow).toOffsetFromUtc(0).toString(Qt::ISODateWithMs)},
                   {QStringLiteral("columnSeconds"), StripData::kColumn / 1e6},
                   {QStringLiteral("columns"), columns},
                   {QStringLiteral("tempi"), tempi},
                   {QStringLiteral("beats"), beats},
                   {QStringLiteral("said"), said}});
}

QByteArray moment::makeLog(const StripData& pData)
{
    QString log;
    for (const StripData::Saying& saying : pData.getSayings())
        log += QStringLiteral("%1  %2\n").arg(desktop::describeClock(saying.time), saying.text);
    return log.toUtf8();
}

QByteArray
moment::makeSettingsJson(const Configuration& pConfiguration, bool pIsAutomatic, double pOffset)
{
    QJsonObject settings;
    for (const SettingsTable::Setting& setting : SettingsTable::getSettings())
        if (setting.get)
            settings.insert(QLatin1String(setting.pIdentifier), setting.get(pConfiguration));
    const Profile profile = pConfiguration.getSelectedProfile();
    return ToText({{QStringLiteral("version"), QStringLiteral(AUDIOANALYZER_VERSION)},
                   {QStringLiteral("tracker"),
                    pIsAutomatic ? QStringLiteral("automatic") : QStringLiteral("profile")},
                   {QStringLiteral("profile"), profile.getName()},
                   {QStringLiteral("language"), pConfiguration.getLanguage()},
                   {QStringLiteral("offsetMs"), pOffset},
                   {QStringLiteral("settings"), settings}});
}

QByteArray moment::withoutSecrets(const QByteArray& pIni)
{
    static const QRegularExpression secret(
        QStringLiteral("^([^=\\n]*(?:passw|secret|token|credential)[^=\\n]*=).*$"),
        QRegularExpression::MultilineOption | QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression user(QStringLiteral("//[^/@\\s]*@"));
    return QString::fromUtf8(pIni)
        .replace(secret, QStringLiteral("\\1"))
        .replace(user, QStringLiteral("//"))
        .toUtf8();
}

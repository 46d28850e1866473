// SPDX-License-Identifier: MIT
#include <cli/detail/ParseNumber.h>
#include <cli/settings/SettingText.h>
#include <shared/text/Text.h>

#include <QCoreApplication>
#include <QStringList>

namespace {

using Setting = SettingsTable::Setting;

std::optional<double> ReadSwitch(const QString& pText)
{
    static const QStringList kOn = {
        QStringLiteral("on"), QStringLiteral("yes"), QStringLiteral("true"), QStringLiteral("1")};
    static const QStringList kOff = {
        QStringLiteral("off"), QStringLiteral("no"), QStringLiteral("false"), QStringLiteral("0")};
    const QString text = pText.toLower();
    if (kOn.contains(text))
        return 1.0;
    return kOff.contains(text) ? std::optional<double>(0.0) : std::nullopt;
}

/// Whether the least number that may be written lies at the minimum, or at the whole number behind
/// it.
bool hasLeastNumber(const Setting& pSetting)
{
    return !pSetting.pMinimumWord || pSetting.form == SettingsTable::eWholeNumber;
}

QString LeastNumber(const Setting& pSetting)
{
    return QString::number(pSetting.minimum + (pSetting.pMinimumWord ? 1.0 : 0.0));
}

}  // namespace

QString cli::SettingText(const Setting& pSetting, double pValue)
{
    if (pSetting.form == SettingsTable::eSwitch)
        return pValue != 0.0 ? QStringLiteral("on") : QStringLiteral("off");
    if (pSetting.pMinimumWord && pValue == pSetting.minimum)
        return QLatin1String(pSetting.pMinimumWord);
    return QString::number(pValue);
}

std::optional<double> cli::ReadSetting(const Setting& pSetting, const QString& pText)
{
    if (pSetting.form == SettingsTable::eSwitch)
        return ReadSwitch(pText);
    if (pSetting.pMinimumWord &&
        pText.compare(QLatin1String(pSetting.pMinimumWord), Qt::CaseInsensitive) == 0)
        return pSetting.minimum;
    const std::optional<double> value = ParseNumber(pText);
    if (!value || !pSetting.isAllowed(*value))
        return std::nullopt;
    return pSetting.pMinimumWord && *value == pSetting.minimum ? std::nullopt : value;
}

QString cli::NumberRange(const Setting& pSetting)
{
    const QString greatest = QString::number(pSetting.maximum);
    return hasLeastNumber(pSetting) ? tr("%1 to %2").arg(LeastNumber(pSetting), greatest)
                                    : tr("up to %1").arg(greatest);
}

QString cli::SettingRange(const Setting& pSetting)
{
    if (pSetting.form == SettingsTable::eSwitch)
        return tr("on or off");
    const QString range = NumberRange(pSetting);
    return pSetting.pMinimumWord ? tr("%1 or %2").arg(range, QLatin1String(pSetting.pMinimumWord))
                                 : range;
}

QString cli::SettingRefusal(const Setting& pSetting)
{
    if (pSetting.form == SettingsTable::eSwitch)
        return tr("give on or off");
    const QString least = LeastNumber(pSetting);
    const QString greatest = QString::number(pSetting.maximum);
    QString refusal = tr("give a number from %1 to %2").arg(least, greatest);
    if (pSetting.form == SettingsTable::eWholeNumber)
        refusal = tr("give a whole number from %1 to %2").arg(least, greatest);
    else if (!hasLeastNumber(pSetting))
        refusal =
            tr("give a number above %1, up to %2").arg(QString::number(pSetting.minimum), greatest);
    return pSetting.pMinimumWord
               ? tr("%1, or %2").arg(refusal, QLatin1String(pSetting.pMinimumWord))
               : refusal;
}

QString cli::SettingDescription(const Setting& pSetting)
{
    return QCoreApplication::translate("SettingsTable", pSetting.pDescription);
}

// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <cli/detail/ParseNumber.h>
#include <cli/settings/AnalysisOptionTable.h>
#include <cli/settings/ConfigurationSettings.h>
#include <shared/settings/ConfigurationStore.h>

#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>
#include <limits>
#include <optional>

namespace {

constexpr double kMinimalDuration = 0.05;  ///< seconds
constexpr double kMaximalDuration = 60.0;
constexpr int kMaximalMagnitude = std::numeric_limits<qint16>::max();
constexpr int kLongestName = 1000;

const QString kNone = QStringLiteral("none");

QString tr(const char* pText)
{
    return QCoreApplication::translate("ConfigurationSettings", pText);
}

// ---- Texts of values ----------------------------------------------------------------------------

QString SwitchText(bool pIsOn)
{
    return pIsOn ? QStringLiteral("on") : QStringLiteral("off");
}

QString NameText(const QString& pName)
{
    return pName.isEmpty() ? kNone : pName;
}

QString ThresholdText(int pThreshold)
{
    return pThreshold < 0 ? QStringLiteral("auto") : QString::number(pThreshold);
}

/// There is a setter, and no getter: on a copy, it tells what the value was.
bool IsStoppedDisplayed(const Configuration& pConfiguration)
{
    Configuration copy(pConfiguration);
    return !copy.setDisplayStopped(true);
}

// ---- Values of texts ----------------------------------------------------------------------------

/// Reads a value as the analysis option of that name does, so that both have the same limits.
QString ReadOption(const char* pName, const QString& pValue, AnalysisOptions& pOptions)
{
    for (const AnalysisOptionInfo& info : getAnalysisOptionTable())
        if (info.name == QLatin1String(pName))
            return info.read(pOptions, pValue);
    return tr("not known");
}

std::optional<bool> ReadSwitch(const QString& pValue)
{
    const QString value = pValue.toLower();
    const auto is = [&value](const char* pText) { return value == QLatin1String(pText); };
    if (is("on") || is("yes") || is("true") || is("1"))
        return true;
    if (is("off") || is("no") || is("false") || is("0"))
        return false;
    return std::nullopt;
}

QString SetDevice(ConfigurationStore& pStore, const QString& pValue)
{
    const QString name = pValue.trimmed();
    if (name.isEmpty() || name.size() > kLongestName)
        return tr("give the name of a device, as \"devices\" lists it, or none");
    pStore.setDeviceName(name == kNone ? QString() : name);
    return {};
}

QString SetLanguage(ConfigurationStore& pStore, const QString& pValue)
{
    static const QRegularExpression kCode(QStringLiteral("^[A-Za-z]{2,3}([_-][A-Za-z0-9]{2,8})*$"));
    if (pValue != kNone && !kCode.match(pValue).hasMatch())
        return tr("give a language code such as de or pt_BR, or none");
    pStore.getConfiguration().setLanguage(pValue == kNone ? QString() : pValue);
    return {};
}

QString SetProfile(ConfigurationStore& pStore, const QString& pValue)
{
    AnalysisOptions options;
    options.profile = pValue;
    return options.SelectProfile(pStore.getConfiguration());
}

QString SetNormalizationDuration(ConfigurationStore& pStore, const QString& pValue)
{
    const auto seconds = cli::ParseNumber(pValue, kMinimalDuration, kMaximalDuration);
    if (!seconds)
        return tr("give a number from %1 to %2").arg(kMinimalDuration).arg(kMaximalDuration);
    pStore.getConfiguration().setNormalizationDuration(*seconds);
    return {};
}

QString SetNormalizationThreshold(ConfigurationStore& pStore, const QString& pValue)
{
    const auto magnitude = cli::ParseInteger(pValue, 0, kMaximalMagnitude);
    if (!magnitude)
        return tr("give a whole number from 0 to %1").arg(kMaximalMagnitude);
    pStore.getConfiguration().setNormalizationThreshold(qint16(*magnitude));
    return {};
}

// ---- The table ----------------------------------------------------------------------------------

using Table = std::vector<ConfigurationSetting>;
using Store = ConfigurationStore;

template <bool (Configuration::*kGetter)() const>
QString GetSwitch(const Store& pStore)
{
    return SwitchText((pStore.getConfiguration().*kGetter)());
}

template <bool (Configuration::*kSetter)(bool)>
QString SetSwitch(Store& pStore, const QString& pValue)
{
    const std::optional<bool> isOn = ReadSwitch(pValue);
    if (!isOn)
        return tr("give on or off");
    (pStore.getConfiguration().*kSetter)(*isOn);
    return {};
}

template <double (Configuration::*kGetter)() const>
QString GetSeconds(const Store& pStore)
{
    return QString::number((pStore.getConfiguration().*kGetter)());
}

template <short (Configuration::*kGetter)() const>
QString GetMagnitude(const Store& pStore)
{
    return ThresholdText((pStore.getConfiguration().*kGetter)());
}

/// Stores what an analysis option of that name reads.
template <typename Value>
QString SetByOption(const char* pOption,
                    std::optional<Value> AnalysisOptions::*pMember,
                    bool (Configuration::*pSetter)(Value),
                    Store& pStore,
                    const QString& pValue)
{
    AnalysisOptions options;
    const QString refusal = ReadOption(pOption, pValue, options);
    if (refusal.isEmpty())
        (pStore.getConfiguration().*pSetter)(*(options.*pMember));
    return refusal;
}

Table getDurations()
{
    using C = Configuration;
    using O = AnalysisOptions;
    return {
        {QStringLiteral("average-duration"),
         tr("seconds over which the volume is averaged"),
         &GetSeconds<&C::getAverageVolumeCalculationDuration>,
         [](Store& pStore, const QString& pValue) {
             return SetByOption("--average-duration",
                                &O::averageDuration,
                                &C::setAverageVolumeCalculationDuration,
                                pStore,
                                pValue);
         }},
        {QStringLiteral("bpm-duration"),
         tr("seconds of beats that make the tempo"),
         &GetSeconds<&C::getBPMCalculationDuration>,
         [](Store& pStore, const QString& pValue) {
             return SetByOption(
                 "--bpm-duration", &O::bpmDuration, &C::setBPMCalculationDuration, pStore, pValue);
         }},
        {QStringLiteral("normalization-duration"),
         tr("seconds over which the volume is normalized"),
         &GetSeconds<&C::getNormalizationDuration>,
         &SetNormalizationDuration},
        {QStringLiteral("stop-duration"),
         tr("seconds of quiet that count as a stop; every start-up begins with 1.5"),
         &GetSeconds<&C::getStopDetectionDuration>,
         [](Store& pStore, const QString& pValue) {
             AnalysisOptions options;
             const QString refusal = ReadOption("--stop-duration", pValue, options);
             if (refusal.isEmpty())
                 pStore.getConfiguration().setStopDetectionDuration(options.stopDuration);
             return refusal;
         }},
    };
}

Table getLevels()
{
    using C = Configuration;
    using O = AnalysisOptions;
    return {
        {QStringLiteral("normalization-threshold"),
         tr("level for the normalization, 0 to 32767"),
         &GetMagnitude<&C::getNormalizationThreshold>,
         &SetNormalizationThreshold},
        {QStringLiteral("stop-threshold"),
         tr("level up to which it is quiet, 0 to 32767"),
         &GetMagnitude<&C::getStopDetectionThreshold>,
         [](Store& pStore, const QString& pValue) {
             return SetByOption("--stop-threshold",
                                &O::stopThreshold,
                                &C::setStopDetectionThreshold,
                                pStore,
                                pValue);
         }},
        {QStringLiteral("threshold"),
         tr("level that makes a pulse, 0 to 32767 or auto"),
         &GetMagnitude<&C::getThreshold>,
         [](Store& pStore, const QString& pValue) {
             return SetByOption("--threshold", &O::threshold, &C::setThreshold, pStore, pValue);
         }},
    };
}

Table getSwitches()
{
    using C = Configuration;
    return {
        {QStringLiteral("display-speakers"),
         tr("show the speakers, on or off"),
         &GetSwitch<&C::getDisplaySpeakers>,
         &SetSwitch<&C::setDisplaySpeakers>},
        {QStringLiteral("display-stopped"),
         tr("show when the music is stopped, on or off"),
         [](const Store& pStore) {
             return SwitchText(IsStoppedDisplayed(pStore.getConfiguration()));
         },
         &SetSwitch<&C::setDisplayStopped>},
        {QStringLiteral("gray-mode"),
         tr("show the window in gray, on or off"),
         &GetSwitch<&C::getGrayMode>,
         &SetSwitch<&C::setGrayMode>},
        {QStringLiteral("top-most"),
         tr("keep the window above all others, on or off"),
         &GetSwitch<&C::isTopMost>,
         &SetSwitch<&C::setTopMost>},
        {QStringLiteral("virtual-when-stopped"),
         tr("go on with virtual beats while the music is stopped, on or off"),
         &GetSwitch<&C::getDisplayVirtualBeatsWhenStopped>,
         &SetSwitch<&C::setDisplayVirtualBeatsWhenStopped>},
    };
}

Table getNames()
{
    return {
        {QStringLiteral("device"),
         tr("input device to listen to, or none"),
         [](const Store& pStore) { return NameText(pStore.getDeviceName()); },
         &SetDevice},
        {QStringLiteral("language"),
         tr("language code of the window, or none"),
         [](const Store& pStore) { return NameText(pStore.getConfiguration().getLanguage()); },
         &SetLanguage},
        {QStringLiteral("profile"),
         tr("selected tempo profile"),
         [](const Store& pStore) {
             return pStore.getConfiguration().getSelectedProfile().getName();
         },
         &SetProfile},
    };
}

}  // namespace

const std::vector<ConfigurationSetting>& getConfigurationSettings()
{
    static const Table settings = [] {
        Table table;
        for (const Table& part : {getNames(), getDurations(), getLevels(), getSwitches()})
            table.insert(table.end(), part.begin(), part.end());
        std::sort(table.begin(), table.end(), [](const auto& pLeft, const auto& pRight) {
            return pLeft.name < pRight.name;
        });
        return table;
    }();
    return settings;
}

// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>

#include <cli/settings/ConfigurationSettings.h>
#include <cli/settings/SettingText.h>
#include <shared/settings/AnalysisOptions.h>
#include <shared/settings/ConfigurationStore.h>
#include <shared/text/Text.h>

#include <QRegularExpression>

#include <algorithm>
#include <optional>

namespace {

constexpr int kLongestName = 1000;

const QString kNone = QStringLiteral("none");

QString NameText(const QString& pName)
{
    return pName.isEmpty() ? kNone : pName;
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

// ---- The table ----------------------------------------------------------------------------------

using Table = std::vector<ConfigurationSetting>;
using Store = ConfigurationStore;

ConfigurationSetting MakeSetting(const SettingsTable::Setting& pSetting)
{
    return {QLatin1String(pSetting.pIdentifier),
            tr("%1, %2").arg(cli::SettingDescription(pSetting), cli::SettingRange(pSetting)),
            [&pSetting](const Store& pStore) {
                return cli::SettingText(pSetting, pSetting.get(pStore.getConfiguration()));
            },
            [&pSetting](Store& pStore, const QString& pValue) {
                const std::optional<double> value = cli::ReadSetting(pSetting, pValue);
                if (!value)
                    return cli::SettingRefusal(pSetting);
                pSetting.set(pStore.getConfiguration(), *value);
                return QString();
            }};
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
        Table table = getNames();
        for (const SettingsTable::Setting& setting : SettingsTable::getSettings())
            if (setting.get && setting.use != SettingsTable::eUnused)
                table.push_back(MakeSetting(setting));
        std::sort(table.begin(), table.end(), [](const auto& pLeft, const auto& pRight) {
            return pLeft.name < pRight.name;
        });
        return table;
    }();
    return settings;
}

// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/UISettings.h>

#include <shared/hands/HandMap.h>
#include <shared/settings/ChoicesTurn.h>
#include <shared/text/Text.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>

#include <algorithm>

namespace shared {

namespace {

const QString kHandGroup = QStringLiteral("Hands");
const QString kControl = QStringLiteral("Control");
const QString kAction = QStringLiteral("Action");
constexpr int kLongestControl = 210;  // characters

bool IsControl(const QString& pText)
{
    return (pText.startsWith(QLatin1String("midi:")) || pText.startsWith(QLatin1String("osc:/"))) &&
           pText.size() <= kLongestControl;
}

}  // namespace

HandMap HandMap::Load()
{
    HandMap map;
    const QString path = UISettings::_getDefaultPath();
    if (!QFile::exists(path))
        return map;
    QSettings file(path, QSettings::IniFormat);
    const int count = file.beginReadArray(kHandGroup);
    for (int i = 0; i < std::min(count, kMost); ++i) {
        file.setArrayIndex(i);
        const auto action = HandAction::Parse(choiceText(file, kAction));
        if (!action || !map.Learn(choiceText(file, kControl), *action))
            map.m_problems += tr("%1: control %2 is left out: \"%3\" to \"%4\" is not understood")
                                  .arg(path,
                                       QString::number(i + 1),
                                       choiceText(file, kControl),
                                       choiceText(file, kAction));
    }
    return map;
}

bool HandMap::Save() const
{
    const QString path = UISettings::_getDefaultPath();
    QDir().mkpath(QFileInfo(path).path());
    QSettings file(path, QSettings::IniFormat);
    file.remove(kHandGroup);
    file.beginWriteArray(kHandGroup, int(m_actions.size()));
    int index = 0;
    for (const auto& [control, action] : m_actions) {
        file.setArrayIndex(index++);
        file.setValue(kControl, control);
        file.setValue(kAction, action.getText());
    }
    file.endArray();
    file.sync();
    return file.status() == QSettings::NoError;
}

bool HandMap::Learn(const QString& pControl, const HandAction& pAction)
{
    const bool isNew = m_actions.count(pControl) == 0;
    if (!IsControl(pControl) || (isNew && int(m_actions.size()) >= kMost))
        return false;
    m_actions[pControl] = pAction;
    return true;
}

std::optional<HandCommand> HandMap::Feel(const HandMessage& pMessage)
{
    constexpr double kPressed = 0.5;
    const auto found = m_actions.find(pMessage.control);
    if (found == m_actions.end())
        return std::nullopt;
    double& last = m_values[pMessage.control];
    const double before = last;
    last = pMessage.value;
    // A note is pressed however softly.
    const bool isNote = pMessage.control.startsWith(QLatin1String("midi:note/"));
    const bool isDown = isNote ? last > 0.0 : last >= kPressed;
    const bool wasDown = isNote ? before > 0.0 : before >= kPressed;
    if (isDown && (!wasDown || isNote || before == last))
        return HandCommand{found->second, true};
    if (!isDown && wasDown && found->second.kind == HandAction::eBend)
        return HandCommand{found->second, false};
    return std::nullopt;
}

}  // namespace shared

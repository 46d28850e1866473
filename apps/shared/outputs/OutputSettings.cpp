// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/UISettings.h>

#include <shared/outputs/OutputSettings.h>
#include <shared/settings/ChoicesTurn.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>

#include <algorithm>
#include <cmath>
#include <tuple>

namespace {

const QString kGroup = QStringLiteral("Outputs");
const QString kName = QStringLiteral("Name");
const QString kKind = QStringLiteral("Kind");
const QString kAddress = QStringLiteral("Address");
const QString kPreset = QStringLiteral("Preset");
const QString kOffset = QStringLiteral("OffsetMs");
const QString kEnabled = QStringLiteral("Enabled");

bool IsPrintable(const QString& pText)
{
    return std::all_of(
        pText.begin(), pText.end(), [](QChar pLetter) { return pLetter.isPrint(); });
}

StoredOutput Read(const QSettings& pFile)
{
    StoredOutput output;
    output.name = shared::choiceText(pFile, kName);
    output.kind = shared::choiceText(pFile, kKind);
    output.address = shared::choiceText(pFile, kAddress);
    output.preset = shared::choiceText(pFile, kPreset);
    bool isNumber = false;
    output.offset = pFile.value(kOffset, 0.0).toDouble(&isNumber);
    if (!isNumber)
        output.offset = std::nan("");
    output.isEnabled = pFile.value(kEnabled, true).toBool();
    return output;
}

}  // namespace

bool StoredOutput::operator==(const StoredOutput& pOther) const
{
    const auto values = [](const StoredOutput& pOutput) {
        return std::tie(pOutput.name,
                        pOutput.kind,
                        pOutput.address,
                        pOutput.preset,
                        pOutput.offset,
                        pOutput.isEnabled);
    };
    return values(*this) == values(pOther);
}

OutputSettings OutputSettings::Load()
{
    OutputSettings settings;
    const QString path = UISettings::_getDefaultPath();
    if (!QFile::exists(path))
        return settings;
    QSettings file(path, QSettings::IniFormat);
    const int count = file.beginReadArray(kGroup);
    for (int i = 0; i < std::min(count, kMostOutputs); ++i) {
        file.setArrayIndex(i);
        const QString refusal = settings.Add(Read(file));
        if (!refusal.isEmpty())
            settings.m_problems +=
                tr("%1: output %2 is left out: %3").arg(path, QString::number(i + 1), refusal);
    }
    if (count > kMostOutputs)
        settings.m_problems +=
            tr("%1: only the first %2 outputs count").arg(path).arg(kMostOutputs);
    return settings;
}

bool OutputSettings::Save() const
{
    const QString path = UISettings::_getDefaultPath();
    QDir().mkpath(QFileInfo(path).path());
    QSettings file(path, QSettings::IniFormat);
    file.remove(kGroup);
    file.beginWriteArray(kGroup, int(m_outputs.size()));
    for (std::size_t i = 0; i < m_outputs.size(); ++i) {
        const StoredOutput& output = m_outputs[i];
        file.setArrayIndex(int(i));
        file.setValue(kName, output.name);
        file.setValue(kKind, output.kind);
        file.setValue(kAddress, output.address);
        file.setValue(kPreset, output.preset);
        file.setValue(kOffset, output.offset);
        file.setValue(kEnabled, output.isEnabled);
    }
    file.endArray();
    file.sync();
    return file.status() == QSettings::NoError;
}

const StoredOutput* OutputSettings::Find(const QString& pName) const
{
    const auto found = std::find_if(m_outputs.begin(), m_outputs.end(), [&](const auto& pOutput) {
        return pOutput.name.compare(pName, Qt::CaseInsensitive) == 0;
    });
    return found == m_outputs.end() ? nullptr : &*found;
}

StoredOutput* OutputSettings::Find(const QString& pName)
{
    return const_cast<StoredOutput*>(std::as_const(*this).Find(pName));
}

QString OutputSettings::Add(const StoredOutput& pOutput)
{
    if (int(m_outputs.size()) >= kMostOutputs)
        return tr("there are %1 outputs already").arg(kMostOutputs);
    const QString refusal = _Check(pOutput, nullptr);
    if (refusal.isEmpty())
        m_outputs.push_back(pOutput);
    return refusal;
}

QString OutputSettings::Replace(const QString& pName, const StoredOutput& pOutput)
{
    StoredOutput* pReplaced = Find(pName);
    if (!pReplaced)
        return tr("there is no output \"%1\"").arg(pName);
    const QString refusal = _Check(pOutput, pReplaced);
    if (refusal.isEmpty())
        *pReplaced = pOutput;
    return refusal;
}

bool OutputSettings::Remove(const QString& pName)
{
    const StoredOutput* pFound = Find(pName);
    if (pFound)
        m_outputs.erase(m_outputs.begin() + (pFound - m_outputs.data()));
    return pFound != nullptr;
}

QString OutputSettings::_Check(const StoredOutput& pOutput, const StoredOutput* pReplaced) const
{
    if (pOutput.name.isEmpty() || pOutput.name.size() > kLongestName || !IsPrintable(pOutput.name))
        return tr("its name must have 1 to %1 letters").arg(kLongestName);
    const StoredOutput* pPresent = Find(pOutput.name);
    if (pPresent && pPresent != pReplaced)
        return tr("there is an output \"%1\" already").arg(pPresent->name);
    if (pOutput.kind.isEmpty())
        return tr("it has no kind");
    for (const QString& text : {pOutput.kind, pOutput.address, pOutput.preset})
        if (text.size() > kLongestText || !IsPrintable(text))
            return tr("its kind, address or preset is too long, or no text");
    if (!(std::abs(pOutput.offset) <= kFarthestOffset))
        return tr("its offset must be %1 to %2 ms").arg(-kFarthestOffset).arg(kFarthestOffset);
    return {};
}

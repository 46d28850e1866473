// SPDX-License-Identifier: MIT
#include <desktop/session/MonitorOutputs.h>
#include <shared/outputs/kinds/OutputKinds.h>

#include <iterator>
#include <utility>

namespace {

/// Whether an output that is sent to may go on as another one, but for its offset.
bool IsSameReceiver(const StoredOutput& pLeft, const StoredOutput& pRight)
{
    return pLeft.name == pRight.name && pLeft.kind == pRight.kind &&
           pLeft.address == pRight.address && pLeft.preset == pRight.preset;
}

}  // namespace

MonitorOutputs::MonitorOutputs(LiveBeats& pBeats, QObject* pParent)
    : QObject(pParent), m_beats(pBeats),
      m_outputs(pBeats.getThread(),
                [&pBeats](const BeatClockState& pState) { return pBeats.getConfidence(pState); })
{
    connect(&m_outputs, &Outputs::OnStateChanged, this, &MonitorOutputs::OnChanged);
    connect(&m_store, &OutputStore::OnChanged, this, &MonitorOutputs::_Apply);
    connect(&m_store, &OutputStore::OnFailed, this, &MonitorOutputs::OnFailed);
}

MonitorOutputs::~MonitorOutputs()
{
    setOn(false);
}

QStringList MonitorOutputs::setOn(bool pIsOn)
{
    if (pIsOn == m_isOn)
        return {};
    m_isOn = pIsOn;
    QStringList problems;
    if (pIsOn)
        problems = m_store.Load();
    _Apply();
    if (pIsOn)
        for (const StoredOutput& output : m_store.getOutputs())
            if (output.isEnabled && m_faults.count(output.name) > 0)
                problems += QStringLiteral("%1: %2").arg(output.name, m_faults[output.name]);
    return problems;
}

std::vector<MonitorOutputs::State> MonitorOutputs::getStates() const
{
    std::vector<State> states;
    for (const StoredOutput& output : m_store.getOutputs())
        if (output.isEnabled && m_faults.count(output.name) == 0)
            states.push_back({output.name, m_outputs.isOpen(output.name)});
    return states;
}

std::vector<MonitorOutputs::Entry> MonitorOutputs::getEntries() const
{
    std::vector<Entry> entries;
    for (const StoredOutput& output : m_store.getOutputs()) {
        const auto fault = m_faults.find(output.name);
        const bool isSent = m_sent.count(output.name) > 0;
        if (fault != m_faults.end())
            entries.push_back({output, eUseless, fault->second});
        else if (_IsTried(output.name))
            entries.push_back({output, m_trial->isOpen() ? eReached : eAway, m_test.words});
        else if (isSent)
            entries.push_back({output,
                               m_outputs.isOpen(output.name) ? eReached : eAway,
                               m_outputs.getState(output.name)});
        else
            entries.push_back({output, eOff, {}});
    }
    return entries;
}

// ---- Changes ------------------------------------------------------------------------------------

QString MonitorOutputs::Add(const StoredOutput& pOutput)
{
    const QString fault = shared::findOutputFault(pOutput);
    if (!fault.isEmpty())
        return fault;
    return m_store.Change([&](OutputSettings& pSettings) { return pSettings.Add(pOutput); });
}

QString MonitorOutputs::Replace(const QString& pName, const StoredOutput& pOutput)
{
    const QString fault = shared::findOutputFault(pOutput);
    if (!fault.isEmpty())
        return fault;
    return m_store.Change(
        [&](OutputSettings& pSettings) { return pSettings.Replace(pName, pOutput); });
}

QString MonitorOutputs::Remove(const QString& pName)
{
    // One that another program has removed meanwhile is gone all the same.
    return m_store.Change([&](OutputSettings& pSettings) {
        pSettings.Remove(pName);
        return QString();
    });
}

QString MonitorOutputs::setEnabled(const QString& pName, bool pIsEnabled)
{
    return m_store.Change([&](OutputSettings& pSettings) {
        if (StoredOutput* pOutput = pSettings.Find(pName))
            pOutput->isEnabled = pIsEnabled;
        return QString();
    });
}

void MonitorOutputs::setOffset(const QString& pName, double pOffset)
{
    m_store.setOffset(pName, pOffset);
}

/// What is sent becomes what is stored.
void MonitorOutputs::_Apply()
{
    m_faults.clear();
    for (const StoredOutput& output : m_store.getOutputs()) {
        const QString fault = shared::findOutputFault(output);
        if (!fault.isEmpty())
            m_faults[output.name] = fault;
    }
    _JudgeTrial();
    const bool isLess = _RemoveOthers();
    const bool isMore = _AddMissing();
    shared::ClockThread& thread = m_beats.getThread();
    if (m_sent.empty())
        thread.Stop();
    else
        thread.Start();
    if (isLess || isMore)
        _HearSource();
    Q_EMIT OnChanged();
}

bool MonitorOutputs::_RemoveOthers()
{
    if (!m_isOn) {
        m_outputs.RemoveAll();
        return !std::exchange(m_sent, {}).empty();
    }
    bool isAny = false;
    for (auto sent = m_sent.begin(); sent != m_sent.end();) {
        const StoredOutput* pStored = m_store.Find(sent->first);
        const bool stays = pStored && pStored->isEnabled && !_IsTried(sent->first) &&
                           IsSameReceiver(*pStored, sent->second);
        if (!stays)
            m_outputs.Remove(sent->first);
        isAny = isAny || !stays;
        sent = stays ? std::next(sent) : m_sent.erase(sent);
    }
    return isAny;
}

bool MonitorOutputs::_AddMissing()
{
    bool isAny = false;
    for (const StoredOutput& output : m_store.getOutputs()) {
        const bool isUsable = output.isEnabled && m_faults.count(output.name) == 0;
        if (!m_isOn || !isUsable || _IsTried(output.name))
            continue;
        const bool isMissing = m_sent.count(output.name) == 0;
        if (isMissing)
            shared::addOutput(m_outputs, output);
        else if (m_sent[output.name].offset != output.offset)
            m_outputs.setOffset(output.name, output.offset);
        m_sent[output.name] = output;
        isAny = isAny || isMissing;
    }
    return isAny;
}

// ---- The test -----------------------------------------------------------------------------------

void MonitorOutputs::Try(const QString& pName)
{
    const StoredOutput* pOutput = m_store.Find(pName);
    if (!pOutput)
        return;
    m_trial.reset();
    m_tried = *pOutput;
    m_test = {pName, {}, {}, false, false};
    auto pReceiver =
        shared::makeReceiver(m_tried.kind, m_tried.address, m_tried.preset, m_test.words);
    m_test.hasFailed = !pReceiver;
    if (pReceiver)
        _Begin(std::move(pReceiver));
    _Apply();
}

void MonitorOutputs::_Begin(std::unique_ptr<shared::OutputReceiver> pReceiver)
{
    m_test.isRunning = true;
    // It must be free before the trial takes it.
    m_outputs.Remove(m_tried.name);
    m_sent.erase(m_tried.name);
    m_trial = std::make_unique<OutputTrial>(std::move(pReceiver), m_tried.offset);
    const OutputTrial* pTrial = m_trial.get();
    connect(pTrial, &OutputTrial::OnStateChanged, this, [this](const QString& pWords) {
        m_test.words = pWords;
        Q_EMIT OnChanged();
    });
    // Queued, since it is deleted then; meanwhile another one may have begun.
    connect(
        pTrial,
        &OutputTrial::OnEnded,
        this,
        [this, number = ++m_trials](bool pIsDone, const QString& pWords) {
            if (m_trial && number == m_trials)
                _End(pIsDone, pWords);
        },
        Qt::QueuedConnection);
}

void MonitorOutputs::_End(bool pIsDone, const QString& pWords)
{
    m_trial.reset();
    m_test.isRunning = false;
    m_test.hasFailed = !pIsDone;
    // Why it was not reached is what was said before.
    m_test.words = pIsDone || m_test.words.isEmpty()
                       ? pWords
                       : QStringLiteral("%1; %2").arg(m_test.words, pWords);
    _Apply();
}

MonitorOutputs::Test MonitorOutputs::getTest() const
{
    Test test = m_test;
    const shared::OutputKind* pKind = shared::findOutputKind(m_tried.kind);
    if (pKind && !test.name.isEmpty())
        test.seen = pKind->describeTest(m_tried.preset);
    return test;
}

/// It ends with the output that it tries.
void MonitorOutputs::_JudgeTrial()
{
    const StoredOutput* pStored = m_store.Find(m_test.name);
    if (!pStored || !IsSameReceiver(*pStored, m_tried)) {
        m_trial.reset();
        m_test = {};
    } else if (m_trial && pStored->offset != m_tried.offset) {
        m_tried.offset = pStored->offset;
        m_trial->setOffset(m_tried.offset);
    }
}

// ---- The sound ----------------------------------------------------------------------------------

void MonitorOutputs::Follow(LiveSource* pSource)
{
    m_pSource = pSource;
    _HearSource();
}

void MonitorOutputs::_HearSource()
{
    m_sound.reset();
    if (!m_pSource || !m_outputs.hearsSound())
        return;
    m_sound = std::make_unique<SoundFeed>();
    connect(m_sound.get(), &SoundFeed::OnSound, &m_outputs, &Outputs::Hear);
    m_sound->Follow(*m_pSource);
}

#include "moc_MonitorOutputs.cpp"

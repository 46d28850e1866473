// SPDX-License-Identifier: MIT
#include <shared/outputs/Outputs.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

using shared::OutputReceiver;
using shared::OutputRunner;

namespace {

std::int64_t MicroSeconds(double pMilliSeconds)
{
    constexpr double kMicroSeconds = 1000.0;
    return std::llround(kMicroSeconds * pMilliSeconds);
}

}  // namespace

Outputs::Outputs(shared::ClockThread& pThread,
                 OutputRunner::Confidence pConfidence,
                 QObject* pParent)
    : QObject(pParent), m_thread(pThread), m_confidence(std::move(pConfidence))
{
}

Outputs::~Outputs()
{
    RemoveAll();
}

void Outputs::Add(const QString& pName, std::unique_ptr<OutputReceiver> pReceiver, double pOffset)
{
    Remove(pName);
    const int division = pReceiver->getDivision();
    Output& output = m_outputs[pName];
    output.number = ++m_lastNumber;
    output.pRunner = std::make_unique<OutputRunner>(
        std::move(pReceiver),
        m_confidence,
        [this, pName, number = output.number](const QString& pWords) {
            QMetaObject::invokeMethod(this, [=] { _Note(pName, number, pWords); });
        });
    output.pRunner->Start();
    m_thread.Add(*output.pRunner, division, MicroSeconds(pOffset));
}

bool Outputs::Remove(const QString& pName)
{
    const auto found = m_outputs.find(pName);
    if (found == m_outputs.end())
        return false;
    m_thread.Remove(*found->second.pRunner);
    m_outputs.erase(found);
    return true;
}

void Outputs::RemoveAll()
{
    for (const auto& [name, output] : m_outputs) {
        m_thread.Remove(*output.pRunner);
        output.pRunner->Leave();
    }
    m_outputs.clear();
}

bool Outputs::setOffset(const QString& pName, double pOffset)
{
    const auto found = m_outputs.find(pName);
    if (found != m_outputs.end())
        m_thread.setOffset(*found->second.pRunner, MicroSeconds(pOffset));
    return found != m_outputs.end();
}

QStringList Outputs::getNames() const
{
    QStringList names;
    for (const auto& [name, output] : m_outputs)
        names.append(name);
    return names;
}

QString Outputs::getState(const QString& pName) const
{
    const auto found = m_outputs.find(pName);
    return found == m_outputs.end() ? QString() : found->second.state;
}

bool Outputs::isOpen(const QString& pName) const
{
    const auto found = m_outputs.find(pName);
    return found != m_outputs.end() && found->second.pRunner->isOpen();
}

bool Outputs::hearsSound() const
{
    return std::any_of(
        m_outputs.begin(),
        m_outputs.end(),
        [](const auto& pOutput) { return pOutput.second.pRunner->getReceiver().hearsSound(); });
}

void Outputs::Hear(const shared::OutputSound& pSound)
{
    for (const auto& [name, output] : m_outputs)
        if (output.pRunner->getReceiver().hearsSound())
            output.pRunner->Hear(pSound);
}

void Outputs::_Note(const QString& pName, quint64 pNumber, const QString& pWords)
{
    const auto found = m_outputs.find(pName);
    if (found == m_outputs.end() || found->second.number != pNumber)
        return;
    found->second.state = pWords;
    Q_EMIT OnStateChanged(pName, pWords);
}

#include "moc_Outputs.cpp"

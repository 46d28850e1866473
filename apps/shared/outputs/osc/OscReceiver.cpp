// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/analysis/HighResolutionTimer.h>

#include <shared/outputs/osc/OscReceiver.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <lo/lo.h>
#include <utility>

namespace shared {

namespace {

/// Of an instant in µs since 1970; the seconds of a time tag begin in 1900.
lo_timetag TagOf(std::int64_t pWallTime)
{
    constexpr std::int64_t kSecond = 1000000;
    constexpr std::int64_t kEpoch = 2208988800;
    const std::int64_t rest = pWallTime % kSecond;
    return {static_cast<std::uint32_t>(pWallTime / kSecond + kEpoch),
            static_cast<std::uint32_t>((rest << 32) / kSecond)};
}

template <typename Integer>
Integer Whole(double pValue)
{
    constexpr double kLowest = double(std::numeric_limits<Integer>::lowest());
    const double value = std::round(pValue);
    if (value <= kLowest)
        return std::numeric_limits<Integer>::lowest();
    return value < -kLowest ? Integer(value) : std::numeric_limits<Integer>::max();
}

void AddValue(lo_message pMessage, char pType, double pValue)
{
    if (pType == 'i')
        lo_message_add_int32(pMessage, Whole<std::int32_t>(pValue));
    else if (pType == 'h')
        lo_message_add_int64(pMessage, Whole<std::int64_t>(pValue));
    else if (pType == 'd')
        lo_message_add_double(pMessage, pValue);
    else
        lo_message_add_float(pMessage, float(pValue));
}

/// To be freed.
lo_message MakeMessage(const OscRule& pRule, const OscValues& pValues)
{
    lo_message pMessage = lo_message_new();
    for (std::size_t i = 0; i < pRule.values.size(); ++i)
        AddValue(pMessage, pRule.types[int(i)], pRule.values[i].Compute(pValues));
    return pMessage;
}

/// What liblo has allocated.
QByteArray Taken(void* pBytes, std::size_t pSize)
{
    const QByteArray packet(static_cast<const char*>(pBytes), int(pSize));
    std::free(pBytes);
    return packet;
}

QByteArray PacketOf(const OscRule& pRule, const OscValues& pValues)
{
    lo_message pMessage = MakeMessage(pRule, pValues);
    std::size_t size = 0;
    void* pBytes = lo_message_serialise(pMessage, pRule.address.constData(), nullptr, &size);
    lo_message_free(pMessage);
    return Taken(pBytes, size);
}

QByteArray BundleOf(const std::vector<const OscRule*>& pRules,
                    const OscValues& pValues,
                    std::int64_t pWallTime)
{
    lo_bundle pBundle = lo_bundle_new(TagOf(pWallTime));
    for (const OscRule* pRule : pRules)
        lo_bundle_add_message(pBundle, pRule->address.constData(), MakeMessage(*pRule, pValues));
    std::size_t size = 0;
    void* pBytes = lo_bundle_serialise(pBundle, nullptr, &size);
    lo_bundle_free_recursive(pBundle);
    return Taken(pBytes, size);
}

std::int64_t WallNow()
{
    return static_cast<std::int64_t>(HighResolutionTimer::getTime());
}

}  // namespace

OscReceiver::OscReceiver(
    const QString& pHost, int pPort, bool pIsTCP, OscTemplate pTemplate, const QString& pName)
    : m_host(pHost), m_port(pPort), m_isTCP(pIsTCP), m_template(std::move(pTemplate)), m_name(pName)
{
}

bool OscReceiver::Open()
{
    m_values = {};
    m_isTempoDue = false;
    return m_socket.Open(m_host, m_port, m_isTCP);
}

void OscReceiver::Close()
{
    if (m_socket.isOpen() && m_values.playing > 0.0)
        Playing(false, {});
    m_socket.Close();
}

QString OscReceiver::getState() const
{
    const QString place = m_host.contains(QLatin1Char(':'))
                              ? QStringLiteral("[%1]:%2").arg(m_host).arg(m_port)
                              : QStringLiteral("%1:%2").arg(m_host).arg(m_port);
    const QString protocol = m_isTCP ? QStringLiteral("TCP") : QStringLiteral("UDP");
    const QString error = m_socket.getError();
    if (!m_socket.isOpen())
        return error.isEmpty() ? tr("OSC to %1 (%2)").arg(place, protocol)
                               : tr("OSC to %1 (%2): %3; trying again").arg(place, protocol, error);
    if (m_socket.isRefused())
        return tr("OSC to %1 (%2): nothing listens there; going on").arg(place, protocol);
    return tr("sending OSC to %1 (%2), %3").arg(place, protocol, m_name);
}

bool OscReceiver::Beat(const OutputMoment& pMoment)
{
    _Note(pMoment);
    const bool isSent = _SendDue(pMoment.tick);
    m_isTempoDue = false;
    return isSent;
}

bool OscReceiver::Tick(const OutputMoment& pMoment)
{
    _Note(pMoment);
    return _SendDue(pMoment.tick);
}

bool OscReceiver::Tempo(double pBPM)
{
    m_values.bpm = pBPM;
    m_isTempoDue = true;
    return true;
}

bool OscReceiver::Playing(bool pIsPlaying, const BeatClockState&)
{
    m_values.playing = pIsPlaying ? 1.0 : 0.0;
    std::vector<const OscRule*> due;
    for (const OscRule& rule : m_template.rules)
        if (rule.event == eOscPlaying)
            due.push_back(&rule);
    return _Send(due, WallNow());
}

void OscReceiver::_Note(const OutputMoment& pMoment)
{
    const ClockTick& tick = pMoment.tick;
    const double length = std::max(1, pMoment.state.beatsPerBar);
    m_values.beat = double(tick.beat);
    m_values.count = tick.beatInBar + 1;
    m_values.bar = std::floor(double(tick.beat - tick.beatInBar) / length);
    m_values.phase = double(tick.place) / m_template.division;
    m_values.bpm = pMoment.state.bpm;
    m_values.confidence = pMoment.confidence;
}

bool OscReceiver::_IsDue(const OscRule& pRule, const ClockTick& pTick) const
{
    const bool isBeat = pTick.place == 0;
    switch (pRule.event) {
    case eOscBeat:
        return isBeat;
    case eOscBar:
        return isBeat && pTick.beatInBar == 0;
    case eOscTempo:
        // Also over and over, since packets get lost and programs begin anew.
        return isBeat && (m_isTempoDue || pTick.beatInBar == 0);
    case eOscTick:
        return pTick.place % (m_template.division / pRule.ticks) == 0;
    case eOscPlaying:
        break;
    }
    return false;
}

bool OscReceiver::_SendDue(const ClockTick& pTick)
{
    std::vector<const OscRule*> due;
    for (const OscRule& rule : m_template.rules)
        if (_IsDue(rule, pTick))
            due.push_back(&rule);
    return _Send(due, pTick.wallTime);
}

bool OscReceiver::_Send(const std::vector<const OscRule*>& pRules, std::int64_t pWallTime)
{
    if (pRules.empty())
        return true;
    if (m_template.isBundled)
        return m_socket.Send(BundleOf(pRules, m_values, pWallTime));
    return std::all_of(pRules.begin(), pRules.end(), [this](const OscRule* pRule) {
        return m_socket.Send(PacketOf(*pRule, m_values));
    });
}

}  // namespace shared

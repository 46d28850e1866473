// SPDX-License-Identifier: MIT
#include <shared/clock/ClockThread.h>
#include <shared/outputs/HostPort.h>
#include <shared/outputs/os2l/Os2lReceiver.h>
#include <shared/outputs/os2l/detail/BeatText.h>

#include <algorithm>

namespace shared {

Os2lReceiver::Os2lReceiver(std::optional<Os2lAddress> pAddress, OnAnswer pOnAnswer)
    : m_address(std::move(pAddress)), m_onAnswer(std::move(pOnAnswer))
{
}

Os2lReceiver::~Os2lReceiver() = default;

std::optional<Os2lAddress> Os2lReceiver::AddressOf(const QString& pText)
{
    const std::optional<HostPort> place = HostPort::Parse(pText, kPort);
    if (!place)
        return std::nullopt;
    return Os2lAddress{pText, place->host.toUtf8(), static_cast<std::uint16_t>(place->port)};
}

bool Os2lReceiver::Open()
{
    if (!_Look(kPatience))
        return false;
    for (const auto& peer : m_peers)
        peer->line.Begin(peer->address.host, peer->address.port);
    _Await();
    return _isAnyUp();
}

/// Brings the list of peers up to date. False when nobody can be asked for it.
bool Os2lReceiver::_Look(int pMilliSeconds)
{
    std::vector<Os2lAddress> known;
    if (m_address) {
        known = {*m_address};
    } else {
        m_isBlind = !_OpenBrowser(pMilliSeconds > 0) || !m_browser.Proceed(pMilliSeconds);
        if (m_isBlind)
            return false;
        known = m_browser.getFound();
    }
    // One that has withdrawn its name, and still reads, is still told.
    const auto isGone = [&](const std::unique_ptr<Peer>& pPeer) {
        return !pPeer->line.isUp() &&
               std::none_of(known.begin(), known.end(), [&](const Os2lAddress& pAddress) {
                   return pAddress.name == pPeer->address.name;
               });
    };
    m_peers.erase(std::remove_if(m_peers.begin(), m_peers.end(), isGone), m_peers.end());
    for (const Os2lAddress& address : known)
        _PeerOf(address.name).address = address;
    return true;
}

/// Avahi may be away while those that it has found are there; then it is not asked all the time.
bool Os2lReceiver::_OpenBrowser(bool pIsAtOnce)
{
    const std::int64_t now = ClockThread::getTime();
    if (m_browser.isOpen())
        return true;
    if (!pIsAtOnce && now < m_browserTime)
        return false;
    m_browserTime = now + kPause;
    return m_browser.Open();
}

/// The one of that name, or a new one.
Os2lReceiver::Peer& Os2lReceiver::_PeerOf(const QString& pName)
{
    for (const auto& peer : m_peers)
        if (peer->address.name == pName)
            return *peer;
    m_peers.push_back(std::make_unique<Peer>());
    return *m_peers.back();
}

/// All begin at once, so that one that is slow costs no more than that.
void Os2lReceiver::_Await()
{
    const std::int64_t end = ClockThread::getTime() + std::int64_t(1000) * kPatience;
    for (const auto& peer : m_peers) {
        const std::int64_t rest = (end - ClockThread::getTime()) / 1000;
        peer->line.Proceed(int(std::max<std::int64_t>(rest, 0)));
        if (!peer->line.isOpen())
            peer->line.Close();
    }
}

void Os2lReceiver::Close()
{
    m_peers.clear();
}

bool Os2lReceiver::Beat(const OutputMoment& pMoment)
{
    const QByteArray text = detail::BeatText(pMoment);
    for (const auto& peer : m_peers)
        if (peer->line.isOpen())
            peer->line.Send(text);
    return _isAnyUp();
}

bool Os2lReceiver::Rest()
{
    if (!m_address)
        _Look(0);
    for (const auto& peer : m_peers) {
        if (!peer->line.isUp() && !m_address)
            _Reach(*peer);
        if (peer->line.Proceed(0) && peer->line.isOpen())
            _Listen(*peer);
    }
    return _isAnyUp();
}

/// One of several; if all are away, the whole is opened anew.
void Os2lReceiver::_Reach(Peer& pPeer) const
{
    const std::int64_t now = ClockThread::getTime();
    if (now < pPeer.attemptTime)
        return;
    pPeer.attemptTime = now + kPause;
    pPeer.answers = Os2lAnswers();
    pPeer.line.Begin(pPeer.address.host, pPeer.address.port);
}

void Os2lReceiver::_Listen(Peer& pPeer) const
{
    QByteArray bytes;
    pPeer.line.Receive(bytes);
    for (const Os2lAnswer& answer : pPeer.answers.Take(bytes))
        if (m_onAnswer)
            m_onAnswer(answer);
}

bool Os2lReceiver::_isAnyUp() const
{
    return std::any_of(
        m_peers.begin(), m_peers.end(), [](const auto& pPeer) { return pPeer->line.isUp(); });
}

QString Os2lReceiver::_Names() const
{
    QStringList names;
    for (const auto& peer : m_peers)
        if (peer->line.isOpen())
            names << peer->address.name;
    return names.join(QLatin1String(", "));
}

QString Os2lReceiver::getState() const
{
    const QString names = _Names();
    if (!names.isEmpty())
        return tr("light program %1").arg(names);
    if (m_address)
        return tr("no light program at %1: is OS2L on there, and the port right?")
            .arg(m_address->name);
    if (m_isBlind)
        return tr("cannot look for light programs: start avahi-daemon, or give HOST:PORT");
    return tr("no light program makes itself known in the net, as _os2l._tcp");
}

}  // namespace shared

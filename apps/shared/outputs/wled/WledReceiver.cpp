// SPDX-License-Identifier: MIT
#include <shared/clock/ClockThread.h>
#include <shared/outputs/wled/WledReceiver.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <netdb.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace shared {

namespace {

constexpr double kByte = 255.0;

}  // namespace

WledReceiver::WledReceiver(QByteArray pHost, std::uint16_t pPort)
    : m_host(std::move(pHost)), m_port(pPort)
{
}

WledReceiver::~WledReceiver()
{
    WledReceiver::Close();
}

bool WledReceiver::Open()
{
    Close();
    const QString place =
        QStringLiteral("%1:%2").arg(QString::fromUtf8(m_host), QString::number(m_port));
    if (!_Connect()) {
        m_state = tr("%1 is no address that this machine can reach").arg(place);
        return false;
    }
    m_frame = {};
    m_soundTime = 0;
    m_peakEnd = 0;
    m_state = tr("WLED at %1").arg(place);
    return _Send();
}

/// Its group is reached through one router at most: the one of the hall, not the world's.
bool WledReceiver::_Connect()
{
    addrinfo hints = {};
    hints.ai_family = AF_INET;  // controllers know no other
    hints.ai_socktype = SOCK_DGRAM;
    addrinfo* found = nullptr;
    if (getaddrinfo(m_host.constData(), QByteArray::number(m_port).constData(), &hints, &found) !=
        0)
        return false;
    for (const addrinfo* info = found; info && m_socket < 0; info = info->ai_next) {
        m_socket = ::socket(info->ai_family, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
        if (m_socket >= 0 && ::connect(m_socket, info->ai_addr, info->ai_addrlen) != 0)
            Close();
    }
    freeaddrinfo(found);
    return m_socket >= 0;
}

void WledReceiver::Close()
{
    if (m_socket >= 0)
        ::close(m_socket);
    m_socket = -1;
}

bool WledReceiver::Beat(const OutputMoment&)
{
    m_peakEnd = ClockThread::getTime() + kPeakTime;
    return _Send();
}

bool WledReceiver::Sound(const OutputSound& pSound)
{
    _Hear(pSound);
    return _Send();
}

bool WledReceiver::Rest()
{
    if (ClockThread::getTime() - m_soundTime < kSoundTime)
        return true;
    _Hear({});
    return _Send();
}

void WledReceiver::_Hear(const OutputSound& pSound)
{
    constexpr double kSmoothing = 0.25;
    const std::int64_t now = ClockThread::getTime();
    const double fade = std::exp2(-static_cast<double>(now - m_fadeTime) / kHalfLife);
    m_fadeTime = now;
    m_loudest = std::max({m_loudest * fade, pSound.level, kSilence});
    const detail::WledFrame last = std::exchange(m_frame, {});
    m_frame.number = last.number;
    if (pSound.level < kSilence)
        return;
    m_soundTime = now;
    m_frame.level = static_cast<float>(kByte * pSound.level / m_loudest);
    m_frame.smoothLevel =
        last.smoothLevel + static_cast<float>(kSmoothing) * (m_frame.level - last.smoothLevel);
    std::transform(
        pSound.bands.begin(), pSound.bands.end(), m_frame.bands.begin(), [](double pBand) {
            return static_cast<std::uint8_t>(std::lround(kByte * std::clamp(pBand, 0.0, 1.0)));
        });
    m_frame.magnitude = static_cast<float>(kGreatestMagnitude * pSound.magnitude);
    m_frame.frequency = static_cast<float>(pSound.frequency);
}

/// A controller that is switched off, or takes no more just now, is no fault: it is not asked to
/// answer.
bool WledReceiver::_Send()
{
    m_frame.isPeak = ClockThread::getTime() < m_peakEnd;
    const detail::WledPacket packet = detail::PacketOf(m_frame);
    ++m_frame.number;
    if (::send(m_socket, packet.data(), packet.size(), 0) >= 0 || errno == ECONNREFUSED ||
        errno == EAGAIN || errno == ENOBUFS)
        return true;
    m_state = tr("WLED cannot be reached: %1").arg(QString::fromLocal8Bit(std::strerror(errno)));
    return false;
}

}  // namespace shared

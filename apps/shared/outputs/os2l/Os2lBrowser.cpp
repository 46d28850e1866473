// SPDX-License-Identifier: MIT
#include <shared/clock/ClockThread.h>
#include <shared/outputs/os2l/Os2lBrowser.h>

#include <algorithm>
#include <array>

namespace shared {

namespace {

constexpr AvahiProtocol kProtocol = AVAHI_PROTO_INET;  // what light programs listen on

}  // namespace

bool Os2lBrowser::Open()
{
    Close();
    m_poll = avahi_simple_poll_new();
    m_client = avahi_client_new(
        avahi_simple_poll_get(m_poll), AvahiClientFlags(0), &Os2lBrowser::_OnClient, this, nullptr);
    const bool isOpen = m_client && avahi_service_browser_new(m_client,
                                                              AVAHI_IF_UNSPEC,
                                                              kProtocol,
                                                              "_os2l._tcp",
                                                              nullptr,
                                                              AvahiLookupFlags(0),
                                                              &Os2lBrowser::_OnService,
                                                              this);
    if (!isOpen)
        Close();
    return isOpen;
}

bool Os2lBrowser::Proceed(int pMilliSeconds)
{
    const std::int64_t end = ClockThread::getTime() + std::int64_t(1000) * pMilliSeconds;
    while (isOpen() && !m_hasFailed) {
        const std::int64_t rest = std::max<std::int64_t>(end - ClockThread::getTime(), 0);
        const bool isDone = m_isComplete && m_pending == 0;
        m_hasFailed = avahi_simple_poll_iterate(m_poll, isDone ? 0 : int(rest / 1000)) != 0;
        if (isDone || rest == 0)
            break;
    }
    if (m_hasFailed)
        Close();
    return isOpen();
}

void Os2lBrowser::Close()
{
    if (m_client)
        avahi_client_free(m_client);
    if (m_poll)
        avahi_simple_poll_free(m_poll);
    m_client = nullptr;
    m_poll = nullptr;
    m_hasFailed = false;
    m_isComplete = false;
    m_pending = 0;
    m_found.clear();
}

std::vector<Os2lAddress> Os2lBrowser::getFound() const
{
    std::vector<Os2lAddress> found;
    for (const auto& [key, address] : m_found)
        if (found.empty() || found.back().name != address.name)
            found.push_back(address);
    return found;
}

void Os2lBrowser::_OnClient(AvahiClient*, AvahiClientState pState, void* pSelf)
{
    if (pState == AVAHI_CLIENT_FAILURE)
        static_cast<Os2lBrowser*>(pSelf)->m_hasFailed = true;
}

void Os2lBrowser::_OnService(AvahiServiceBrowser* pBrowser,
                             AvahiIfIndex pInterface,
                             AvahiProtocol pProtocol,
                             AvahiBrowserEvent pEvent,
                             const char* pName,
                             const char* pType,
                             const char* pDomain,
                             AvahiLookupResultFlags,
                             void* pSelf)
{
    auto& self = *static_cast<Os2lBrowser*>(pSelf);
    if (pEvent == AVAHI_BROWSER_NEW) {
        const bool isAsked = avahi_service_resolver_new(avahi_service_browser_get_client(pBrowser),
                                                        pInterface,
                                                        pProtocol,
                                                        pName,
                                                        pType,
                                                        pDomain,
                                                        kProtocol,
                                                        AvahiLookupFlags(0),
                                                        &Os2lBrowser::_OnResolved,
                                                        pSelf) != nullptr;
        self.m_pending += isAsked ? 1 : 0;
    } else if (pEvent == AVAHI_BROWSER_REMOVE) {
        self.m_found.erase({QByteArray(pName), pInterface});
    } else if (pEvent == AVAHI_BROWSER_ALL_FOR_NOW) {
        self.m_isComplete = true;
    } else if (pEvent == AVAHI_BROWSER_FAILURE) {
        self.m_hasFailed = true;
    }
}

void Os2lBrowser::_OnResolved(AvahiServiceResolver* pResolver,
                              AvahiIfIndex pInterface,
                              AvahiProtocol,
                              AvahiResolverEvent pEvent,
                              const char* pName,
                              const char*,
                              const char*,
                              const char*,
                              const AvahiAddress* pAddress,
                              std::uint16_t pPort,
                              AvahiStringList*,
                              AvahiLookupResultFlags,
                              void* pSelf)
{
    auto& self = *static_cast<Os2lBrowser*>(pSelf);
    if (pEvent == AVAHI_RESOLVER_FOUND) {
        std::array<char, AVAHI_ADDRESS_STR_MAX> host = {};
        avahi_address_snprint(host.data(), host.size(), pAddress);
        self.m_found[{QByteArray(pName), pInterface}] = {
            QString::fromUtf8(pName), QByteArray(host.data()), pPort};
    }
    --self.m_pending;
    avahi_service_resolver_free(pResolver);
}

}  // namespace shared

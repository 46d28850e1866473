// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <avahi-client/client.h>
#include <avahi-client/lookup.h>
#include <avahi-common/simple-watch.h>
#include <cstdint>
#include <map>
#include <utility>
#include <vector>

namespace shared {

/// A light program in the net.
struct Os2lAddress
{
    QString name;     ///< as it calls itself; HOST:PORT where a user gave that
    QByteArray host;  ///< a name, or an address
    std::uint16_t port;
};

/// The light programs that make themselves known by DNS-SD, as _os2l._tcp. Asks Avahi, and waits
/// only where that is said.
///
/// Threads: one.
class Os2lBrowser
{
public:
    Os2lBrowser() = default;
    ~Os2lBrowser() { Close(); }
    Os2lBrowser(const Os2lBrowser&) = delete;
    Os2lBrowser& operator=(const Os2lBrowser&) = delete;

    /// Begins to look. False where there is nobody to ask.
    bool Open();
    /// Takes what has come, for pMilliSeconds at most, or until those known at first are found.
    /// False when nobody is there to ask any more; then it is closed.
    bool Proceed(int pMilliSeconds);
    void Close();
    bool isOpen() const { return m_client != nullptr; }

    /// One for each name.
    std::vector<Os2lAddress> getFound() const;

private:
    using Key = std::pair<QByteArray, AvahiIfIndex>;  ///< a program may be seen through several

    static void _OnClient(AvahiClient* pClient, AvahiClientState pState, void* pSelf);
    static void _OnService(AvahiServiceBrowser* pBrowser,
                           AvahiIfIndex pInterface,
                           AvahiProtocol pProtocol,
                           AvahiBrowserEvent pEvent,
                           const char* pName,
                           const char* pType,
                           const char* pDomain,
                           AvahiLookupResultFlags pFlags,
                           void* pSelf);
    static void _OnResolved(AvahiServiceResolver* pResolver,
                            AvahiIfIndex pInterface,
                            AvahiProtocol pProtocol,
                            AvahiResolverEvent pEvent,
                            const char* pName,
                            const char* pType,
                            const char* pDomain,
                            const char* pHost,
                            const AvahiAddress* pAddress,
                            std::uint16_t pPort,
                            AvahiStringList* pTexts,
                            AvahiLookupResultFlags pFlags,
                            void* pSelf);

    AvahiSimplePoll* m_poll = nullptr;  ///< owned
    AvahiClient* m_client = nullptr;    ///< owned, with what was made of it
    bool m_hasFailed = false;
    bool m_isComplete = false;  ///< Avahi has told all that it knew at first
    int m_pending = 0;          ///< addresses that were asked for
    std::map<Key, Os2lAddress> m_found;
};

}  // namespace shared

// SPDX-License-Identifier: MIT
#pragma once

#include <shared/outputs/OutputReceiver.h>
#include <shared/outputs/os2l/Os2lAnswers.h>
#include <shared/outputs/os2l/Os2lBrowser.h>
#include <shared/outputs/os2l/TcpLine.h>

#include <QCoreApplication>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace shared {

/// Light programs that understand OS2L: the one at an address, or all that make themselves known.
/// Each gets the beats whatever becomes of the others, and is looked for when it has gone.
class Os2lReceiver : public OutputReceiver
{
    Q_DECLARE_TR_FUNCTIONS(shared::Os2lReceiver)

public:
    static constexpr std::uint16_t kPort = 9996;  ///< where nothing else is said
    static constexpr int kPatience = 1000;        ///< ms for an answer of the net
    static constexpr std::int64_t kPause =
        1000000;  ///< µs between attempts to reach one of several

    /// Called with what a light program tells. [receiver's thread]
    using OnAnswer = std::function<void(const Os2lAnswer& pAnswer)>;

    /// pAddress: none = all that are found. pOnAnswer may be empty.
    explicit Os2lReceiver(std::optional<Os2lAddress> pAddress, OnAnswer pOnAnswer = {});
    ~Os2lReceiver() override;

    /// HOST, HOST:PORT or [ADDRESS]:PORT; none when it is none of these.
    static std::optional<Os2lAddress> AddressOf(const QString& pText);

    bool Open() override;
    void Close() override;
    QString getState() const override;
    bool Beat(const OutputMoment& pMoment) override;
    bool Rest() override;

private:
    struct Peer
    {
        Os2lAddress address;
        TcpLine line;
        Os2lAnswers answers;
        std::int64_t attemptTime = 0;  ///< µs; when it is to be tried again
    };

    bool _Look(int pMilliSeconds);
    bool _OpenBrowser(bool pIsAtOnce);
    Peer& _PeerOf(const QString& pName);
    void _Await();
    void _Reach(Peer& pPeer) const;
    void _Listen(Peer& pPeer) const;
    bool _isAnyUp() const;
    QString _Names() const;

    std::optional<Os2lAddress> m_address;
    OnAnswer m_onAnswer;
    Os2lBrowser m_browser;
    std::int64_t m_browserTime = 0;  ///< µs; when it is to be opened again
    bool m_isBlind = false;          ///< nobody is there to ask who is in the net
    std::vector<std::unique_ptr<Peer>> m_peers;
};

}  // namespace shared

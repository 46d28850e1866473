// SPDX-License-Identifier: MIT
#pragma once

#include <cli/live/ProfileChoice.h>
#include <shared/web/WebPage.h>

#include <QCoreApplication>
#include <QTimer>

#include <functional>

/// The page of "listen": what can be chosen there, and what becomes of it.
class ListenWeb
{
    Q_DECLARE_TR_FUNCTIONS(ListenWeb)

public:
    /// What else "listen" does for it.
    struct Host
    {
        std::function<void(const QString& pWords)> say;         ///< to people
        std::function<QString()> getInput;                      ///< kDefaultInput = follows it
        std::function<void(const QString& pName)> changeInput;  ///< null = it cannot be changed
    };

    /// Nothing of it is owned.
    ListenWeb(LiveBeats& pBeats,
              Hands& pHands,
              const Outputs& pOutputs,
              Configuration& pConfiguration,
              Host pHost);

    WebPage& getPage() { return m_page; }

private:
    static constexpr int kLookMs = 500;  ///< for what can be chosen by now

    void _Look();
    void _FindInputs();
    void _ChooseProfile(const QString& pName);
    void _ChooseInput(const QString& pName);

    Host m_host;
    ProfileChoice m_profiles;
    WebPage m_page;
    std::vector<shared::WebInput> m_inputs;
    bool m_isListOld = true;  ///< that of the inputs
    QTimer m_look;
};

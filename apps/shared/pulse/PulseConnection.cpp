// SPDX-License-Identifier: MIT
#include <shared/pulse/PulseConnection.h>

#include <QCoreApplication>

#include <algorithm>
#include <chrono>
#include <utility>

namespace {

constexpr pa_usec_t kFirstDelay = 100000;  // µs
constexpr pa_usec_t kLastDelay = 1000000;  // µs
constexpr pa_usec_t kAskPeriod = 1000000;  // µs

PulseConnection& ConnectionOf(void* pThis)
{
    return *static_cast<PulseConnection*>(pThis);
}

/// Nobody waits for the end of what was asked.
void Forget(pa_operation* pOperation)
{
    if (pOperation)
        pa_operation_unref(pOperation);
}

}  // namespace

PulseConnection::Lock::Lock(PulseConnection& pConnection) : m_pLoop(pConnection.m_pLoop)
{
    pa_threaded_mainloop_lock(m_pLoop);
}

PulseConnection::Lock::~Lock()
{
    pa_threaded_mainloop_unlock(m_pLoop);
}

PulseConnection::PulseConnection() : m_pLoop(pa_threaded_mainloop_new()), m_delay(kFirstDelay) {}

PulseConnection::~PulseConnection()
{
    pa_threaded_mainloop_stop(m_pLoop);
    _Drop();
    pa_threaded_mainloop_free(m_pLoop);
}

PulseConnection::eAnswer PulseConnection::Start(int pTimeoutMs)
{
    _Connect();
    pa_threaded_mainloop_start(m_pLoop);
    const eAnswer answer = _AwaitAnswer(pTimeoutMs);
    if (answer == eAbsent) {
        pa_threaded_mainloop_stop(m_pLoop);
        _Drop();
    }
    return answer;
}

PulseConnection::eAnswer PulseConnection::_AwaitAnswer(int pTimeoutMs)
{
    std::unique_lock<std::mutex> guard(m_mutex);
    m_changed.wait_for(
        guard, std::chrono::milliseconds(pTimeoutMs), [this] { return m_answer.has_value(); });
    return m_answer.value_or(eSilent);
}

std::vector<SoundSource> PulseConnection::getSources() const
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    std::vector<SoundSource> sources;
    for (const auto& [index, source] : m_sources) {
        sources.push_back(source);
        sources.back().isDefault = source.name == m_default;
    }
    std::stable_partition(sources.begin(), sources.end(), [](const SoundSource& pSource) {
        return pSource.isDefault;
    });
    return sources;
}

bool PulseConnection::isAnswering() const
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    return m_isAnswering;
}

pa_context* PulseConnection::getContext() const
{
    const bool isReady = m_pContext && pa_context_get_state(m_pContext) == PA_CONTEXT_READY;
    return isReady ? m_pContext : nullptr;
}

// ---- The connection: on libpulse's thread, or while that does not run ---------------------------

/// A context that has failed cannot be used again, so each attempt has a new one.
void PulseConnection::_Connect()
{
    _Drop();
    const QByteArray name = QCoreApplication::applicationName().toUtf8();
    m_pContext = pa_context_new(pa_threaded_mainloop_get_api(m_pLoop), name.constData());
    pa_context_set_state_callback(m_pContext, &_StateCallback, this);
    // Whether a server is there is for the user to say, so none is started.
    pa_context_connect(m_pContext, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr);
}

void PulseConnection::_ConnectLater()
{
    if (m_pTimer)
        pa_threaded_mainloop_get_api(m_pLoop)->time_free(m_pTimer);
    m_pTimer =
        pa_context_rttime_new(m_pContext, pa_rtclock_now() + m_delay, &_ConnectCallback, this);
    m_delay = std::min(2 * m_delay, kLastDelay);
}

void PulseConnection::_Drop()
{
    if (m_pTimer)
        pa_threaded_mainloop_get_api(m_pLoop)->time_free(std::exchange(m_pTimer, nullptr));
    if (!m_pContext)
        return;
    pa_context_set_state_callback(m_pContext, nullptr, nullptr);
    pa_context_set_subscribe_callback(m_pContext, nullptr, nullptr);
    pa_context_disconnect(m_pContext);
    pa_context_unref(std::exchange(m_pContext, nullptr));
}

void PulseConnection::_OnState()
{
    const pa_context_state_t state = pa_context_get_state(m_pContext);
    if (state == PA_CONTEXT_READY)
        return _OnReady();
    if (PA_CONTEXT_IS_GOOD(state))
        return;
    _ConnectLater();
    const std::lock_guard<std::mutex> guard(m_mutex);
    m_sources.clear();
    m_default.clear();
    m_isAsked = false;
    m_isAnswering = false;
    if (!m_answer)
        m_answer = eAbsent;
    m_changed.notify_all();
}

void PulseConnection::_OnReady()
{
    m_delay = kFirstDelay;
    pa_context_set_subscribe_callback(m_pContext, &_EventCallback, this);
    const auto events =
        pa_subscription_mask_t(PA_SUBSCRIPTION_MASK_SOURCE | PA_SUBSCRIPTION_MASK_SERVER);
    Forget(pa_context_subscribe(m_pContext, events, nullptr, nullptr));
    _Ask();
    Forget(pa_context_get_source_info_list(m_pContext, &_ListCallback, this));
    m_pTimer =
        pa_context_rttime_new(m_pContext, pa_rtclock_now() + kAskPeriod, &_AskCallback, this);
}

/// Only a server that has answered before is asked again. What it is asked for is small, and of
/// use.
void PulseConnection::_Ask()
{
    {
        const std::lock_guard<std::mutex> guard(m_mutex);
        m_isAnswering = m_isAnswering && !m_isAsked;
        if (std::exchange(m_isAsked, true))
            return;
    }
    Forget(pa_context_get_server_info(m_pContext, &_ServerCallback, this));
}

// ---- The sources --------------------------------------------------------------------------------

void PulseConnection::_OnEvent(pa_subscription_event_type_t pType, std::uint32_t pIndex)
{
    const int facility = pType & PA_SUBSCRIPTION_EVENT_FACILITY_MASK;
    if (facility == PA_SUBSCRIPTION_EVENT_SERVER) {
        Forget(pa_context_get_server_info(m_pContext, &_ServerCallback, this));
    } else if ((pType & PA_SUBSCRIPTION_EVENT_TYPE_MASK) != PA_SUBSCRIPTION_EVENT_REMOVE) {
        Forget(pa_context_get_source_info_by_index(m_pContext, pIndex, &_SourceCallback, this));
    } else {
        const std::lock_guard<std::mutex> guard(m_mutex);
        m_sources.erase(pIndex);
    }
}

void PulseConnection::_OnSource(const pa_source_info& pInfo)
{
    SoundSource source;
    source.name = QString::fromUtf8(pInfo.name);
    source.description = QString::fromUtf8(pInfo.description);
    source.channels = pInfo.sample_spec.channels;
    source.sampleRate = int(pInfo.sample_spec.rate);
    source.isMonitor = pInfo.monitor_of_sink != PA_INVALID_INDEX;
    const std::lock_guard<std::mutex> guard(m_mutex);
    m_sources[pInfo.index] = source;
}

void PulseConnection::_OnServer(const pa_server_info& pInfo)
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    m_default = QString::fromUtf8(pInfo.default_source_name);
    m_isAsked = false;
    m_isAnswering = true;
}

void PulseConnection::_OnListed()
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    if (!m_answer)
        m_answer = eReady;
    m_changed.notify_all();
}

// ---- What libpulse calls ------------------------------------------------------------------------

void PulseConnection::_StateCallback(pa_context*, void* pThis)
{
    ConnectionOf(pThis)._OnState();
}

void PulseConnection::_EventCallback(pa_context*,
                                     pa_subscription_event_type_t pType,
                                     std::uint32_t pIndex,
                                     void* pThis)
{
    ConnectionOf(pThis)._OnEvent(pType, pIndex);
}

/// Without an info the source has gone meanwhile.
void PulseConnection::_SourceCallback(pa_context*, const pa_source_info* pInfo, int, void* pThis)
{
    if (pInfo)
        ConnectionOf(pThis)._OnSource(*pInfo);
}

void PulseConnection::_ListCallback(pa_context*,
                                    const pa_source_info* pInfo,
                                    int pIsLast,
                                    void* pThis)
{
    if (pIsLast != 0)
        ConnectionOf(pThis)._OnListed();
    else
        ConnectionOf(pThis)._OnSource(*pInfo);
}

void PulseConnection::_ServerCallback(pa_context*, const pa_server_info* pInfo, void* pThis)
{
    if (pInfo)
        ConnectionOf(pThis)._OnServer(*pInfo);
}

void PulseConnection::_ConnectCallback(pa_mainloop_api*,
                                       pa_time_event*,
                                       const timeval*,
                                       void* pThis)
{
    ConnectionOf(pThis)._Connect();
}

void PulseConnection::_AskCallback(pa_mainloop_api*,
                                   pa_time_event* pTimer,
                                   const timeval*,
                                   void* pThis)
{
    PulseConnection& self = ConnectionOf(pThis);
    self._Ask();
    // Asking may have found that the server is gone.
    if (self.m_pTimer == pTimer)
        pa_context_rttime_restart(self.m_pContext, pTimer, pa_rtclock_now() + kAskPeriod);
}

// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/audio/QtAudioInputDevicesManager.h>
#include <AudioAnalyzer/config/Configuration.h>

#include <shared/capture/CaptureSession.h>

#include <QStringList>
#include <QtTest>

#include <fake/FakeAudioState.h>
#include <utility>
#include <vector>

/// A session on the fake back end with short limits, and a log of its signals.
class SessionLog
{
public:
    SessionLog() : session(configuration)
    {
        CaptureSession::Limits limits;
        limits.noDataMs = 300;
        limits.firstDataMs = 600;
        limits.reopenMs = 900;
        limits.retryMs = 50;
        limits.levelWindow = 0.1;
        limits.slowEnumerationMs = 1000;
        session.setLimits(limits);
        using S = CaptureSession;
        QObject::connect(&session, &S::OnStateChanged, [this](eCaptureState pState) {
            const char* const names[] = {"closed", "waiting", "unusable", "starting", "running"};
            m_log.append(QLatin1String(names[pState]));
        });
        QObject::connect(
            &session,
            &S::OnNotice,
            [this](eCaptureNotice pNotice) {
                const char* const names[] = {"no data", "silence", "too quiet", "clipped"};
                m_log.append(QLatin1String(names[pNotice]));
            });
        QObject::connect(
            &session, &S::OnAnalyzerCreated, [this] { m_log.append(QStringLiteral("analyzer")); });
        QObject::connect(
            &session, &S::OnAnchored, [this] { m_log.append(QStringLiteral("anchored")); });
    }

    static FakeAudioDevice Device(const char* pName = "Deck")
    {
        FakeAudioDevice device;
        device.name = QLatin1String(pName);
        return device;
    }

    void Open(const char* pName = "Deck") { session.Open(QLatin1String(pName)); }
    /// Opens, lets the first block arrive and forgets the log so far.
    void Run()
    {
        Open();
        Push(std::vector<qint16>(480, 100));
        Take();
    }
    QString Take() { return std::exchange(m_log, {}).join(QLatin1Char(' ')); }
    QString Peek() const { return m_log.join(QLatin1Char(' ')); }

    static void Push(const std::vector<qint16>& pSamples)
    {
        FakeAudioState::Get().LastInput()->Push(QByteArray(
            reinterpret_cast<const char*>(pSamples.data()), int(pSamples.size() * sizeof(qint16))));
    }
    /// What the watcher does every two seconds.
    static void Poll() { QtAudioInputDevicesManager::GetInstance()->OnTimer(); }

    Configuration configuration;
    CaptureSession session;

private:
    QStringList m_log;
};

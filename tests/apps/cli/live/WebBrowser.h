// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>
#include <QWebSocket>
#include <QtTest>

/// Somebody who looks at the page of "listen", and what can be chosen there.
class WebBrowser
{
public:
    /// The page's link.
    explicit WebBrowser(const QString& pLink) : m_socket(QUrl(pLink).toString(QUrl::RemovePath))
    {
        QObject::connect(&m_socket, &QWebSocket::textMessageReceived, [this](const QString& pText) {
            const QJsonObject message = QJsonDocument::fromJson(pText.toUtf8()).object();
            if (message[QStringLiteral("type")] == QLatin1String("choices"))
                m_choices = message;
        });
        QUrl link(pLink);
        link.setScheme(QStringLiteral("ws"));
        m_socket.open(link);
    }

    void Send(const char* pMessage) { m_socket.sendTextMessage(QString::fromUtf8(pMessage)); }
    /// The profile or input that is chosen.
    QString getChosen(const char* pWhat) const
    {
        return m_choices[QLatin1String(pWhat)].toString(QStringLiteral("nothing told"));
    }
    /// The names of the profiles that can be chosen.
    QStringList getProfiles() const
    {
        QStringList names;
        for (const auto& name : m_choices[QStringLiteral("profiles")].toArray())
            names += name.toString();
        return names;
    }
    /// The inputs: "name", "name=description", and a star behind monitors.
    QStringList getInputs() const
    {
        QStringList inputs;
        for (const auto& value : m_choices[QStringLiteral("inputs")].toArray()) {
            const QJsonObject input = value.toObject();
            const QString words = input[QStringLiteral("description")].toString();
            const bool isMonitor = input[QStringLiteral("isMonitor")].toBool();
            inputs += input[QStringLiteral("name")].toString() +
                      (words.isEmpty() ? QString() : QLatin1Char('=') + words) +
                      (isMonitor ? QStringLiteral("*") : QString());
        }
        return inputs;
    }

private:
    QWebSocket m_socket;
    QJsonObject m_choices;
};

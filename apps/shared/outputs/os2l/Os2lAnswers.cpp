// SPDX-License-Identifier: MIT
#include <shared/outputs/os2l/Os2lAnswers.h>

#include <QJsonDocument>
#include <QJsonObject>

#include <optional>

namespace shared {

namespace {

std::optional<Os2lAnswer> Parse(const QByteArray& pObject)
{
    const QJsonObject object = QJsonDocument::fromJson(pObject).object();
    const QJsonValue name = object[QLatin1String("name")];
    const QString state = object[QLatin1String("state")].toString();
    const bool isOn = state == QLatin1String("on");
    if (object[QLatin1String("evt")] != QLatin1String("feedback") || !name.isString() ||
        (!isOn && state != QLatin1String("off")))
        return std::nullopt;
    return Os2lAnswer{name.toString(), object[QLatin1String("page")].toString(), isOn};
}

}  // namespace

std::vector<Os2lAnswer> Os2lAnswers::Take(const QByteArray& pBytes)
{
    std::vector<Os2lAnswer> answers;
    for (const char byte : pBytes) {
        if (m_depth == 0 && byte != '{')
            continue;
        m_object += byte;
        const bool isEnd = _IsEnd(byte);
        if (isEnd) {
            const std::optional<Os2lAnswer> answer = Parse(m_object);
            if (answer)
                answers.push_back(*answer);
        }
        if (isEnd || m_object.size() >= kLongest)
            *this = Os2lAnswers();
    }
    return answers;
}

/// Counts braces, but not those in texts.
bool Os2lAnswers::_IsEnd(char pByte)
{
    if (m_isInText) {
        m_isInText = pByte != '"' || m_isEscaped;
        m_isEscaped = pByte == '\\' && !m_isEscaped;
        return false;
    }
    m_isInText = pByte == '"';
    m_depth += pByte == '{' ? 1 : pByte == '}' ? -1 : 0;
    return m_depth == 0;
}

}  // namespace shared

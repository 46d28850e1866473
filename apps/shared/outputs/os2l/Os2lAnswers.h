// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace shared {

/// What a light program tells of one of its buttons.
struct Os2lAnswer
{
    QString name;
    QString page;
    bool isOn;
};

/// Finds the answers in the bytes that a light program sends, however they are cut: JSON objects,
/// with anything or nothing between them. What is something else, or too long, is dropped.
class Os2lAnswers
{
public:
    static constexpr int kLongest = 16384;  ///< bytes of an object

    /// The answers that are complete with these bytes.
    std::vector<Os2lAnswer> Take(const QByteArray& pBytes);
    /// Bytes that are kept for an object that is not complete.
    int getKeptCount() const { return m_object.size(); }

private:
    bool _IsEnd(char pByte);

    QByteArray m_object;  ///< its bytes so far; empty between objects
    int m_depth = 0;      ///< braces that are open
    bool m_isInText = false;
    bool m_isEscaped = false;  ///< the byte before was a backslash, in a text
};

}  // namespace shared

// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <vector>

/// An output as a user keeps it.
struct StoredOutput
{
    QString name;           ///< 1 to OutputSettings::kLongestName printable characters
    QString kind;           ///< as "--osc" without its hyphens
    QString address;        ///< what the kind makes of it; empty = the kind's own
    QString preset;         ///< likewise
    double offset = 0.0;    ///< ms by which it is told later, up to OutputSettings::kFarthestOffset
    bool isEnabled = true;  ///< hosts send to it without being asked

    bool operator==(const StoredOutput& pOther) const;
};

/// The outputs that a user keeps. They stand in "AudioAnalyzer.ini", in a group of their own,
/// beside what that file says of the window; see UISettings. All hosts share them.
///
/// Threads: one at a time.
class OutputSettings
{
    Q_DECLARE_TR_FUNCTIONS(OutputSettings)

public:
    static constexpr int kMostOutputs = 64;
    static constexpr int kLongestName = 40;
    static constexpr int kLongestText = 2000;         ///< characters, of address and preset
    static constexpr double kFarthestOffset = 500.0;  ///< ms

    /// Reads the file. What is malformed is left out, and told by getProblems().
    static OutputSettings Load();
    /// Leaves the rest of the file as it is. False when it cannot be written.
    bool Save() const;
    /// What was left out, in words for people.
    const QStringList& getProblems() const { return m_problems; }

    const std::vector<StoredOutput>& getOutputs() const { return m_outputs; }
    /// Letter case does not count. Null when there is none. [valid until the next change]
    const StoredOutput* Find(const QString& pName) const;
    StoredOutput* Find(const QString& pName);
    /// Returns what is refused, in words for people, or an empty text.
    QString Add(const StoredOutput& pOutput);
    /// An output takes the place of the one called pName. Returns as Add() does.
    QString Replace(const QString& pName, const StoredOutput& pOutput);
    bool Remove(const QString& pName);

private:
    QString _Check(const StoredOutput& pOutput, const StoredOutput* pReplaced) const;

    std::vector<StoredOutput> m_outputs;
    QStringList m_problems;
};

// SPDX-License-Identifier: MIT
#pragma once

#include <shared/settings/FileLock.h>

#include <QCoreApplication>
#include <QSettings>
#include <QString>

namespace shared {

/// A program's turn with a group of "AudioAnalyzer.ini": held from reading it to writing it, so
/// that of two programs that change it at once neither loses anything. Ends with this object.
///
/// Threads: any one.
class ChoicesTurn
{
    Q_DECLARE_TR_FUNCTIONS(shared::ChoicesTurn)

public:
    static constexpr int kPatienceMs = 5000;  ///< with one and the same holder

    /// Waits. False, and getError(), when another program keeps its turn. Where no turn can be
    /// taken, nobody waits: writing the file says what is wrong with its place.
    bool Take(int pPatienceMs = kPatienceMs);
    /// In words for people.
    QString getError() const;

private:
    FileLock m_lock;
};

/// A text of the file. A comma that somebody wrote by hand makes a list; it is put back.
QString choiceText(const QSettings& pFile, const QString& pKey);

}  // namespace shared

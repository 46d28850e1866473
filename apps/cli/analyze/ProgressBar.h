// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QString>

/// One line on the terminal that shows how far long work has come. It appears after a second and is
/// drawn ten times a second at most.
class ProgressBar
{
public:
    explicit ProgressBar(bool pIsEnabled);
    ~ProgressBar() { Clear(); }
    Q_DISABLE_COPY(ProgressBar)

    /// pFraction of the work is done, in [0, 1].
    void Show(const QString& pLabel, double pFraction);
    /// pSeconds of audio of unknown length are done.
    void ShowSeconds(const QString& pLabel, double pSeconds);
    /// Wipes the line; to be called before anything else is printed.
    void Clear();

private:
    bool _isDue() const;
    void _Draw(const QString& pLine);

    bool m_isEnabled;
    bool m_isDrawn = false;
    QElapsedTimer m_sinceStart;
    QElapsedTimer m_sinceDrawn;
};

// SPDX-License-Identifier: MIT
#include <cli/Console.h>
#include <cli/analyze/ProgressBar.h>
#include <cli/detail/ProgressLine.h>

namespace {

constexpr qint64 kPatienceMs = 1000;
constexpr qint64 kIntervalMs = 100;

}  // namespace

ProgressBar::ProgressBar(bool pIsEnabled) : m_isEnabled(pIsEnabled)
{
    m_sinceStart.start();
}

void ProgressBar::Show(const QString& pLabel, double pFraction)
{
    if (!_isDue())
        return;
    const double elapsed = double(m_sinceStart.elapsed()) / 1000.0;
    // The last column stays free: a full line would make some terminals scroll.
    _Draw(cli::ProgressLine(pLabel, pFraction, elapsed, console::getColumns() - 1));
}

void ProgressBar::ShowSeconds(const QString& pLabel, double pSeconds)
{
    if (_isDue())
        _Draw(cli::ProgressLine(pLabel, pSeconds, console::getColumns() - 1));
}

void ProgressBar::Clear()
{
    if (m_isDrawn)
        console::PrintRaw("\r\033[K");
    m_isDrawn = false;
}

bool ProgressBar::_isDue() const
{
    return m_isEnabled && m_sinceStart.elapsed() >= kPatienceMs &&
           (!m_isDrawn || m_sinceDrawn.elapsed() >= kIntervalMs);
}

void ProgressBar::_Draw(const QString& pLine)
{
    console::PrintRaw('\r' + pLine.toLocal8Bit() + "\033[K");
    m_isDrawn = true;
    m_sinceDrawn.start();
}

// SPDX-License-Identifier: MIT
#include <cli/Console.h>

#include <cerrno>
#include <sys/ioctl.h>
#include <unistd.h>

namespace console {

void PrintLine(const QString& pText)
{
    QString line = pText;
    line.replace(QLatin1Char('\n'), QLatin1Char(' '));
    PrintRaw(line.toLocal8Bit() + '\n');
}

void PrintError(const QString& pText)
{
    PrintLine(QStringLiteral("audio-analyzer: ") + pText);
}

bool PrintRaw(const QByteArray& pText)
{
    for (int written = 0; written < pText.size();) {
        const ssize_t count = ::write(
            STDERR_FILENO, pText.constData() + written, std::size_t(pText.size() - written));
        if (count < 0 && errno != EINTR)
            return false;
        written += count > 0 ? int(count) : 0;
    }
    return true;
}

bool isTerminal()
{
    return ::isatty(STDERR_FILENO) == 1 && qgetenv("TERM") != "dumb";
}

int getColumns()
{
    constexpr int kUsualColumns = 80;
    winsize size = {};
    if (::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0)
        return kUsualColumns;
    return size.ws_col;
}

}  // namespace console

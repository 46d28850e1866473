// SPDX-License-Identifier: MIT
#include <cli/evaluate/EvaluationFiles.h>
#include <shared/text/Text.h>

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>

namespace {

/// What a person can make out of a word that may come from a file of any kind.
QString Shown(const QByteArray& pWord)
{
    constexpr int kLongest = 20;
    QString text = QString::fromUtf8(pWord.left(kLongest));
    for (QChar& character : text)
        if (!character.isPrint())
            character = QLatin1Char('?');
    return text;
}

/// A finite number with a decimal point, whatever the locale; not one otherwise.
double ToNumber(const QByteArray& pWord)
{
    bool isNumber = false;
    const double number = pWord.toDouble(&isNumber);
    return isNumber && std::isfinite(number) ? number : std::nan("");
}

QList<QByteArray> Split(QByteArray pLine)
{
    QList<QByteArray> words;
    const int comment = pLine.indexOf('#');
    if (comment >= 0)
        pLine.truncate(comment);
    for (const QByteArray& word : pLine.replace(',', ' ').replace(';', ' ').simplified().split(' '))
        if (!word.isEmpty())
            words.append(word);
    return words;
}

bool Open(QFile& pFile)
{
    if (pFile.fileName() == QLatin1String("-"))
        return pFile.open(stdin, QIODevice::ReadOnly);
    return !QFileInfo(pFile).isDir() && pFile.open(QIODevice::ReadOnly);
}

/// Hands the words of each line that has some to pTake, which returns what is wrong with them.
QString ReadLines(const QString& pPath,
                  const std::function<QString(const QList<QByteArray>&)>& pTake)
{
    constexpr int kLongestLine = 65536;
    QFile file(pPath);
    if (!Open(file)) {
        return tr("%1: %2").arg(pPath,
                                QFileInfo(pPath).isDir() ? tr("is a folder") : file.errorString());
    }
    for (int number = 1;; ++number) {
        const QByteArray line = file.readLine(kLongestLine);
        if (line.isEmpty())
            break;
        const QList<QByteArray> words = Split(line);
        const bool isCut = line.size() + 1 >= kLongestLine;
        const QString refusal = isCut             ? tr("is no line of text")
                                : words.isEmpty() ? QString()
                                                  : pTake(words);
        if (!refusal.isEmpty())
            return tr("%1:%2: %3").arg(pPath).arg(number).arg(refusal);
    }
    return file.error() == QFileDevice::NoError ? QString()
                                                : tr("%1: %2").arg(pPath, file.errorString());
}

}  // namespace

QString readBeatFile(const QString& pPath, BeatTimes& pBeats)
{
    return ReadLines(
        pPath,
        [&](const QList<QByteArray>& pWords) {
            const double time = ToNumber(pWords.first());
            if (std::isnan(time))
                return tr("\"%1\" is no time; begin each line with a beat's seconds")
                    .arg(Shown(pWords.first()));
            if (!pBeats.empty() && time < pBeats.back())
                return tr("%1 s lies before the beat ahead of it; put the beats in order")
                    .arg(Shown(pWords.first()));
            pBeats.push_back(time);
            return QString();
        });
}

QString readTempoFile(const QString& pPath, double& pTempo)
{
    pTempo = 0.0;
    const QString refusal = ReadLines(pPath, [&](const QList<QByteArray>& pWords) {
        std::vector<double> numbers;
        for (const QByteArray& word : pWords)
            numbers.push_back(ToNumber(word));
        const bool isTempo = numbers.size() <= 3 && pTempo == 0.0 &&
                             std::all_of(numbers.begin(), numbers.end(), [](double pNumber) {
                                 return pNumber >= 0.0;
                             });
        if (!isTempo)
            return tr("give one line with a tempo, or with two tempos and the share of the first");
        constexpr double kHalf = 0.5;
        const bool isSecond = numbers.size() == 3 && numbers[2] < kHalf;
        pTempo = isSecond ? numbers[1] : numbers[0];
        return QString();
    });
    return refusal;
}

QString getRecordingName(const QString& pPath)
{
    const QString name = QFileInfo(pPath).fileName();
    for (const QString& suffix : getBeatSuffixes() + QStringList(getTempoSuffix()))
        if (name.size() > suffix.size() && name.endsWith(suffix, Qt::CaseInsensitive))
            return name.left(name.size() - suffix.size());
    return name;
}

const QStringList& getBeatSuffixes()
{
    static const QStringList suffixes = {QStringLiteral(".beats.txt"),
                                         QStringLiteral(".labels.txt"),
                                         QStringLiteral(".beats"),
                                         QStringLiteral(".csv")};
    return suffixes;
}

QString getTempoSuffix()
{
    return QStringLiteral(".tempo.txt");
}

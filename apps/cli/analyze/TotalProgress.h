// SPDX-License-Identifier: MIT
#pragma once

#include <QFileInfo>
#include <QStringList>

#include <algorithm>
#include <cstddef>
#include <vector>

/// Progress of work on many files, each counting as much as its size.
class TotalProgress
{
public:
    explicit TotalProgress(const QStringList& pFiles)
    {
        for (const QString& file : pFiles)
            m_files.push_back({double(std::max<qint64>(1, QFileInfo(file).size())), 0.0});
    }

    /// pFraction of file number pFile is done, in [0, 1].
    void Set(std::size_t pFile, double pFraction) { m_files[pFile].fraction = pFraction; }

    /// In [0, 1]; 0 without files.
    double getFraction() const
    {
        double done = 0.0;
        double all = 0.0;
        for (const File& file : m_files) {
            done += file.size * file.fraction;
            all += file.size;
        }
        return all > 0.0 ? done / all : 0.0;
    }

private:
    struct File
    {
        double size;      ///< bytes, at least 1
        double fraction;  ///< done, in [0, 1]
    };

    std::vector<File> m_files;
};

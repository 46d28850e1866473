// SPDX-License-Identifier: MIT
#pragma once

#include <QFileInfo>
#include <QString>

namespace shared {

/// The file that a path leads to through links, which need not exist. Links that lead round in a
/// circle give one of their own.
inline QString LinkTarget(const QString& pPath)
{
    constexpr int kMostLinks = 40;
    QString path = pPath;
    for (int i = 0; i < kMostLinks && QFileInfo(path).isSymLink(); ++i)
        path = QFileInfo(path).symLinkTarget();
    return path;
}

}  // namespace shared

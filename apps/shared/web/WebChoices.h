// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace shared {

/// An input, as the page offers it.
struct WebInput
{
    QString name;
    QString description = {};  ///< for people; empty = none but the name
    bool isMonitor = false;    ///< of what the machine plays itself
};

/// What can be chosen on the page, and what is chosen: also what is not offered any more.
struct WebChoices
{
    QStringList profiles;          ///< beside the automatic tracker
    QString profile;               ///< empty = the automatic tracker
    std::vector<WebInput> inputs;  ///< none = there is nothing to be chosen
    QString input;                 ///< a name
};

}  // namespace shared

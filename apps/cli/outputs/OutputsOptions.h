// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

/// What "outputs" was asked to do.
struct OutputsOptions
{
    enum eAction
    {
        eList,
        eAdd,
        eEdit,
        eRemove,
        eEnable,
        eDisable,
        eTest
    };

    eAction action = eList;
    QString name;                  ///< of eTest: a name, or a kind
    QString kind;                  ///< of eAdd
    std::optional<QString> place;  ///< ADDRESS[/PRESET]; with eTest name is a kind
    QString newName;               ///< empty = it stays
    std::optional<double> offset;  ///< ms
    bool showsPorts = false;       ///< with eList, what can be reached now
};

// SPDX-License-Identifier: MIT
#pragma once

#include <shared/settings/AnalysisOptions.h>

#include <QString>

/// What "profiles" was asked to do.
struct ProfilesOptions
{
    enum eAction
    {
        eList,
        eAdd,
        eEdit,
        eRemove,
        eSelect
    };

    eAction action = eList;
    QString name;
    QString newName;          ///< empty = it stays
    AnalysisOptions changes;  ///< bpm, band and sensibility
};

/// What "config" was asked to do.
struct ConfigOptions
{
    enum eAction
    {
        eShow,
        eSet,
        ePath,
        eReset
    };

    eAction action = eShow;
    QString key;
    QString value;
    bool isAll = false;  ///< resets the user's profiles as well
};

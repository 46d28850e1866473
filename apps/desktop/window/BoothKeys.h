// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QKeySequence>
#include <QString>

#include <array>

/// What an operator does with one key.
enum eBoothAction
{
    eTapAction,
    eOneAction,
    eRoundAction,
    eHoldAction,
    eEarlierAction,
    eLaterAction,
    eDoubleAction,
    eHalfAction,
    eSearchAction,
    eAutomaticAction,
    eProfileAction,  ///< one for each of nine digits
    eOutputsAction,
    eMuteAction,
    ePauseAction,
    eNearerAction,
    eFartherAction,
    eStageAction,
    eKeysAction,
    eBoothActionCount
};

/// The one table of these keys: the menu, the page of keys, the documents and the tests are made of
/// it, or compared with it.
class BoothKeys
{
    Q_DECLARE_TR_FUNCTIONS(BoothKeys)

public:
    struct Key
    {
        const char* pKey;   ///< as QKeySequence reads it; of eProfileAction the first of nine
        const char* pName;  ///< as the documents write it
        const char* pText;  ///< with the letter that Alt reaches
        bool isRepeated;    ///< while the key is held
    };

    static const std::array<Key, eBoothActionCount>& getTable();
    static QKeySequence getSequence(const Key& pKey)
    {
        return QKeySequence(QLatin1String(pKey.pKey));
    }
    static QString getName(const Key& pKey) { return QString::fromUtf8(pKey.pName); }
    /// In the language in force.
    static QString getText(const Key& pKey) { return tr(pKey.pText); }
    /// Without the mark of the letter that Alt reaches.
    static QString getPlainText(const Key& pKey) { return getText(pKey).remove(QLatin1Char('&')); }
};

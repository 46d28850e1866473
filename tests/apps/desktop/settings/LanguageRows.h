// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/settings/Translations.h>

#include <QtTest>

/// A row of test data for each language.
inline void LanguageRows()
{
    QTest::addColumn<QString>("language");
    for (const Translations::Language& language : Translations::getLanguages())
        QTest::newRow(qPrintable(language.code)) << language.code;
}

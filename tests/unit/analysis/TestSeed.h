// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QtGlobal>

/// Seed of the random tests, printed so that a failure can be repeated by setting the variable.
inline quint64 testSeed()
{
    const char* const pName = "AUDIOANALYZER_TEST_SEED";
    const quint64 seed = qEnvironmentVariableIsSet(pName) ? qgetenv(pName).toULongLong() : 20240;
    qInfo("%s=%llu", pName, seed);
    return seed;
}

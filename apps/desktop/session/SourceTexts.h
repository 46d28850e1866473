// SPDX-License-Identifier: MIT
#pragma once

#include <shared/capture/SourceState.h>

#include <QCoreApplication>
#include <QString>

/// The words in which the window says what it hears.
class SourceTexts
{
    Q_DECLARE_TR_FUNCTIONS(SourceTexts)

public:
    struct Text
    {
        QString text;
        bool isWarning;  ///< something is to be done
    };

    static Text Describe(const SourceState& pState);
    /// The same without what passes.
    static QString DescribeBriefly(const SourceState& pState);
    /// What helps at a first start; empty while there is something else to be done.
    static QString DescribeBeginning(const SourceState& pState);
    /// m:ss, or h:mm:ss from an hour on.
    static QString DescribeTime(double pSeconds);

private:
    static Text _DescribeNotice(const SourceState& pState);
    static Text _DescribeUnusable(const SourceState& pState);
    static Text _DescribeDevice(const SourceState& pState);
    static Text _DescribeFile(const SourceState& pState);
    static QString _DescribeWhat(const SourceState& pState);
    static QString _DescribeSilence(eFileSound pSound);
};

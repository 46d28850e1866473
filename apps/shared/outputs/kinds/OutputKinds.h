// SPDX-License-Identifier: MIT
#pragma once

#include <shared/outputs/OutputReceiver.h>
#include <shared/outputs/OutputSettings.h>
#include <shared/outputs/Outputs.h>

#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace shared {

/// A way to reach receivers. All that is particular to one, for a host, stands here.
struct OutputKind
{
    /// Null, and pReason in words for people, when the address or preset is not understood. Opens
    /// nothing.
    using Maker = std::unique_ptr<OutputReceiver> (*)(const QString& pAddress,
                                                      const QString& pPreset,
                                                      QString& pReason);

    /// Where an address ends and a preset begins.
    enum eDivision
    {
        eAtNoSlash,  ///< it has no presets
        eAtFirstSlash,
        eAtLastSlash
    };

    const char* name;   ///< also of its option: "osc"
    const char* place;  ///< the form of its address: "HOST:PORT[/PRESET]"
    bool needsAddress;  ///< else there is one of its own
    eDivision division;
    Maker make;
    QString (*describe)();                            ///< whom it reaches, for a help
    QString (*describePresets)();                     ///< which there are; null = none
    QStringList (*listPresets)();                     ///< to choose from; null = none
    QString (*describeTest)(const QString& pPreset);  ///< what is to be seen of a test
    QStringList (*find)();  ///< addresses that can be reached now; waits; null = nobody knows
};

const std::vector<OutputKind>& getOutputKinds();
/// Null when there is none.
const OutputKind* findOutputKind(const QString& pName);
/// Null, and pReason in words for people, when it is not understood. Opens nothing.
std::unique_ptr<OutputReceiver> makeReceiver(const QString& pKind,
                                             const QString& pAddress,
                                             const QString& pPreset,
                                             QString& pReason);
/// Why no receiver can be made of an output, in words for people; empty when one can.
QString findOutputFault(const StoredOutput& pOutput);
/// Begins to send to a stored output. Returns why it cannot be used, in words for people, or an
/// empty text.
QString addOutput(Outputs& pOutputs, const StoredOutput& pOutput);
/// Divides "ADDRESS/PRESET" for kinds that have presets; fills address and preset of pOutput, whose
/// kind is there.
void readOutputPlace(const QString& pText, StoredOutput& pOutput);
/// The reverse.
QString describeOutputPlace(const StoredOutput& pOutput);

}  // namespace shared

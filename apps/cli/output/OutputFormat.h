// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>
#include <vector>

/// What the analysis of a file is written as.
enum eOutputFormat
{
    eBeatsFormat,   ///< seconds, one beat a line
    eLabelsFormat,  ///< Audacity label track
    eCsvFormat,     ///< time,label
    eSvlFormat,     ///< Sonic Visualiser layer
    eTempoFormat,   ///< MIREX tempo line
    eJsonFormat,    ///< one document
    eNdjsonFormat   ///< one event a line, as it happens
};

struct OutputFormatInfo
{
    eOutputFormat format;
    QString name;    ///< as given with --format
    QString suffix;  ///< of derived file names, with the dot
    /// The outputs of several files may follow each other in one stream.
    bool isSequence;
};

/// All formats, in the order of the help.
const std::vector<OutputFormatInfo>& getOutputFormats();
const OutputFormatInfo& getOutputFormat(eOutputFormat pFormat);
/// By name in any case; nothing for an unknown one.
std::optional<eOutputFormat> findOutputFormat(const QString& pName);

// SPDX-License-Identifier: MIT
#include <cli/output/OutputFormat.h>

#include <algorithm>

const std::vector<OutputFormatInfo>& getOutputFormats()
{
    // In the order of eOutputFormat.
    static const std::vector<OutputFormatInfo> formats = {
        {eBeatsFormat, QStringLiteral("beats"), QStringLiteral(".beats.txt"), true},
        {eLabelsFormat, QStringLiteral("labels"), QStringLiteral(".labels.txt"), false},
        {eCsvFormat, QStringLiteral("csv"), QStringLiteral(".csv"), false},
        {eSvlFormat, QStringLiteral("svl"), QStringLiteral(".svl"), false},
        {eTempoFormat, QStringLiteral("tempo"), QStringLiteral(".tempo.txt"), true},
        {eJsonFormat, QStringLiteral("json"), QStringLiteral(".json"), false},
        {eNdjsonFormat, QStringLiteral("ndjson"), QStringLiteral(".ndjson"), true},
    };
    return formats;
}

const OutputFormatInfo& getOutputFormat(eOutputFormat pFormat)
{
    return getOutputFormats()[std::size_t(pFormat)];
}

std::optional<eOutputFormat> findOutputFormat(const QString& pName)
{
    const auto& formats = getOutputFormats();
    const auto found = std::find_if(formats.begin(), formats.end(), [&](const auto& pInfo) {
        return pInfo.name.compare(pName, Qt::CaseInsensitive) == 0;
    });
    if (found == formats.end())
        return std::nullopt;
    return found->format;
}

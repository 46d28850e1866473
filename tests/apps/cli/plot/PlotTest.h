// SPDX-License-Identifier: MIT
#pragma once

#include <cli/plot/LevelTrace.h>
#include <shared/beats/AnalysisResult.h>

#include <QFile>
#include <QStringList>
#include <QXmlStreamReader>

#include <cmath>

/// 60 s with a beat every half second, silence from 40 s to 45 s, and a tempo from 3 s on.
inline AnalysisResult makeResult()
{
    AnalysisResult result;
    result.source = QStringLiteral("/music/my song.flac");
    result.sampleRate = 44100;
    result.sampleCount = 60 * 44100;
    for (int i = 0; i < 120; ++i) {
        const double time = 0.5 * i;
        const bool isVirtual = time >= 40.0 && time < 45.0;
        result.beats.push_back({quint64(time * 44100), time, isVirtual, 9000, 0.9, 120.0});
        result.tempos.push_back({time, time < 3.0 ? 0.0 : 119.5 + 0.01 * i});
        if (!isVirtual)
            result.pulseTimes.push_back(time);
    }
    result.silences.push_back({40.0, 45.0});
    return result;
}

inline LevelTrace makeTrace(double pDuration)
{
    LevelTrace trace;
    for (double time = 0.0; time < pDuration; time += 0.0232)
        trace.Append(time, int(20000.0 * std::fabs(std::cos(2.0 * M_PI * time))), 8000);
    return trace;
}

struct Svg
{
    bool isValid = false;
    QString error;
    QStringList texts;
    bool refersOutside = false;
};

inline Svg parse(const QString& pPath)
{
    Svg svg;
    QFile file(pPath);
    if (!file.open(QIODevice::ReadOnly))
        return svg;
    QXmlStreamReader reader(&file);
    while (!reader.atEnd()) {
        reader.readNext();
        for (const QXmlStreamAttribute& attribute : reader.attributes())
            svg.refersOutside |= attribute.name() == QLatin1String("href") &&
                                 !attribute.value().startsWith(QLatin1Char('#')) &&
                                 !attribute.value().startsWith(QLatin1String("data:"));
        if (reader.isStartElement() && reader.name() == QLatin1String("text"))
            svg.texts << reader.readElementText(QXmlStreamReader::IncludeChildElements).trimmed();
    }
    svg.isValid = !reader.hasError();
    svg.error = reader.errorString();
    return svg;
}

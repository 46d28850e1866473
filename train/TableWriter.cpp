// SPDX-License-Identifier: MIT
#include "TableWriter.h"

#include <QFile>
#include <QTextStream>

#include <cmath>
#include <map>
#include <stdexcept>

namespace {

// What plays, by genre; no names.
QString describe(const std::vector<Track>& pTracks)
{
    std::map<QString, int> genres;
    double seconds = 0.0;
    for (const Track& track : pTracks) {
        ++genres[track.genre];
        seconds += track.duration;
    }
    QStringList texts;
    for (const auto& genre : genres)
        texts << QStringLiteral("%1 %2").arg(genre.first).arg(genre.second);
    return QStringLiteral("%1 annotated pieces, %2 minutes (%3)")
        .arg(pTracks.size())
        .arg(qRound(seconds / 60.0))
        .arg(texts.join(QLatin1String(", ")));
}

QString numberText(float pValue)
{
    const double rounded = std::round(double(pValue) * 1e4) / 1e4;
    return QString::number(rounded == 0.0 ? 0.0 : rounded, 'f', 4) + QLatin1Char('F');
}

}  // namespace

void writeTable(const QString& pPath,
                const detail::MeterTable& pTable,
                const std::vector<Track>& pTracks,
                std::size_t pStudies)
{
    QFile file(pPath);
    if (!file.open(QIODevice::WriteOnly))
        throw std::runtime_error("cannot write " + pPath.toStdString());
    QTextStream out(&file);
    out << "// SPDX-License-Identifier: MIT\n// clang-format off\n"
        << "// Made by script/train FOLDER from " << describe(pTracks) << "\n"
        << "// and " << pStudies << " studies of our own (audio-analyzer-scenes study).\n"
        << "// For each beat of the bar, step of phase and range, the lowest first: c0, c1, c2.\n"
        << "#include <AudioAnalyzer/analysis/detail/MeterTable.h>\n\n"
        << "namespace detail {\n\n"
        << "const MeterTable kMeterTable = {\n    {\n";
    for (const auto& beat : pTable.fit) {
        out << "        {\n";
        for (const auto& bin : beat) {
            out << "            {";
            for (const auto& fit : bin)
                out << "{" << numberText(fit[0]) << ", " << numberText(fit[1]) << ", "
                    << numberText(fit[2]) << "}, ";
            out << "},\n";
        }
        out << "        },\n";
    }
    out << "    },\n    {";
    for (const float weight : pTable.confidence)
        out << numberText(weight) << ", ";
    out << "},\n};\n// clang-format on\n\n}  // namespace detail\n";
}

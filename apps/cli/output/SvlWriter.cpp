// SPDX-License-Identifier: MIT
#include <cli/output/SvlWriter.h>
#include <cli/output/TextNumbers.h>

#include <QXmlStreamWriter>

#include <initializer_list>
#include <utility>

namespace {

using Attribute = std::pair<const char*, QString>;

void WriteAttributes(QXmlStreamWriter& pXml, std::initializer_list<Attribute> pAttributes)
{
    for (const Attribute& attribute : pAttributes)
        pXml.writeAttribute(QLatin1String(attribute.first), attribute.second);
}

void WriteModel(QXmlStreamWriter& pXml, const AnalysisResult& pResult)
{
    pXml.writeEmptyElement(QStringLiteral("model"));
    WriteAttributes(pXml,
                    {{"id", QStringLiteral("1")},
                     {"name", QString()},
                     {"sampleRate", QString::number(pResult.sampleRate)},
                     {"start", QStringLiteral("0")},
                     {"end", QString::number(pResult.sampleCount)},
                     {"type", QStringLiteral("sparse")},
                     {"dimensions", QStringLiteral("1")},
                     {"resolution", QStringLiteral("1")},
                     {"notifyOnAdd", QStringLiteral("true")},
                     {"dataset", QStringLiteral("0")}});
}

void WriteBeats(QXmlStreamWriter& pXml, const AnalysisResult& pResult)
{
    pXml.writeStartElement(QStringLiteral("dataset"));
    WriteAttributes(pXml, {{"id", QStringLiteral("0")}, {"dimensions", QStringLiteral("1")}});
    std::size_t number = 0;
    for (const LoggedBeat& beat : pResult.beats) {
        pXml.writeEmptyElement(QStringLiteral("point"));
        WriteAttributes(pXml,
                        {{"frame", QString::number(beat.index)},
                         {"label", QString::fromLatin1(cli::BeatLabel(beat, ++number))}});
    }
    pXml.writeEndElement();
}

void WriteDisplay(QXmlStreamWriter& pXml)
{
    pXml.writeStartElement(QStringLiteral("display"));
    pXml.writeEmptyElement(QStringLiteral("layer"));
    WriteAttributes(pXml,
                    {{"id", QStringLiteral("2")},
                     {"type", QStringLiteral("timeinstants")},
                     {"name", QStringLiteral("Beats")},
                     {"model", QStringLiteral("1")},
                     {"plotStyle", QStringLiteral("0")},
                     {"colourName", QStringLiteral("Orange")},
                     {"colour", QStringLiteral("#ff9632")},
                     {"darkBackground", QStringLiteral("false")}});
    pXml.writeEndElement();
}

}  // namespace

QByteArray makeSvlDocument(const AnalysisResult& pResult)
{
    QByteArray document;
    QXmlStreamWriter xml(&document);
    xml.setAutoFormatting(true);
    xml.setAutoFormattingIndent(2);
    xml.writeStartDocument();
    xml.writeDTD(QStringLiteral("<!DOCTYPE sonic-visualiser>"));
    xml.writeStartElement(QStringLiteral("sv"));
    xml.writeStartElement(QStringLiteral("data"));
    WriteModel(xml, pResult);
    WriteBeats(xml, pResult);
    xml.writeEndElement();
    WriteDisplay(xml);
    xml.writeEndDocument();
    return document;
}

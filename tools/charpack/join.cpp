#include "join.h"

#include <QFile>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <functional>
#include <stdexcept>

namespace {

const QString rigNamespace = "urn:host-character:1";

/// Hands every token between the root's start and end to `each`, the root's own start to `root`.
void readXml(const QString& path, const std::function<void(QXmlStreamReader&)>& root,
             const std::function<void(QXmlStreamReader&)>& each)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error((path + ": " + file.errorString()).toStdString());
    QXmlStreamReader xml(&file);
    if (xml.readNextStartElement())
        root(xml);
    for (int depth = 1; depth > 0 && !xml.atEnd();) {
        const auto type = xml.readNext();
        if (type == QXmlStreamReader::StartElement)
            ++depth;
        else if (type == QXmlStreamReader::EndElement)
            --depth;
        if (depth > 0 && type != QXmlStreamReader::Invalid)
            each(xml);
    }
    if (xml.hasError()) {
        throw std::runtime_error(
            QString("%1, line %2: %3").arg(path).arg(xml.lineNumber()).arg(xml.errorString()).toStdString());
    }
}

void copyToken(QXmlStreamReader& from, QXmlStreamWriter& to)
{
    if (!from.isStartElement())
        return to.writeCurrentToken(from);
    // The namespaces are declared once, in the root.
    to.writeStartElement(from.namespaceUri().toString(), from.name().toString());
    to.writeAttributes(from.attributes());
}

} // namespace

QByteArray joinCharacter(const QString& drawing, const QString& rig, const QStringList& gestures)
{
    QByteArray joined;
    QXmlStreamWriter out(&joined);
    const auto copy = [&](QXmlStreamReader& xml) { copyToken(xml, out); };
    const auto nothing = [](QXmlStreamReader&) {};
    const auto metadata = [&](QXmlStreamReader& svg) {
        out.writeDefaultNamespace(svg.namespaceUri().toString());
        out.writeNamespace(rigNamespace, "h");
        copy(svg);
        out.writeCharacters("\n");
        out.writeStartElement(svg.namespaceUri().toString(), "metadata");
        readXml(rig, copy, copy);
        for (const QString& file : gestures)
            readXml(file, nothing, copy);
        out.writeEndElement(); // character
        out.writeEndElement(); // metadata
    };
    readXml(drawing, metadata, copy);
    out.writeEndElement();
    out.writeCharacters("\n");
    return joined;
}

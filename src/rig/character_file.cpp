#include "rig/character_file.h"

#include "rig/drawing_rules.h"
#include "rig/rig_reader.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

namespace rig {

namespace {

constexpr qint64 maxBytes = qint64{1} << 20;
constexpr qsizetype maxTagBytes = 32'000;
constexpr int maxElements = 5'000;
constexpr int maxDepth = 16;

const QString svgNamespace = "http://www.w3.org/2000/svg";
const QString rigNamespace = "urn:host-character:1";

/// What must hold before the XML reader sees a byte.
void checkBytes(const QByteArray& bytes)
{
    if (bytes.size() > maxBytes)
        throw Defect{"the file is larger than 1 MiB"};
    QStringDecoder decode(QStringDecoder::Utf8);
    const QString text = decode(bytes);
    if (decode.hasError() || bytes.contains('\0') || text.isEmpty())
        throw Defect{"the file is no UTF-8 text"};
    // The time the XML reader takes grows with the square of the attributes of one tag.
    for (qsizetype open = bytes.indexOf('<'); open >= 0;) {
        const qsizetype next = bytes.indexOf('<', open + 1);
        const qsizetype close = bytes.indexOf('>', open);
        if ((close < 0 ? bytes.size() : close) - open > maxTagBytes)
            throw Defect{"a tag is too long", bytes.first(open).count('\n') + 1};
        open = next;
    }
}

/// One pass over the file that lets through only what both readers understand alike.
class Pass
{
public:
    Rig run(const QByteArray& bytes)
    {
        checkBytes(bytes);
        xml_.addData(bytes);
        while (!xml_.atEnd())
            token(xml_.readNext());
        if (xml_.hasError())
            throw Defect{xml_.errorString()};
        drawing_.checkReferences();
        return rig_.finish(drawing_.parts(), drawing_.viewBox());
    }

    /// 0 before anything is read.
    [[nodiscard]] qint64 line() const
    {
        return xml_.tokenType() == QXmlStreamReader::NoToken ? 0 : xml_.lineNumber();
    }

private:
    void token(QXmlStreamReader::TokenType type)
    {
        switch (type) {
        case QXmlStreamReader::StartElement:
            return start();
        case QXmlStreamReader::EndElement:
            --depth_;
            if (xml_.namespaceUri() == rigNamespace)
                rig_.end(xml_.name().toString());
            return;
        case QXmlStreamReader::Characters:
            if (!xml_.isWhitespace())
                throw Defect{"there is text between the elements"};
            return;
        case QXmlStreamReader::StartDocument:
            if (const auto encoding = xml_.documentEncoding();
                !encoding.isEmpty() && encoding.compare(u"UTF-8", Qt::CaseInsensitive) != 0)
                throw Defect{"the encoding must be UTF-8"};
            return;
        case QXmlStreamReader::DTD:
        case QXmlStreamReader::EntityReference:
        case QXmlStreamReader::ProcessingInstruction:
            throw Defect{"a document type, an entity or a processing instruction is not allowed"};
        default:
            return;
        }
    }

    void start()
    {
        const QString name = xml_.name().toString();
        if (++elements_ > maxElements)
            throw Defect{QString("there are more than %1 elements").arg(maxElements)};
        if (depth_ >= maxDepth)
            throw Defect{"the elements are nested too deep"};
        const bool inMetadata = metadataDepth_ > 0 && depth_ > metadataDepth_;
        if (xml_.namespaceUri() != (inMetadata ? rigNamespace : svgNamespace))
            throw defectIn(name, "the element \"%1\" does not belong here");
        if (inMetadata) {
            rig_.start(name, xml_.attributes(), line());
        } else {
            metadataDepth_ = name == u"metadata" ? depth_ : 0;
            if (metadataDepth_ > 1)
                throw Defect{"the metadata must stand in the root"};
            drawing_.element(name, xml_.attributes(), depth_, line());
        }
        ++depth_;
    }

    QXmlStreamReader xml_;
    DrawingRules drawing_;
    RigReader rig_;
    int elements_ = 0;
    int depth_ = 0;
    int metadataDepth_ = 0; ///< 0 outside metadata
};

[[noreturn]] void fail(const QString& name, qint64 line, const QString& text)
{
    const QString place = line > 0 ? QString("%1, line %2: ").arg(name).arg(line) : name + ": ";
    throw FileFailure((place + text).toStdString());
}

} // namespace

CharacterFile readCharacterFile(const QString& path)
{
    // Opening a pipe or a device could wait for ever.
    if (!QFileInfo(path).isFile())
        fail(path, 0, "there is no such file");
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        fail(path, 0, file.errorString());
    QByteArray bytes = file.read(maxBytes + 1);
    bytes.squeeze();
    return readCharacter(bytes, path);
}

CharacterFile readCharacter(const QByteArray& bytes, const QString& name)
{
    Pass pass;
    try {
        return {pass.run(bytes), bytes};
    } catch (const Defect& defect) {
        fail(name, defect.line > 0 ? defect.line : pass.line(), defect.text);
    }
}

} // namespace rig

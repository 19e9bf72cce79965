#include "bank/lines.h"

#include "bank/text.h"

#include <QFile>
#include <QStringDecoder>

#include <cstdio>
#include <utility>

namespace bank {
namespace {

QByteArray contentOf(const std::filesystem::path& path)
{
    QFile file;
    if (!isStandard(path))
        file.setFileName(nameOf(path));
    const bool opened =
        isStandard(path) ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    QByteArray content = opened ? file.readAll() : QByteArray();
    if (!opened || file.error() != QFileDevice::NoError)
        throw Failure(QString("%1 cannot be read: %2").arg(nameOf(path), file.errorString()));
    return content;
}

} // namespace

QString nameOf(const std::filesystem::path& file)
{
    return isStandard(file) ? QString("standard input") : QString::fromStdString(file.string());
}

bool isStandard(const std::filesystem::path& file)
{
    return file == "-";
}

TextFile textFile(const QString& name, const QByteArray& bytes, Complaints& complaints)
{
    const auto encoding = QStringConverter::encodingForData(bytes).value_or(QStringConverter::Utf8);
    QStringDecoder decoder(encoding, QStringDecoder::Flag::Stateless);
    QString content = decoder(bytes);
    if (decoder.hasError() && encoding != QStringConverter::Utf8)
        complaints.add({name}, "the file is not valid UTF-16; save it as UTF-8");
    return {name, std::move(content)};
}

TextFile readText(const std::filesystem::path& file, Complaints& complaints)
{
    return textFile(nameOf(file), contentOf(file), complaints);
}

std::vector<Line> linesOf(const TextFile& file)
{
    std::vector<Line> lines;
    Place place{file.name};
    for (const QStringView line : QStringView(file.content).split(u'\n')) {
        const QStringView text = line.trimmed();
        const auto blanks = text.data() - line.data();
        ++place.line;
        place.column = static_cast<int>(blanks) + 1;
        lines.push_back({place, text.toString()});
    }
    return lines;
}

} // namespace bank

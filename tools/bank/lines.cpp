#include "bank/lines.h"

#include "bank/text.h"

#include <QFile>
#include <QStringDecoder>

namespace bank {
namespace {

QByteArray contentOf(const std::filesystem::path& path)
{
    QFile file(path);
    const bool opened = file.open(QIODevice::ReadOnly);
    QByteArray content = opened ? file.readAll() : QByteArray();
    if (!opened || file.error() != QFileDevice::NoError)
        throw Failure(QString("%1 cannot be read: %2").arg(nameOf(path), file.errorString()));
    if (content.startsWith("\xEF\xBB\xBF"))
        content.remove(0, 3);
    return content;
}

std::optional<QString> decoded(QByteArrayView bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8,
                           QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    QString text = decoder(bytes);
    return decoder.hasError() ? std::nullopt : std::optional(text);
}

} // namespace

QString nameOf(const std::filesystem::path& file)
{
    return QString::fromStdString(file.string());
}

QString readText(const std::filesystem::path& file, Complaints& complaints)
{
    const QByteArray content = contentOf(file);
    if (auto text = decoded(content))
        return *std::move(text);
    Place place{nameOf(file)};
    for (const QByteArray& line : content.split('\n')) {
        ++place.line;
        if (!decoded(line))
            complaints.add(place, "the line is not valid UTF-8; save the file as UTF-8");
    }
    return QString::fromUtf8(content);
}

std::vector<Line> readLines(const std::filesystem::path& file, Complaints& complaints)
{
    std::vector<Line> lines;
    const QString content = readText(file, complaints);
    Place place{nameOf(file)};
    for (const QStringView line : QStringView(content).split(u'\n')) {
        const QStringView text = line.trimmed();
        ++place.line;
        place.column = static_cast<int>(text.data() - line.data()) + 1;
        lines.push_back({place, text.toString()});
    }
    return lines;
}

} // namespace bank

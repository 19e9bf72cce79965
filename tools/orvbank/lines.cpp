#include "bank/lines.h"

#include <QFile>
#include <QStringDecoder>

#include <algorithm>

namespace bank {
namespace {

bool isControl(char32_t c)
{
    const auto category = QChar::category(c);
    return category == QChar::Other_Control || category == QChar::Separator_Line ||
           category == QChar::Separator_Paragraph;
}

QString decoded(const QByteArray& bytes, const Place& place, Complaints& complaints)
{
    // Each line is decoded by itself: a character cut off at the end of one is an error of that line.
    QStringDecoder decoder(QStringDecoder::Utf8,
                           QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    QString text = decoder(bytes);
    if (decoder.hasError()) {
        complaints.add(place, QStringLiteral("the line is not valid UTF-8"));
    }
    const auto points = text.toUcs4();
    const auto control = std::find_if(points.begin(), points.end(), isControl);
    if (control != points.end()) {
        complaints.add(place, QStringLiteral("control character U+%1").arg(*control, 4, 16, QChar(u'0')));
    }
    return text.trimmed();
}

QByteArray contentOf(const std::filesystem::path& path)
{
    QFile file(path);
    const bool opened = file.open(QIODevice::ReadOnly);
    QByteArray content = opened ? file.readAll() : QByteArray();
    if (!opened || file.error() != QFileDevice::NoError) {
        throw Failure(QStringLiteral("%1 cannot be read: %2")
                          .arg(QString::fromStdString(path.string()), file.errorString()));
    }
    if (content.startsWith("\xEF\xBB\xBF")) {
        content.remove(0, 3);
    }
    return content;
}

} // namespace

std::vector<Line> readLines(const std::filesystem::path& file, Complaints& complaints)
{
    std::vector<Line> lines;
    Place place{file.string()};
    for (auto bytes : contentOf(file).split('\n')) {
        ++place.line;
        if (bytes.endsWith('\r')) {
            bytes.chop(1);
        }
        const QString text = decoded(bytes, place, complaints);
        if (!text.startsWith(u'#')) {
            lines.push_back({place, text});
        }
    }
    return lines;
}

} // namespace bank

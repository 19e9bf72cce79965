#include "bank/formats.h"

#include "bank/lines.h"

namespace bank {

const Format* formatNamed(const std::string& name)
{
    for (const Format& format : formats)
        if (QString::fromStdString(name).compare(QString(format.name), Qt::CaseInsensitive) == 0)
            return &format;
    return nullptr;
}

const Format& formatOf(const std::filesystem::path& file)
{
    const QString ending = QString::fromStdString(file.extension().string()).toLower();
    for (const Format& format : formats)
        if (QString(format.endings).split(u' ').contains(ending))
            return format;
    throw Failure(QString("%1: the name tells no format; end it in .csv, .gift, .aiken or .txt, or give "
                          "--format")
                      .arg(nameOf(file)));
}

} // namespace bank

#include "bank/formats.h"

#include "bank/text.h"

namespace bank {

const Format& formatNamed(const std::string& name)
{
    const QString wanted = QString::fromStdString(name).toLower();
    QStringList names;
    for (const Format& format : formats) {
        if (wanted == QString(format.name))
            return format;
        names << format.name;
    }
    const QString meant = nearestName(wanted, names);
    throw Failure(QString("there is no format %1; %2 are known%3")
                      .arg(quoted(QString::fromStdString(name)), names.join(", "),
                           meant.isEmpty() ? QString() : QString(". Did you mean %1?").arg(meant)));
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

#pragma once

#include <QString>

namespace toolkit::author {

inline const QString name = QStringLiteral("The Orvanta Team");
inline const QString email = QStringLiteral("team@orvanta.example");
inline const QString site = QStringLiteral("www.orvanta.example");

} // namespace toolkit::author

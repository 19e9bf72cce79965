#pragma once

#include <QString>

namespace toolkit::author {

inline const QString name = "The Orvanta Team";
inline const QString email = "team@orvanta.example";
inline const QString site = "www.orvanta.example";

} // namespace toolkit::author

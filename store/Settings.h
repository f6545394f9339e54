#pragma once
// The program's registry key and the names of its values.

#include <QString>

namespace Settings {
inline const QString kKey = QStringLiteral("Software\\Orn\\Kovalin");

inline const QString kAsOne = QStringLiteral("AsOne");
inline const QString kPullLast = QStringLiteral("PullLast");
inline const QString kPullWt = QStringLiteral("PullWt");
inline const QString kFillIn = QStringLiteral("FillIn");
inline const QString kCkDate = QStringLiteral("CkDate");
inline const QString kShowBox = QStringLiteral("ShowBox");
inline const QString kDontShow = QStringLiteral("DontShow");
inline const QString kLastUser = QStringLiteral("LastUser");
} // namespace Settings

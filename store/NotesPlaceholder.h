#pragma once
// What a new day's notes hold in every log until the person writes some: shown in the notes box,
// cleared when the box gains the focus, and never kept as a note.

#include <QString>

inline const QString kNotesPlaceholder = QStringLiteral("<Click to add Notes>");

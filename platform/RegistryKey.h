#pragma once
// What an HKEY points to: a key's full path, root name first ('HKEY_CURRENT_USER\Software\Orn\Kovalin'),
// in the spelling the key was created with.

#include <QString>

struct RegistryKey {
    QString path;
};

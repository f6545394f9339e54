#include "StartupNotices.h"

#include "MessageBox.h"
#include "PageHost.h"
#include "RecordDatabase.h"
#include "RegistryHelper.h"
#include "Settings.h"
#include "StringTable.h"
#include "resource.h"

QString StartupNotices::versionOneText() {
    return QStringLiteral(
        "Version 1.x Kovalin data is on your device.  If you would like to import it into Kovalin 2.0, "
        "choose 'Menu' 'Utilities' and 'Import.'");
}

void StartupNotices::show(PageHost& host, QObject* owner) {
    if (RegistryHelper::GetDword(HKEY_CURRENT_USER, Settings::kKey, Settings::kDontShow) == 1) {
        return;
    }
    if (RecordDatabase::Exists(versionOneDatabase())) {
        MessageBoxW(owner, versionOneText(), QStringLiteral("Kovalin"), MB_OK | MB_ICONINFORMATION);
    }
    ConfirmRequest request;
    request.text = StringTable::load(IDS_RELEASENOTES);
    request.dontShowBox = true;
    host.confirm(request);
}

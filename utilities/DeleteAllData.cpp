#include "DeleteAllData.h"

#include "DatabaseCatalogue.h"
#include "RecordDatabase.h"
#include "UtilityReport.h"
#include "VolumeTransaction.h"

QString DeleteAllData::question() {
    return QStringLiteral(
        "This will delete all Kovalin data for the Default user. It does not delete data for users other than "
        "Default (use the Manage Users menu choice to delete users other than Default).  This operation cannot be "
        "undone.  To proceed, type 'yes' in the box and click OK.");
}

QString DeleteAllData::closingMessage() {
    return QStringLiteral("Database Deleted.  Kovalin will now close.  If you restart Kovalin, blank databases will "
                          "be recreated.  Or you may now remove the program.");
}

const QStringList& DeleteAllData::databases() {
    static const QStringList names = [] {
        QStringList list;
        for (UserDatabase which : {UserDatabase::UpperA, UserDatabase::UpperB, UserDatabase::LowerA,
                                   UserDatabase::LowerB, UserDatabase::Food, UserDatabase::Aerobic}) {
            list << DatabaseCatalogue::baseName(which);
        }
        list << QStringLiteral("KovAerobicList") << QStringLiteral("KovCarbList") << QStringLiteral("KovProList")
             << QStringLiteral("KovVegList") << QStringLiteral("KovSuppList") << QStringLiteral("KovChestList")
             << QStringLiteral("KovShldrList") << QStringLiteral("KovBackList") << QStringLiteral("KovBicepsList")
             << QStringLiteral("KovTricepsList") << QStringLiteral("KovQuadsList")
             << QStringLiteral("KovHamstringsList") << QStringLiteral("KovCalvesList") << QStringLiteral("KovAbsList")
             << QStringLiteral("MiscUpperList") << QStringLiteral("MiscLower1List") << QStringLiteral("MiscLower2List");
        return list;
    }();
    return names;
}

bool DeleteAllData::run(UtilityReport& report) {
    if (!RecordDatabase::Exists(DatabaseCatalogue::baseName(UserDatabase::UpperA))) {
        report.message(QStringLiteral("Kovalin database not found"));
        return false;
    }
    // One transaction: every database goes, or none does.
    VolumeTransaction transaction;
    for (const QString& name : databases()) {
        if (!transaction.isActive() || !DatabaseCatalogue::deleteIfExists(name)) {
            report.message(QStringLiteral("Could not delete ") + name + QStringLiteral("."));
            return false;
        }
    }
    if (!transaction.commit()) {
        report.message(QStringLiteral("Could not delete the databases.  Nothing was deleted."));
        return false;
    }
    return true;
}

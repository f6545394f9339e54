#pragma once
// The import of version 1 data into the current user's logs. Version 1 kept four databases with the
// same property layouts as today's logs, each day in one record: KovUpperBody and KovLowerBody (a
// day's header and all six groups' sets), KovAerobic and KovFood. A strength day is split at the
// first set of group 2 into the A and B records. A day whose log already holds an entry is left as it
// is; a day that holds nothing (a page's first visit) takes the imported values. The version 1
// databases are only read.

#include <QString>
#include <QStringList>

class UtilityReport;

class Version1Import {
public:
    struct Counts {
        int upper = 0;
        int lower = 0;
        int aerobic = 0;
        int food = 0;
        int kept = 0; // days not imported because the log already held data on them
    };

    // KovUpperBody, KovLowerBody, KovAerobic, KovFood.
    static const QStringList& databases();
    // True when any of them exists.
    static bool dataPresent();

    // Imports into the logs of user (the empty name: Default) and tells what was imported. False when
    // there is nothing to import or a record could not be read or written.
    static bool run(const QString& user, UtilityReport& report);
    static QString summary(const Counts& counts);
};

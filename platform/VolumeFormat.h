#pragma once
// The file format of a database volume (docs/storage.md): creating it, recognising it, and
// adding to an older or hand-made volume the tables and indexes that this code adds to the format.

#include "WinTypes.h"

#include <QByteArray>

#include <sqlite3.h>

class VolumeFormat {
public:
    static constexpr int kApplicationId = 1263490625; // 'KOVA'
    static constexpr int kUserVersion = 1;

    enum class Kind {
        Volume,     // a volume of this format that passed every check
        Blank,      // a valid SQLite file that holds nothing yet (a volume whose creation never committed)
        NotAVolume, // anything else
    };
    // How much of SQLite's own check runs: none (the header, tables and catalogue are still checked),
    // the quick check (every page), or the full integrity check (indexes matched against tables).
    enum class Depth { Structure, Quick, Full };

    // Settings every connection gets before it reads anything from a file.
    static DWORD harden(sqlite3* db);
    // Recognises a file that exists, reading no record: the header, SQLite's own check (quick or
    // full), the tables and columns, and the catalogue's rows. Returns ERROR_SUCCESS with *kind
    // set, or the error met while reading (a fault of the disk, no permission): a file that could
    // not be read is not judged.
    static DWORD inspect(sqlite3* db, Depth depth, Kind* kind);
    // The volume's identity, given once when it is first accepted; empty when it has none yet or it
    // cannot be read.
    static QByteArray identity(sqlite3* db);
    // Whether the last mount of this volume ended with an unmount (false when it is not known).
    static bool wasClosedCleanly(sqlite3* db);

    // The durability settings every writing connection gets, before its first write.
    static DWORD configure(sqlite3* db);
    // Puts the volume in WAL mode, once it is accepted: a volume in another journal mode (made by
    // hand) is accepted in its own mode, so that a refusal at that point rolls back to the file as
    // it was, and changes mode only then.
    static DWORD useWriteAheadLog(sqlite3* db);
    // Inside the transaction that accepts a volume: writes the whole schema into a blank file
    // (blank), or adds the tables and indexes that a hand-made volume may lack. withRegistry: the
    // object store's registry tables.
    static DWORD complete(sqlite3* db, bool blank, bool withRegistry);
    // Records that the volume is mounted (true) or was unmounted cleanly (false).
    static DWORD markInUse(sqlite3* db, bool inUse);
};

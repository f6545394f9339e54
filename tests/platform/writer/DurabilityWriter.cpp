// Writes records into a volume in a loop until it is killed, printing each record's object id on
// its own line once the write that stored it has returned. Every third write rewrites a record it
// wrote before, whole, with a new seed. Used by DurabilityTest, which kills it at random moments.
//   durability_writer VOLUME

#include "DurabilityRecord.h"

#include <cstdio>
#include <random>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: durability_writer VOLUME\n");
        return 2;
    }
    CEGUID guid;
    if (!CeMountDBVol(&guid, QString::fromLocal8Bit(argv[1]), OPEN_ALWAYS)) {
        std::fprintf(stderr, "cannot mount the volume: error %u\n", GetLastError());
        return 1;
    }
    CEDBASEINFO info;
    info.szDbaseName = DurabilityRecord::kDatabase;
    info.wNumSortOrder = 1;
    info.rgSortSpecs[0].propid = DurabilityRecord::kSeed;
    if (CeCreateDatabaseEx(&guid, &info) == 0 && GetLastError() != ERROR_DUP_NAME) {
        std::fprintf(stderr, "cannot create the database: error %u\n", GetLastError());
        return 1;
    }
    CEOID oid = 0;
    HANDLE db = CeOpenDatabaseEx(&guid, &oid, DurabilityRecord::kDatabase, 0, 0);
    if (db == INVALID_HANDLE_VALUE) {
        std::fprintf(stderr, "cannot open the database: error %u\n", GetLastError());
        return 1;
    }
    std::mt19937 random(std::random_device{}());
    std::vector<CEOID> written;
    // Bounded, so that a writer nobody kills still ends.
    for (int i = 0; i < 100000; ++i) {
        const CEOID target = i % 3 == 2 ? written[random() % written.size()] : 0;
        const CEOID stored = CeWriteRecordProps(db, target, DurabilityRecord::make(random()));
        if (stored == 0) {
            std::fprintf(stderr, "write failed: error %u\n", GetLastError());
            return 1;
        }
        if (target == 0) {
            written.push_back(stored);
        }
        std::printf("%u\n", stored);
        std::fflush(stdout);
    }
    return 0;
}

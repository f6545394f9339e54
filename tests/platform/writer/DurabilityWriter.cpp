// Writes records into a volume in a loop until it is killed. Every third write rewrites a record it
// wrote before, whole, with a new seed, and every seventh operation deletes one. Before a rewrite or
// a delete it prints "? OID SEED" (SEED 0 for a delete), and once any write or delete has returned,
// "= OID SEED": what the test may then expect of that record. Used by DurabilityTest, which kills it
// at random moments, or kills itself at its Nth write of a file (KILL-AT-WRITE).
//   durability_writer VOLUME [KILL-AT-WRITE]

#include "DurabilityRecord.h"
#include "FaultyVfs.h"

#include <cstdio>
#include <cstdlib>
#include <random>

int main(int argc, char** argv) {
    if (argc != 2 && argc != 3) {
        std::fprintf(stderr, "usage: durability_writer VOLUME [KILL-AT-WRITE]\n");
        return 2;
    }
    FaultyVfs vfs;
    if (argc == 3) {
        vfs.killAt(FaultyVfs::Call::Write, std::atoi(argv[2]));
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
        const bool remove = i % 7 == 6 && !written.empty();
        const bool rewrite = !remove && i % 3 == 2 && !written.empty();
        const std::size_t slot = written.empty() ? 0 : random() % written.size();
        const DWORD seed = 1 + random() % 0x7FFFFFFF;
        CEOID stored = 0;
        if (remove || rewrite) {
            std::printf("? %u %u\n", written[slot], remove ? 0 : seed);
            std::fflush(stdout);
        }
        if (remove) {
            stored = CeDeleteRecord(db, written[slot]) ? written[slot] : 0;
        } else {
            stored = CeWriteRecordProps(db, rewrite ? written[slot] : 0, DurabilityRecord::make(seed));
        }
        if (stored == 0) {
            std::fprintf(stderr, "write failed: error %u\n", GetLastError());
            return 1;
        }
        if (remove) {
            written.erase(written.begin() + static_cast<std::ptrdiff_t>(slot));
        } else if (!rewrite) {
            written.push_back(stored);
        }
        std::printf("= %u %u\n", stored, remove ? 0 : seed);
        std::fflush(stdout);
    }
    return 0;
}

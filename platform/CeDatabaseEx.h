#pragma once
// What this platform adds to the device's database service.
//
// Volume transactions: one operation makes many record writes as one transaction of a volume, so
// that it happens whole or not at all, and with one synced commit instead of one per write.
//
// The shape follows the later device generations' CeBeginTransaction / CeEndTransaction, with the
// volume's CEGUID where those take a session handle. Inside a transaction every call keeps its
// semantics: each still happens whole or not at all, seeks and reads see the transaction's own
// writes, and every call sets the last error as before. Outside one, each write is durable on its
// own as always.

#include "CeDatabase.h"

#include <functional>
#include <vector>

// The codes the system gives for a transaction used out of turn.
constexpr DWORD ERROR_TRANSACTION_NOT_ACTIVE = 6701;        // ended, or never begun
constexpr DWORD ERROR_TRANSACTION_REQUEST_NOT_VALID = 6702; // begun while one is open: none nests
constexpr DWORD ERROR_TRANSACTION_ALREADY_ABORTED = 6704;   // lost to a failure of the disk: rolled back

// Begins a transaction on the volume. FALSE with ERROR_TRANSACTION_REQUEST_NOT_VALID while one is
// open on it already, ERROR_INVALID_PARAMETER for a volume not mounted, or the disk's error.
BOOL CeBeginTransaction(const CEGUID* guid);
// Ends the volume's transaction: commit TRUE makes its writes durable at once, FALSE rolls them all
// back. FALSE with ERROR_TRANSACTION_NOT_ACTIVE when none is open; a commit that fails (or a
// transaction the disk's failure already rolled back: ERROR_TRANSACTION_ALREADY_ABORTED) rolls
// everything back and fails with its error. Either way the transaction is over.
BOOL CeEndTransaction(const CEGUID* guid, BOOL commit);

// A mount flag, or'ed with OPEN_EXISTING: the volume is mounted read-only, and nothing of the file
// or its companions is ever changed (a log left beside it is read, never folded into it). Every
// write to such a volume fails with ERROR_ACCESS_DENIED.
constexpr DWORD CEDB_MOUNT_READONLY = 0x00010000;

// Copies up to count records of the database open as from (opened with CEDB_AUTOINCREMENT), from its
// current record on in its order, into the database open as to, on the same volume or another: each
// as a new record with every property verbatim, as count turns of CeReadRecordProps(from) and
// CeWriteRecordProps(to, 0) would, but in one transaction of to's volume and without converting any
// value on the way. from's pointer moves on past the records copied. *copied says how many: fewer
// than count when from ran out. FALSE with the error a read or write would give (ERROR_INVALID_DATA
// for a stored value that a read refuses), and then nothing of this call is kept and from's pointer
// stays where it was. accept, when given, is shown each record's properties as a read gives them
// before the record is kept; a record it refuses fails the call as an unreadable one does.
using CeRecordCheck = std::function<bool(const std::vector<CEPROPVAL>&)>;
BOOL CeCopyRecords(HANDLE from, HANDLE to, DWORD count, DWORD* copied, const CeRecordCheck& accept = {});

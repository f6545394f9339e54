#pragma once
// The string table: the program's longer fixed texts, and the tips of the tool-bar buttons under
// their commands' ids.

#include <QString>

class StringTable {
public:
    // The string of that id; empty when there is none.
    static QString load(int id);
};

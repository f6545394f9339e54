#pragma once
// Reads the six files of the device's CSV export (kovupper.csv ... kovfood.csv) into an
// ImportedHistory. Each cell goes back to the property it was written from, with the type the logs
// store it in; an empty cell is a property the record lacked. What the files do not carry (sets 37
// to 72 of a region, the elapsed seconds) is not touched.

#include "BodyRegion.h"
#include "CsvText.h"
#include "ImportedHistory.h"

class CellReader;

class DeviceCsvReader {
public:
    enum class File { UpperA, UpperB, LowerA, LowerB, Aerobic, Food };

    explicit DeviceCsvReader(ImportedHistory& history) : m_history(history) {}

    // The file a name and header row stand for; std::nullopt for any other.
    static std::optional<File> recognise(const QString& fileName, const QStringList& header);
    void read(File kind, const CsvText& text, const QString& file);

private:
    void readStrength(CellReader& cells, ImportedDay& day, bool b);
    void readAerobic(CellReader& cells, ImportedDay& day);
    void readFood(CellReader& cells, ImportedDay& day);
    void carry(File kind);
    void setInteger(CellReader& cells, int column, ImportedDay& day, WORD number, bool flag = false);
    void setReal(CellReader& cells, int column, ImportedDay& day, WORD number);
    void setText(CellReader& cells, int column, ImportedDay& day, WORD number);
    // "h:m:s": the hour, minute and (when not 0) second properties.
    void setStart(CellReader& cells, int column, ImportedDay& day, WORD hour, WORD minute, WORD second);

    ImportedHistory& m_history;
    bool m_second = false; // writing into the strength B record
    BodyRegion m_region = BodyRegion::Upper;
    // The names the row being read gives the lists: added only when the row reads whole.
    std::vector<std::pair<QString, QString>> m_rowNames;
};

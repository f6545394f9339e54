# The CSV export's sources, relative to utilities/; utilities/CMakeLists.txt includes this list.
set(EXPORT_SOURCES CsvCells.cpp CsvCells.h CsvExport.cpp CsvExport.h CsvFile.cpp CsvFile.h CsvLayout.cpp CsvLayout.h
                   ExportProgress.h)

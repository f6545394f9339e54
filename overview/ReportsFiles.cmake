# The reports page and the report collection, part of the overview library.
set(REPORTS_SOURCES
    ${CMAKE_CURRENT_LIST_DIR}/Report.cpp
    ${CMAKE_CURRENT_LIST_DIR}/Report.h
    ${CMAKE_CURRENT_LIST_DIR}/ReportChart.cpp
    ${CMAKE_CURRENT_LIST_DIR}/ReportChart.h
    ${CMAKE_CURRENT_LIST_DIR}/ReportChoice.h
    ${CMAKE_CURRENT_LIST_DIR}/ReportCollector.cpp
    ${CMAKE_CURRENT_LIST_DIR}/ReportCollector.h
    ${CMAKE_CURRENT_LIST_DIR}/ReportMeasure.cpp
    ${CMAKE_CURRENT_LIST_DIR}/ReportMeasure.h
    ${CMAKE_CURRENT_LIST_DIR}/ReportPeriod.cpp
    ${CMAKE_CURRENT_LIST_DIR}/ReportPeriod.h
    ${CMAKE_CURRENT_LIST_DIR}/ReportsPage.cpp
    ${CMAKE_CURRENT_LIST_DIR}/ReportsPage.h)

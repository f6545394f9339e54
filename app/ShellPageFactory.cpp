#include "ShellPageFactory.h"

#include "AerobicLogPage.h"
#include "CalendarPage.h"
#include "FoodLogPage.h"
#include "ReportsPage.h"
#include "SetGrid.h"
#include "StrengthLogPage.h"
#include "TodayPage.h"

std::unique_ptr<Page> ShellPageFactory::create(PageKind kind, PageHost& host, QWidget* parent) {
    switch (kind) {
    case PageKind::UpperBody:
        return std::make_unique<StrengthLogPage>(host, BodyRegion::Upper, parent);
    case PageKind::Today:
        return std::make_unique<TodayPage>(host, parent);
    case PageKind::LowerBody:
        return std::make_unique<StrengthLogPage>(host, BodyRegion::Lower, parent);
    case PageKind::Aerobic:
        return std::make_unique<AerobicLogPage>(host, parent);
    case PageKind::Food:
        return std::make_unique<FoodLogPage>(host, parent);
    case PageKind::Reports:
        return std::make_unique<ReportsPage>(host, parent);
    case PageKind::Calendar:
        return std::make_unique<CalendarPage>(host, parent);
    case PageKind::SetGrid:
        return std::make_unique<SetGrid>(host, parent);
    }
    return nullptr;
}

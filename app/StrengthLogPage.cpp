#include "StrengthLogPage.h"

#include "PageHeading.h"
#include "resource.h"

#include <QPainter>

#include <algorithm>

namespace {
constexpr int kUpperGroups[] = {ID_UPPER_CHEST,   ID_UPPER_SHOULDERS, ID_UPPER_BACK,
                                ID_UPPER_TRICEPS, ID_UPPER_BICEPS,    ID_UPPER_MISC};
constexpr int kLowerGroups[] = {ID_LOWER_QUADS, ID_LOWER_HAMSTRINGS, ID_LOWER_CALVES,
                                ID_LOWER_ABS,   ID_LOWER_MISC1,      ID_LOWER_MISC2};
} // namespace

StrengthLogPage::StrengthLogPage(PageHost& host, BodyRegion region, QWidget* parent)
    : Page(host, region == BodyRegion::Upper ? IDD_UPPERBODY : IDD_LOWERBODY, QStringLiteral("StrengthLogPage"),
           parent),
      m_region(region) {}

bool StrengthLogPage::handleCommand(int command) {
    const auto& groups = m_region == BodyRegion::Upper ? kUpperGroups : kLowerGroups;
    return std::find(std::begin(groups), std::end(groups), command) != std::end(groups);
}

void StrengthLogPage::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (m_region == BodyRegion::Upper) {
        PageHeading::paint(painter, *this, IDB_UPPERBODY, QStringLiteral("Upper Body"));
    } else {
        PageHeading::paint(painter, *this, IDB_LOWERBODY, QStringLiteral("Lower Body"));
    }
}

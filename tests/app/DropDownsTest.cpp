// Every kind of drop-down list on the pages opens inside the device's screen below its navigation bar,
// wherever its box stands: at the top of the reports page, in the lowest row of the set-entry grid, at
// the bottom of the aerobic page's minutes and on the food page.

#include "SetGrid.h"
#include "Settings.h"
#include "ShellPageFactory.h"
#include "ShellTestSupport.h"
#include "resource.h"

#include <QAbstractItemView>
#include <QComboBox>

namespace {
class DropDownsTest : public ShellTest {};
} // namespace

TEST_F(DropDownsTest, AListOpensInsideTheScreenBelowTheNavigationBar) {
    setNumber(Settings::kShowBox, 1);
    ShellPageFactory pages;
    start(false, &pages);
    const QRect screenArea(screen().mapToGlobal(QPoint(0, 26)), QSize(240, 294));
    const struct {
        int tab; // -1: the set-entry grid of the chest
        int id;
    } boxes[] = {{5, IDC_REPORTS_MEASURE},  {5, IDC_REPORTS_PERIOD},    {3, IDC_AEROBIC_MINUTES[19]},
                 {3, IDC_AEROBIC_EXERCISE}, {4, IDC_FOOD_SLEEPQUALITY}, {-1, IDC_GRID_ROWS[9][0]},
                 {-1, IDC_GRID_ROWS[9][5]}};
    for (const auto& b : boxes) {
        QWidget* page = b.tab >= 0 ? main().page(b.tab) : main().setGrid();
        if (b.tab >= 0) {
            main().SelectPage(b.tab);
        } else if (!page->isVisible()) {
            main().SelectPage(1);
            trigger(ID_UPPER_CHEST);
        }
        auto* box = page->findChild<QComboBox*>(QStringLiteral("c%1").arg(b.id));
        ASSERT_NE(box, nullptr) << b.id;
        box->showPopup();
        const QRect list = box->view()->window()->geometry();
        EXPECT_TRUE(screenArea.contains(list))
            << b.id << ": " << list.x() << "," << list.y() << " " << list.width() << "x" << list.height();
        box->hidePopup();
    }
}

#pragma once
// The strength screens on the whole program, with tap-and-hold installed.

#include "MessageBox.h"
#include "SetGrid.h"
#include "ShellTestSupport.h"
#include "StrengthLogPage.h"
#include "StrengthSet.h"
#include "TapAndHold.h"
#include "resource.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTreeWidget>

// The upper-body databases of the Default user.
inline const QString kUpperA = QStringLiteral("Kov2AUpperBody");
inline const QString kUpperB = QStringLiteral("Kov2BUpperBody");

class StrengthScreenTest : public ScreenTest {
protected:
    // Starts the program and shows the region's tab.
    StrengthLogPage& showPage(BodyRegion region) { return ScreenTest::showPage<StrengthLogPage>(tabOf(region)); }
    StrengthLogPage& page(BodyRegion region) const { return pageOf<StrengthLogPage>(tabOf(region)); }
    SetGrid& grid() const { return *static_cast<SetGrid*>(m_screen->mainDialog().setGrid()); }
    static int tabOf(BodyRegion region) { return region == BodyRegion::Upper ? 1 : 2; }

    QTreeWidget* list(BodyRegion region) const { return control<QTreeWidget>(page(region), IDC_STRENGTH_LIST); }
    QStringList rows(BodyRegion region) const { return rowTexts(list(region)); }

    // Writes sets of a group of day straight into the store, as an earlier visit to the grid left them.
    void writeSets(const QDate& day, const MuscleGroup& group, const QList<StrengthSet>& sets);

    TapAndHold m_tapAndHold{30};
};

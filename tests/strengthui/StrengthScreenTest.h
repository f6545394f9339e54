#pragma once
// The strength screens on the whole program: a started device screen of the program's own pages on
// a fresh device with the clock fixed, tap-and-hold installed, and what the strength databases hold
// read back with plain SQL.

#include "MessageBox.h"
#include "SetGrid.h"
#include "ShellPageFactory.h"
#include "ShellTestSupport.h"
#include "StoredDays.h"
#include "StrengthLogPage.h"
#include "StrengthSet.h"
#include "TapAndHold.h"
#include "resource.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTreeWidget>

constexpr int kI2 = 2, kUI2 = 18, kR8 = 5, kText = 31;

// The day the screen tests show, and the upper-body databases of the Default user.
inline const QDate kToday(2024, 3, 14);
inline const QString kUpperA = QStringLiteral("Kov2AUpperBody");
inline const QString kUpperB = QStringLiteral("Kov2BUpperBody");

inline StrengthSet set(const QString& exercise, const QString& reps, double weight, const QString& rest,
                       int intensity) {
    StrengthSet made;
    made.exercise = exercise;
    made.reps = reps;
    made.weight = weight;
    made.rest = rest;
    made.intensity = intensity;
    return made;
}

class StrengthScreenTest : public ShellTest {
protected:
    // The clock stands at 14 March 2024, 9:41.
    static inline const QDateTime kNow{QDate(2024, 3, 14), QTime(9, 41)};

    StrengthScreenTest();
    ~StrengthScreenTest() override;

    // Starts the program and shows the region's tab.
    StrengthLogPage& showPage(BodyRegion region);
    StrengthLogPage& page(BodyRegion region) const;
    SetGrid& grid() const;
    StoredDays stored() const { return StoredDays(m_device.paths().objectStore()); }

    QTreeWidget* list(BodyRegion region) const { return control<QTreeWidget>(page(region), IDC_STRENGTH_LIST); }
    QStringList rows(BodyRegion region) const { return rowTexts(list(region)); }

    // Writes sets of a group of day straight into the store, as an earlier visit to the grid left them.
    void writeSets(const QDate& day, const MuscleGroup& group, const QList<StrengthSet>& sets);

    ShellPageFactory m_pages;
    TapAndHold m_tapAndHold{30};
};

#pragma once
// The meal dialog (276): the time of one meal and its protein, carbohydrate, vegetable and
// other/supplement items, picked from the four food lists or typed. OK writes the meal into its slot
// of the day's record; Cancel writes nothing.

#include "FoodLists.h"
#include "FoodRecords.h"
#include "Meal.h"

#include <QDate>
#include <QDialog>

#include <array>
#include <optional>

class DeviceCombo;
class ListButton;
class NowButton;
class PageHost;
class QLabel;
class QPushButton;
class TimeControl;

class MealDialog : public QDialog {
    Q_OBJECT
public:
    // A new meal (meal empty) starts at the clock's time with empty items; an edited one shows what
    // its slot holds.
    MealDialog(PageHost& host, FoodRecords records, const QDate& day, int slot, const std::optional<Meal>& meal,
               QWidget* parent);

    // The meal as the controls hold it: the time shown and the four texts, chosen or typed.
    Meal meal() const;
    // Fill list: the kind's foods from its list database (created with its defaults when missing),
    // sorted, keeping the text shown.
    void fillList(FoodKind kind);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void editList(FoodKind kind);
    void putMeal();

    PageHost& m_host;
    FoodRecords m_records;
    QDate m_day;
    int m_slot;

    TimeControl* m_time = nullptr;
    NowButton* m_now = nullptr;
    QLabel* m_picture = nullptr;
    std::array<QLabel*, 4> m_labels{};
    std::array<DeviceCombo*, 4> m_foods{};
    std::array<ListButton*, 4> m_listButtons{};
    QPushButton* m_ok = nullptr;
    QPushButton* m_cancel = nullptr;
};

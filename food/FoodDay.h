#pragma once
// A day's food record as the food page shows it: the day values, the meals listed, and how many of
// them have a protein, a carbohydrate and a vegetable item.

#include "FoodDayValues.h"
#include "Meal.h"

#include <vector>

class FoodDay {
public:
    FoodDay() = default;
    // The meals are those of slots 0, 1, ... up to the first slot without a time: a meal stored
    // behind an emptied slot is not listed until the slot is filled again.
    explicit FoodDay(const DbRecord& record);

    const FoodDayValues& values() const { return m_values; }
    // In slot order: row r is slot r.
    const std::vector<Meal>& meals() const { return m_meals; }
    int proteinCount() const { return m_proteinCount; }
    int carbohydrateCount() const { return m_carbohydrateCount; }
    int vegetableCount() const { return m_vegetableCount; }

private:
    FoodDayValues m_values;
    std::vector<Meal> m_meals;
    int m_proteinCount = 0;
    int m_carbohydrateCount = 0;
    int m_vegetableCount = 0;
};

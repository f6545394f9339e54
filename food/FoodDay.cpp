#include "FoodDay.h"

FoodDay::FoodDay(const DbRecord& record) : m_values(FoodDayValues::fromRecord(record)) {
    for (int slot = 0; slot < Meal::kSlots; ++slot) {
        std::optional<Meal> meal = Meal::fromRecord(record, slot);
        if (!meal) {
            break;
        }
        // The other/supplement item is not counted.
        m_proteinCount += meal->protein.isEmpty() ? 0 : 1;
        m_carbohydrateCount += meal->carbohydrate.isEmpty() ? 0 : 1;
        m_vegetableCount += meal->vegetable.isEmpty() ? 0 : 1;
        m_meals.push_back(std::move(*meal));
    }
}

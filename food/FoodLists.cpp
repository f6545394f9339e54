#include "FoodLists.h"

#include "NameList.h"

QString FoodLists::databaseName(FoodKind kind) {
    switch (kind) {
    case FoodKind::Protein:
        return QStringLiteral("KovProList");
    case FoodKind::Carbohydrate:
        return QStringLiteral("KovCarbList");
    case FoodKind::Vegetable:
        return QStringLiteral("KovVegList");
    case FoodKind::Other:
        return QStringLiteral("KovSuppList");
    }
    return {};
}

QStringList FoodLists::defaults(FoodKind kind) {
    switch (kind) {
    case FoodKind::Protein:
        return {"Chicken", "Turkey", "Fish",  "Salmon",           "Tuna",       "Crab",
                "Lobster", "Shrimp", "Steak", "Lean Ground Beef", "Egg Whites", "Cottage Cheese"};
    case FoodKind::Carbohydrate:
        // Yogurt has always been offered among the carbohydrates.
        return {"Potato", "Yogurt", "Wheat Bread",  "Brown Rice", "Wild Rice", "Pasta", "Oatmeal",
                "Beans",  "Corn",   "Strawberries", "Melon",      "Apple",     "Orange"};
    case FoodKind::Vegetable:
        return {"Broccoli",         "Asparagus",   "Lettuce", "Salad",  "Carrots",
                "Cauliflower",      "Green Beans", "Spinach", "Tomato", "Peas",
                "Brussels Sprouts", "Celery",      "Zucchini"};
    case FoodKind::Other:
        return {};
    }
    return {};
}

std::optional<QStringList> FoodLists::load(FoodKind kind) {
    const NameList list(databaseName(kind));
    if (!list.ensureExists(defaults(kind))) {
        return std::nullopt;
    }
    return list.items();
}

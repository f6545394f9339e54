#pragma once
// The four food item lists of the meal dialog, one name-list database per kind of food, shared by
// all users. A list is created on first use with its default foods; the other/supplement list
// starts empty.

#include <QStringList>

#include <optional>

enum class FoodKind { Protein, Carbohydrate, Vegetable, Other };

class FoodLists {
public:
    // "KovProList", "KovCarbList", "KovVegList", "KovSuppList".
    static QString databaseName(FoodKind kind);
    // The kind's default foods, in the order they are added.
    static QStringList defaults(FoodKind kind);

    // Creates the kind's list with its defaults when missing, then reads its foods in the list's
    // order; std::nullopt when it cannot be created or read.
    static std::optional<QStringList> load(FoodKind kind);
};

#include "SampleVocabulary.h"

#include <array>

const QStringList& SampleVocabulary::exercises(bool upper, int group) {
    static const std::array<QStringList, 6> upperGroups = {{
        {"Dumbbell Bench Press", "Incline Dumbbell Press", "Dumbbell Flyes", "Barbell Bench Press"},
        {"Seated Dumbbell Press", "Standing Barbell Press", "Side Raises", "Bent Over Raises"},
        {"Wide Grip Pulldowns", "One Arm Rows", "Reverse Grip Pulldowns", "Dumbbell Pullovers"},
        {"Dumbbell Extensions", "Close Grip Pushdowns", "Bench Dips", "Lying Dumbbell Extensions"},
        {"Incline Dumbbell Curls", "Seated Dumbbell Curls", "Standing Barbell Curls", "Hammer Curls"},
        {"Shrugs", "Wrist Curls", "Reverse Curls", "Cable Crossovers"},
    }};
    static const std::array<QStringList, 6> lowerGroups = {{
        {"Barbell Squats", "Knee Extensions", "Leg Press", "Dumbbell Squats"},
        {"Dumbbell Lunges", "Standing Leg Curls", "Lying Leg Curls", "Straight Leg Deadlifts"},
        {"Seated Calf Raises", "Standing Calf Raises", "One Leg Calf Raise", "Angled Calf Raise"},
        {"Floor Crunches", "Twist Crunches", "Decline Sit Ups", "Bent Knee Leg Raises"},
        {"Hip Abductions", "Hip Adductions", "Glute Bridges", "Step Ups"},
        {"Back Extensions", "Good Mornings", "Hack Squats", "Sissy Squats"},
    }};
    return upper ? upperGroups.at(group) : lowerGroups.at(group);
}

const QStringList& SampleVocabulary::proteins() {
    static const QStringList items = {"Chicken", "Turkey", "Fish",  "Salmon",           "Tuna",       "Crab",
                                      "Lobster", "Shrimp", "Steak", "Lean Ground Beef", "Egg Whites", "Cottage Cheese"};
    return items;
}

const QStringList& SampleVocabulary::carbohydrates() {
    static const QStringList items = {"Potato", "Yogurt", "Wheat Bread",  "Brown Rice", "Wild Rice", "Pasta", "Oatmeal",
                                      "Beans",  "Corn",   "Strawberries", "Melon",      "Apple",     "Orange"};
    return items;
}

const QStringList& SampleVocabulary::vegetables() {
    static const QStringList items = {"Broccoli",         "Asparagus",   "Lettuce", "Salad",  "Carrots",
                                      "Cauliflower",      "Green Beans", "Spinach", "Tomato", "Peas",
                                      "Brussels Sprouts", "Celery",      "Zucchini"};
    return items;
}

const QStringList& SampleVocabulary::supplements() {
    static const QStringList items = {"", "", "", "Multivitamin", "Whey Protein", "Fish Oil", "Creatine"};
    return items;
}

const QStringList& SampleVocabulary::aerobicExercises() {
    static const QStringList items = {"Running", "Cycling", "Rowing", "Stair Climber", "Elliptical", "Walking"};
    return items;
}

const QStringList& SampleVocabulary::courses() {
    static const QStringList items = {"Park Loop", "River Trail", "Track", "Gym", "Hill Route", "Lake Path"};
    return items;
}

const QStringList& SampleVocabulary::notes() {
    static const QStringList items = {"<Click to add Notes>", "Felt strong today",  "Tired, short on sleep",
                                      "New personal best",    "Cut short: no time", "Easy day",
                                      "Shoulder a bit sore",  "Great pump"};
    return items;
}

const QStringList& SampleVocabulary::numbers() {
    static const QStringList items = [] {
        QStringList list;
        for (int i = 0; i <= 20; ++i) {
            list.append(QString::number(i));
        }
        return list;
    }();
    return items;
}

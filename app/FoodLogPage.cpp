#include "FoodLogPage.h"

#include "PageHeading.h"
#include "resource.h"

#include <QPainter>

FoodLogPage::FoodLogPage(PageHost& host, QWidget* parent)
    : Page(host, IDD_FOOD, QStringLiteral("FoodLogPage"), parent) {}

bool FoodLogPage::handleCommand(int command) {
    return command == ID_FOOD_ADDMEAL;
}

void FoodLogPage::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PageHeading::paint(painter, *this, IDB_FOOD, QStringLiteral("Food"));
}

#include "MealDialog.h"

#include "Bitmaps.h"
#include "Clock.h"
#include "DeviceCombo.h"
#include "ListButton.h"
#include "MessageBox.h"
#include "NowButton.h"
#include "PageHost.h"
#include "TimeControl.h"
#include "resource.h"

#include <QLabel>
#include <QPushButton>

namespace {
constexpr int kMargin = 4;
constexpr int kRow = 20;
constexpr int kButtonWidth = 64;
constexpr int kButtonHeight = 22;
constexpr int kListButtonWidth = 28;

constexpr std::array<FoodKind, 4> kKinds = {FoodKind::Protein, FoodKind::Carbohydrate, FoodKind::Vegetable,
                                            FoodKind::Other};
constexpr int kComboIds[4] = {IDC_MEAL_PROTEIN, IDC_MEAL_CARB, IDC_MEAL_VEG, IDC_MEAL_OTHER};
constexpr int kListButtonIds[4] = {IDC_MEAL_PROTEINLIST, IDC_MEAL_CARBLIST, IDC_MEAL_VEGLIST, IDC_MEAL_OTHERLIST};
const char* const kLabels[4] = {"Protein:", "Carbohydrate:", "Vegetable:", "Other/Supplement:"};

QString controlName(int id) {
    return QStringLiteral("c%1").arg(id);
}
} // namespace

MealDialog::MealDialog(PageHost& host, FoodRecords records, const QDate& day, int slot, const std::optional<Meal>& meal,
                       QWidget* parent)
    : QDialog(parent), m_host(host), m_records(std::move(records)), m_day(day), m_slot(slot) {
    setObjectName(QStringLiteral("MealDialog"));
    setWindowTitle(QStringLiteral("Meal"));
    setAutoFillBackground(true);

    auto* timeLabel = new QLabel(QStringLiteral("Time:"), this);
    timeLabel->setGeometry(kMargin, kMargin + 2, 32, kRow);
    m_time = new TimeControl(TimeControl::Picture::TimeOfDay, this);
    m_time->setObjectName(controlName(IDC_MEAL_TIME));
    m_time->setGeometry(40, kMargin + 2, 76, kRow);
    m_time->setTime(meal ? meal->time : Clock::now().time());
    m_now = new NowButton(this);
    m_now->setObjectName(controlName(IDC_MEAL_NOW));
    m_now->setGeometry(118, kMargin + 2, 20, kRow);
    m_picture = new QLabel(this);
    m_picture->setObjectName(controlName(IDC_MEAL_PICTURE));
    m_picture->setPixmap(Bitmaps::toPixmap(Bitmaps::load(IDB_MEAL)));
    m_picture->setGeometry(240 - 48 - kMargin, kMargin, 48, 40);

    for (size_t i = 0; i < kKinds.size(); ++i) {
        const int top = 48 + static_cast<int>(i) * 44;
        m_labels[i] = new QLabel(QString::fromLatin1(kLabels[i]), this);
        m_labels[i]->setGeometry(kMargin, top, 200, 16);
        m_foods[i] = new DeviceCombo(true, this);
        m_foods[i]->setObjectName(controlName(kComboIds[i]));
        m_foods[i]->setGeometry(kMargin, top + 16, 240 - 3 * kMargin - kListButtonWidth, 22);
        m_listButtons[i] = new ListButton(this);
        m_listButtons[i]->setObjectName(controlName(kListButtonIds[i]));
        m_listButtons[i]->setGeometry(240 - kMargin - kListButtonWidth, top + 16, kListButtonWidth, 22);
        fillList(kKinds[i]);
        const FoodKind kind = kKinds[i];
        connect(m_listButtons[i], &ListButton::clicked, this, [this, kind] { editList(kind); });
    }
    if (meal) {
        m_foods[0]->setText(meal->protein);
        m_foods[1]->setText(meal->carbohydrate);
        m_foods[2]->setText(meal->vegetable);
        m_foods[3]->setText(meal->other);
    }

    m_ok = new QPushButton(QStringLiteral("OK"), this);
    m_ok->setObjectName(controlName(IDOK));
    m_ok->setAutoDefault(false);
    m_cancel = new QPushButton(QStringLiteral("Cancel"), this);
    m_cancel->setObjectName(controlName(IDCANCEL));
    m_cancel->setAutoDefault(false);
    connect(m_ok, &QPushButton::clicked, this, &MealDialog::putMeal);
    connect(m_cancel, &QPushButton::clicked, this, &QDialog::reject);
    // The "!" shows the clock's time; like every change here it is written only by OK.
    connect(m_now, &NowButton::clicked, this, [this] { m_time->setTime(Clock::now().time()); });
}

Meal MealDialog::meal() const {
    Meal meal;
    meal.time = m_time->time();
    meal.protein = m_foods[0]->currentText();
    meal.carbohydrate = m_foods[1]->currentText();
    meal.vegetable = m_foods[2]->currentText();
    meal.other = m_foods[3]->currentText();
    return meal;
}

void MealDialog::fillList(FoodKind kind) {
    m_foods[static_cast<size_t>(kind)]->setSortedItems(FoodLists::load(kind).value_or(QStringList()));
}

void MealDialog::editList(FoodKind kind) {
    m_host.editItemList(FoodLists::databaseName(kind));
    fillList(kind);
}

void MealDialog::putMeal() {
    // A time typed but not finished takes effect first, as leaving its control would.
    m_ok->setFocus();
    // A refused put has shown its message and written nothing; the dialog closes either way, as the
    // page reloads the day behind it.
    m_records.PutMeal(m_day, m_slot, meal());
    accept();
}

void MealDialog::resizeEvent(QResizeEvent*) {
    // Cancel at the bottom left and OK at the bottom right, as on every dialog of the device.
    const int buttonTop = height() - kButtonHeight - kMargin;
    m_cancel->setGeometry(kMargin, buttonTop, kButtonWidth, kButtonHeight);
    m_ok->setGeometry(width() - kButtonWidth - kMargin, buttonTop, kButtonWidth, kButtonHeight);
}

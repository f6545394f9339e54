#include "FoodLogPage.h"

#include "Clock.h"
#include "DateControl.h"
#include "DeviceFonts.h"
#include "ListCellDelegate.h"
#include "MealDialog.h"
#include "NotesEdit.h"
#include "NotesPlaceholder.h"
#include "NumberEdit.h"
#include "PageHeading.h"
#include "PageHost.h"
#include "PageMenu.h"
#include "RatingCombo.h"
#include "RegistryHelper.h"
#include "Settings.h"
#include "UpDownControl.h"
#include "resource.h"

#include <QApplication>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {
// The numbers', the notes' and the list's font: "Tahoma" with a height of 11.
constexpr int kFontHeight = 11;
// Every spin's range; body fat's steps tenths.
constexpr int kSpinMinimum = 0;
constexpr int kSpinMaximum = 999;
constexpr int kRow = 20;
constexpr int kLeftLabelWidth = 68;
// The scroll area starts under the date, at page y 24. The input panel covers the page from y 188 on
// (its 80 rows stand on the command bar), so the top 164 rows of the area are never covered.
constexpr int kScrollTop = 24;
constexpr int kUncovered = 188 - kScrollTop;

struct Column {
    const char* heading;
    int width;
};
constexpr Column kColumns[FoodLogPage::kColumnCount] = {
    {"Time", 36}, {"Protein", 47}, {"Carb", 47}, {"Veg", 46}, {"Other", 46}};

QString controlName(int id) {
    return QStringLiteral("c%1").arg(id);
}

template <typename T> T* named(T* widget, int id) {
    widget->setObjectName(controlName(id));
    return widget;
}

bool sameDateEverywhere() {
    return RegistryHelper::GetDword(HKEY_CURRENT_USER, Settings::kKey, Settings::kCkDate) == 1;
}
} // namespace

FoodLogPage::FoodLogPage(PageHost& host, QWidget* parent)
    : Page(host, IDD_FOOD, QStringLiteral("FoodLogPage"), parent) {
    createControls();
}

void FoodLogPage::createControls() {
    m_datePicker = named(new DateControl(this), IDC_FOOD_DATE);
    m_datePicker->setGeometry(134, 2, 102, kRow);
    connect(m_datePicker, &DateControl::dateChanged, this, &FoodLogPage::dateChanged);

    m_scroll = named(new QScrollArea(this), IDC_FOOD_SCROLL);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    m_scroll->setWidgetResizable(true);
    m_scroll->setGeometry(0, kScrollTop, Page::kWidth, 247 - kScrollTop);
    m_form = createForm();
    m_scroll->setWidget(m_form);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { keepInView(now); });
}

QWidget* FoodLogPage::createForm() {
    auto* form = new QWidget;
    form->setAutoFillBackground(true);
    const QFont numbers = DeviceFonts::tahoma(kFontHeight);
    auto number = [&](int id, RangeCheck::Kind kind, double maximum, int width) {
        auto* edit = named(new NumberEdit(kind, 0, maximum, form), id);
        edit->setFont(numbers);
        edit->setFixedSize(width, kRow);
        connect(edit, &NumberEdit::valueChanged, this, &FoodLogPage::SaveDay);
        return edit;
    };
    auto spin = [&](int id, NumberEdit* buddy, int divisor) {
        auto* spin = named(new UpDownControl(buddy, kSpinMinimum, kSpinMaximum, form, divisor), id);
        spin->setFixedSize(12, kRow);
        return spin;
    };
    auto rating = [&](int id) {
        auto* combo = named(new RatingCombo(form), id);
        combo->setFixedSize(40, kRow);
        combo->setRating(RatingCombo::kNoChoice);
        connect(combo, &QComboBox::activated, this, &FoodLogPage::SaveDay);
        return combo;
    };
    constexpr auto Integer = RangeCheck::Kind::Integer;
    constexpr auto Number = RangeCheck::Kind::Number;
    m_water = number(IDC_FOOD_WATER, Integer, 99, 30);
    m_waterSpin = spin(IDC_FOOD_WATERSPIN, m_water, 1);
    m_weight = number(IDC_FOOD_WEIGHT, Integer, 999, 30);
    m_weightSpin = spin(IDC_FOOD_WEIGHTSPIN, m_weight, 1);
    m_bodyFat = number(IDC_FOOD_BODYFAT, Number, 102.4, 30);
    m_bodyFatSpin = spin(IDC_FOOD_BODYFATSPIN, m_bodyFat, 10);
    m_sleep = number(IDC_FOOD_SLEEP, Number, 24.0, 40);
    m_sleepQuality = rating(IDC_FOOD_SLEEPQUALITY);
    m_systolic = number(IDC_FOOD_SYSTOLIC, Integer, 999, 24);
    m_diastolic = number(IDC_FOOD_DIASTOLIC, Integer, 999, 24);
    m_restingHeartRate = number(IDC_FOOD_RESTHR, Integer, 999, 30);
    m_overall = rating(IDC_FOOD_OVERALL);
    m_chest = number(IDC_FOOD_CHEST, Number, 999.9, 40);
    m_biceps = number(IDC_FOOD_BICEPS, Number, 999.9, 40);
    m_waist = number(IDC_FOOD_WAIST, Number, 999.9, 40);
    m_quads = number(IDC_FOOD_QUADS, Number, 999.9, 40);
    m_calves = number(IDC_FOOD_CALVES, Number, 999.9, 40);

    // Two values a row, in the order the values are kept: the left labels share one width, the right
    // value of every row stands at the right edge with its label just before it.
    auto* rows = new QVBoxLayout;
    rows->setContentsMargins(2, 2, 2, 0);
    rows->setSpacing(2);
    auto addRow = [&](const char* leftLabel, std::initializer_list<QWidget*> left, const char* rightLabel,
                      std::initializer_list<QWidget*> right) {
        auto* row = new QHBoxLayout;
        row->setSpacing(0);
        auto* label = new QLabel(QString::fromLatin1(leftLabel), form);
        label->setFixedWidth(kLeftLabelWidth);
        row->addWidget(label);
        for (QWidget* field : left) {
            row->addWidget(field);
        }
        row->addStretch();
        if (rightLabel != nullptr) {
            row->addWidget(new QLabel(QString::fromLatin1(rightLabel), form));
            row->addSpacing(3);
            for (QWidget* field : right) {
                row->addWidget(field);
            }
        }
        rows->addLayout(row);
    };
    auto* slash = new QLabel(QStringLiteral("/"), form);
    slash->setAlignment(Qt::AlignCenter);
    slash->setFixedWidth(6);
    addRow("Water (cups):", {m_water, m_waterSpin}, "Weight:", {m_weight, m_weightSpin});
    addRow("%Body Fat:", {m_bodyFat, m_bodyFatSpin}, "Sleep:", {m_sleep});
    addRow("Sleep Quality:", {m_sleepQuality}, "BP sys/dia:", {m_systolic, slash, m_diastolic});
    addRow("Rest HR:", {m_restingHeartRate}, "Overall Feeling:", {m_overall});
    addRow("Chest:", {m_chest}, "Biceps:", {m_biceps});
    addRow("Waist:", {m_waist}, "Quads:", {m_quads});
    addRow("Calves:", {m_calves}, nullptr, {});

    m_notes = named(new NotesEdit(form), IDC_FOOD_NOTES);
    m_notes->setFixedHeight(44);
    connect(m_notes, &NotesEdit::textChanged, this, &FoodLogPage::notesChanged);
    connect(m_notes, &NotesEdit::left, this, &FoodLogPage::SaveDay);

    m_list = named(new QTreeWidget(form), IDC_FOOD_MEALS);
    m_list->setFont(numbers);
    m_list->setItemDelegate(new ListCellDelegate(m_list));
    m_list->setFixedHeight(112);
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setContextMenuPolicy(Qt::CustomContextMenu);
    m_list->setColumnCount(kColumnCount);
    QStringList headings;
    for (const Column& column : kColumns) {
        headings << QString::fromLatin1(column.heading);
    }
    m_list->setHeaderLabels(headings);
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setSectionsMovable(false);
    // The time column is as wide as the widest time needs; the four food columns share the rest of the
    // list's width, so that the last ends at the list's edge and no column runs into the next.
    const QFontMetrics metrics(numbers);
    int widestDigit = 0;
    for (char digit = '0'; digit <= '9'; ++digit) {
        widestDigit = std::max(widestDigit, metrics.horizontalAdvance(QLatin1Char(digit)));
    }
    // "12:59P": four digits, the colon and the marker, and a pixel for rounding.
    const int widestTime =
        4 * widestDigit + metrics.horizontalAdvance(QLatin1Char(':')) +
        std::max(metrics.horizontalAdvance(QLatin1Char('A')), metrics.horizontalAdvance(QLatin1Char('P'))) + 1;
    const int timeWidth =
        std::max(kColumns[0].width, widestTime + ListCellDelegate::kTextInset + ListCellDelegate::kGap);
    m_list->header()->resizeSection(0, timeWidth);
    m_list->header()->setSectionResizeMode(0, QHeaderView::Fixed);
    for (int column = 1; column < kColumnCount; ++column) {
        m_list->header()->resizeSection(column, kColumns[column].width);
        m_list->header()->setSectionResizeMode(column, QHeaderView::Stretch);
    }
    connect(m_list, &QTreeWidget::customContextMenuRequested, this, &FoodLogPage::showListMenu);

    auto* counts = new QHBoxLayout;
    counts->setSpacing(3);
    auto count = [&](int id, const char* label) {
        counts->addWidget(new QLabel(QString::fromLatin1(label), form));
        auto* edit = named(new QLineEdit(form), id);
        edit->setReadOnly(true);
        edit->setFocusPolicy(Qt::NoFocus);
        edit->setFont(numbers);
        edit->setFixedSize(24, kRow);
        edit->setText(QStringLiteral("0"));
        counts->addWidget(edit);
        counts->addSpacing(8);
        return edit;
    };
    m_proteinCount = count(IDC_FOOD_PROCOUNT, "Pro:");
    m_carbohydrateCount = count(IDC_FOOD_CARBCOUNT, "Carb:");
    m_vegetableCount = count(IDC_FOOD_VEGCOUNT, "Veg:");
    counts->addStretch();

    auto* column = new QVBoxLayout(form);
    column->setContentsMargins(0, 0, 0, 2);
    column->setSpacing(3);
    column->addLayout(rows);
    auto* rest = new QVBoxLayout;
    rest->setContentsMargins(2, 0, 2, 0);
    rest->setSpacing(3);
    rest->addWidget(m_notes);
    rest->addWidget(m_list);
    rest->addLayout(counts);
    column->addLayout(rest);
    column->addStretch();
    return form;
}

FoodRecords FoodLogPage::records() const {
    // The name is asked for each time: it changes with the user.
    return FoodRecords(host().foodDatabaseName(), const_cast<FoodLogPage*>(this));
}

// --- Page hooks -----------------------------------------------------------------------------------

void FoodLogPage::initDialog() {
    setDate(Clock::now().date());
}

void FoodLogPage::setDate(const QDate& date) {
    m_date = date;
    m_datePicker->setDate(date);
    ShowDate();
}

bool FoodLogPage::handleCommand(int command) {
    if (command != ID_FOOD_ADDMEAL) {
        return false;
    }
    AddMeal();
    return true;
}

// --- The day --------------------------------------------------------------------------------------

void FoodLogPage::showDate(bool keepValues) {
    bool created = false;
    const std::optional<FoodDay> day = records().ShowDay(m_date, &created);
    if (created) {
        // A new day keeps the values shown apart from the notes, or starts with nothing chosen; they
        // reach its record with the next change. It has no meals yet.
        FoodDayValues values = keepValues ? controlValues() : FoodDayValues();
        if (!keepValues) {
            values.overall = FoodDayValues::kNoChoice;
            values.sleepQuality = FoodDayValues::kNoChoice;
        }
        values.notes = kNotesPlaceholder;
        showValues(values);
        showMeals(FoodDay());
        return;
    }
    m_list->clear();
    if (day) {
        showValues(day->values());
        showMeals(*day);
    }
}

void FoodLogPage::LoadDay() {
    m_list->clear();
    const std::optional<FoodDay> day = records().LoadDay(m_date);
    if (!day) {
        return;
    }
    showValues(day->values());
    showMeals(*day);
}

void FoodLogPage::SaveDay() {
    if (m_showing) {
        return;
    }
    const FoodRecords food = records();
    // A write that failed has been told; the page goes back to what the store holds rather than
    // show as saved what is not. Without a record the save is silent and the values stay.
    if (!food.SaveDay(m_date, controlValues()) && food.FindDay(m_date) != 0) {
        LoadDay();
    }
}

FoodDayValues FoodLogPage::controlValues() const {
    FoodDayValues values;
    values.water = static_cast<int>(m_water->value());
    values.weight = static_cast<int>(m_weight->value());
    values.bodyFat = m_bodyFat->value();
    values.notes = m_notes->notes();
    values.sleep = m_sleep->value();
    values.waist = m_waist->value();
    values.chest = m_chest->value();
    values.biceps = m_biceps->value();
    values.quads = m_quads->value();
    values.calves = m_calves->value();
    values.overall = m_overall->rating();
    values.sleepQuality = m_sleepQuality->rating();
    values.systolic = static_cast<int>(m_systolic->value());
    values.diastolic = static_cast<int>(m_diastolic->value());
    values.restingHeartRate = static_cast<int>(m_restingHeartRate->value());
    return values;
}

void FoodLogPage::showValues(const FoodDayValues& values) {
    m_showing = true;
    m_water->setValue(values.water);
    m_weight->setValue(values.weight);
    m_bodyFat->setValue(values.bodyFat);
    m_notes->setNotes(values.notes);
    m_sleep->setValue(values.sleep);
    m_waist->setValue(values.waist);
    m_chest->setValue(values.chest);
    m_biceps->setValue(values.biceps);
    m_quads->setValue(values.quads);
    m_calves->setValue(values.calves);
    // A stored "no choice" reads 65535, outside the list: nothing is chosen.
    m_overall->setRating(values.overall);
    m_sleepQuality->setRating(values.sleepQuality);
    m_systolic->setValue(values.systolic);
    m_diastolic->setValue(values.diastolic);
    m_restingHeartRate->setValue(values.restingHeartRate);
    m_showing = false;
}

void FoodLogPage::showMeals(const FoodDay& day) {
    m_list->clear();
    for (const Meal& meal : day.meals()) {
        new QTreeWidgetItem(m_list, {meal.timeText(), meal.protein, meal.carbohydrate, meal.vegetable, meal.other});
    }
    m_proteinCount->setText(QString::number(day.proteinCount()));
    m_carbohydrateCount->setText(QString::number(day.carbohydrateCount()));
    m_vegetableCount->setText(QString::number(day.vegetableCount()));
}

void FoodLogPage::dateChanged() {
    m_date = m_datePicker->date();
    ShowDate();
    if (sameDateEverywhere()) {
        host().SetDateOnAllPages(m_date);
    }
}

void FoodLogPage::notesChanged() {
    // Emptying the placeholder as the notes gain the focus is a change too, and is saved as one: the
    // placeholder is never kept as a note.
    if (!m_showing) {
        SaveDay();
    }
}

// --- Meals ----------------------------------------------------------------------------------------

void FoodLogPage::AddMeal() {
    runMealDialog(m_list->topLevelItemCount(), std::nullopt);
}

void FoodLogPage::EditMeal() {
    const int row = selectedRow();
    if (row < 0) {
        return;
    }
    if (const std::optional<Meal> meal = records().ReadMeal(m_date, row)) {
        runMealDialog(row, meal);
    }
}

void FoodLogPage::DeleteMeal() {
    // Without a selected row there is no slot to delete: nothing happens.
    const int row = selectedRow();
    if (row < 0) {
        return;
    }
    // A failed delete has said so; reloading a day that cannot be read would say it a second time.
    if (records().DeleteMeal(m_date, row)) {
        LoadDay();
    }
}

void FoodLogPage::runMealDialog(int slot, const std::optional<Meal>& meal) {
    MealDialog dialog(host(), records(), m_date, slot, meal, nullptr);
    host().runDialog(dialog);
    LoadDay();
}

int FoodLogPage::selectedRow() const {
    const QList<QTreeWidgetItem*> selected = m_list->selectedItems();
    return selected.isEmpty() ? -1 : m_list->indexOfTopLevelItem(selected.first());
}

void FoodLogPage::showListMenu(const QPoint& position) {
    const bool onRow = PageMenu::selectRowAt(m_list, position);
    PageMenu menu(onRow ? QStringLiteral("itemMenu") : QStringLiteral("noItemMenu"), m_list);
    if (onRow) {
        menu.addCommand(ID_FOOD_DELETEMEAL, QStringLiteral("Delete"));
        menu.addCommand(ID_FOOD_EDITMEAL, QStringLiteral("Edit"));
        menu.addSeparator();
    }
    menu.addCommand(ID_FOOD_ADDMEAL, QStringLiteral("Add Meal"));
    switch (menu.choose(m_list->viewport(), position)) {
    case 0:
        break;
    case ID_FOOD_DELETEMEAL:
        DeleteMeal();
        break;
    case ID_FOOD_EDITMEAL:
        EditMeal();
        break;
    default:
        AddMeal();
        break;
    }
}

void FoodLogPage::keepInView(QWidget* focused) {
    if (focused == nullptr || !m_form->isAncestorOf(focused)) {
        return;
    }
    const QRect area(focused->mapTo(m_form, QPoint(0, 0)), focused->size());
    QScrollBar* bar = m_scroll->verticalScrollBar();
    int top = bar->value();
    if (area.bottom() > top + kUncovered - 2) {
        top = area.bottom() - kUncovered + 2;
    }
    if (area.top() < top) {
        top = area.top() - 2;
    }
    bar->setValue(top);
}

void FoodLogPage::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PageHeading::paint(painter, *this, IDB_FOOD, QStringLiteral("Food"));
}

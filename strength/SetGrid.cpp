#include "SetGrid.h"

#include "Bitmaps.h"
#include "CompactComboStyle.h"
#include "DeviceCombo.h"
#include "DeviceFonts.h"
#include "ExerciseLists.h"
#include "ExerciseNameEdit.h"
#include "MessageBox.h"
#include "NumberEdit.h"
#include "PageHeading.h"
#include "PageHost.h"
#include "RatingCombo.h"
#include "RegistryHelper.h"
#include "SelectExerciseDialog.h"
#include "SetGridRecords.h"
#include "Settings.h"
#include "UpDownControl.h"
#include "resource.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QWheelEvent>

#include <algorithm>

namespace {
const QString kCaption = QStringLiteral("Kovalin");

// Where each control of a row stands: x and width, in the rows' area (the scroll bar is to its right).
struct Place {
    int x;
    int width;
};
// The label keeps clear of the screen's edge; the weight column holds "999.9" and "102.25" whole.
constexpr Place kLabel{1, 13};
constexpr Place kExercise{16, 76};
constexpr Place kReps{93, 26};
constexpr Place kWeight{120, 40};
constexpr Place kUpDown{160, 10};
constexpr Place kRest{171, 26};
constexpr Place kIntensity{198, 28};
constexpr int kAreaWidth = 227;
constexpr int kBarTop = PageHeading::kHeight + 1;
constexpr int kBarHeight = 14;
constexpr int kRowsTop = kBarTop + kBarHeight + 1;
constexpr int kControlHeight = SetGrid::kRowHeight - 2;
// The exercise list opens wide enough for the full names the column cuts short.
constexpr int kExerciseListWidth = 200;

// The index of each control in a row's line of the id table.
enum RowControl { kExerciseId, kRepsId, kWeightId, kUpDownId, kRestId, kIntensityId };

QString controlName(int id) {
    return QStringLiteral("c%1").arg(id);
}

DWORD setting(const QString& name) {
    return RegistryHelper::GetDword(HKEY_CURRENT_USER, Settings::kKey, name);
}

PullSettings pullSettings() {
    return PullSettings::fromStored(setting(Settings::kPullLast), setting(Settings::kPullWt),
                                    setting(Settings::kFillIn));
}

void place(QWidget* widget, const Place& where, int top) {
    widget->setGeometry(where.x, top, where.width, kControlHeight);
}
} // namespace

SetGrid::SetGrid(PageHost& host, QWidget* parent) : Page(host, IDD_SETGRID, QStringLiteral("SetGrid"), parent) {
    m_bar = new QLabel(this);
    m_bar->setObjectName(controlName(IDC_GRID_BAR));
    m_bar->setPixmap(Bitmaps::toPixmap(Bitmaps::load(IDB_SETGRID_BAR)));
    m_bar->setGeometry(0, kBarTop, Page::kWidth, kBarHeight);

    m_viewport = new QWidget(this);
    m_viewport->setGeometry(0, kRowsTop, kAreaWidth, kVisibleRows * kRowHeight);
    m_rowArea = new QWidget(m_viewport);
    m_rowArea->setGeometry(0, 0, kAreaWidth, kRows * kRowHeight);
    m_viewport->installEventFilter(this);

    m_scrollBar = new QScrollBar(Qt::Vertical, this);
    m_scrollBar->setObjectName(controlName(IDC_GRID_SCROLL));
    m_scrollBar->setGeometry(kAreaWidth, kRowsTop, Page::kWidth - kAreaWidth, kVisibleRows * kRowHeight);
    m_scrollBar->setRange(0, kScrollMaximum);
    m_scrollBar->setPageStep(kScrollPage);
    connect(m_scrollBar, &QScrollBar::actionTriggered, this, &SetGrid::scrollAction);
    connect(m_scrollBar, &QScrollBar::valueChanged, this, &SetGrid::scrollTo);

    m_comboStyle = new CompactComboStyle(this);
    createRows();
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { focusChanged(now); });
}

SetGrid::~SetGrid() = default;

void SetGrid::createRows() {
    for (int index = 0; index < kRows; ++index) {
        createRow(index);
    }
    DeviceCombo* first = m_rows[0].exercise;
    connect(first, &QComboBox::activated, this, &SetGrid::firstExerciseEdited);
    connect(first->lineEdit(), &QLineEdit::editingFinished, this, &SetGrid::firstExerciseEdited);
}

void SetGrid::createRow(int index) {
    const int* ids = IDC_GRID_ROWS[index];
    Row& row = m_rows[static_cast<size_t>(index)];
    const int top = index * kRowHeight + 1;
    row.label = new QLabel(QString::number(index + 1), m_rowArea);
    row.label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    place(row.label, kLabel, top);

    row.exercise = makeCombo(ids[kExerciseId], true, 0, -1);
    row.exercise->useLineEdit(new ExerciseNameEdit(row.exercise));
    row.exercise->lineEdit()->setTextMargins(-1, 0, -1, 0);
    row.exercise->view()->setMinimumWidth(kExerciseListWidth);
    place(row.exercise, kExercise, top);
    row.reps = makeCombo(ids[kRepsId], true, 0, 20);
    place(row.reps, kReps, top);

    row.weight = new NumberEdit(RangeCheck::Kind::Number, 0, 999, m_rowArea);
    row.weight->setObjectName(controlName(ids[kWeightId]));
    row.weight->setTextMargins(0, 0, 0, 0);
    place(row.weight, kWeight, top);
    row.upDown = new UpDownControl(row.weight, 0, 999, m_rowArea);
    row.upDown->setObjectName(controlName(ids[kUpDownId]));
    place(row.upDown, kUpDown, top);

    row.rest = makeCombo(ids[kRestId], true, 0, 10);
    place(row.rest, kRest, top);
    row.weight->installEventFilter(this);
    row.intensity = new RatingCombo(m_rowArea);
    row.intensity->setObjectName(controlName(ids[kIntensityId]));
    row.intensity->setStyle(m_comboStyle);
    row.intensity->installEventFilter(this);
    place(row.intensity, kIntensity, top);
}

DeviceCombo* SetGrid::makeCombo(int id, bool editable, int first, int last) {
    auto* combo = new DeviceCombo(editable, m_rowArea);
    combo->setObjectName(controlName(id));
    combo->setStyle(m_comboStyle);
    if (editable) {
        combo->lineEdit()->setTextMargins(-1, 0, -1, 0);
    }
    combo->setMaxVisibleItems(12);
    combo->installEventFilter(this);
    for (int value = first; value <= last; ++value) {
        combo->addItem(QString::number(value));
    }
    return combo;
}

// --- Opening, saving, cancelling ------------------------------------------------------------------

SetGridRecords SetGrid::gridRecords() const {
    if (m_group->region() == BodyRegion::Upper) {
        return SetGridRecords(host().upperBodyADatabaseName(), host().upperBodyBDatabaseName(),
                              const_cast<SetGrid*>(this));
    }
    return SetGridRecords(host().lowerBodyADatabaseName(), host().lowerBodyBDatabaseName(), const_cast<SetGrid*>(this));
}

void SetGrid::openGroup(const QDate& date, int groupCode) {
    m_date = date;
    m_groupCode = groupCode;
    m_group = MuscleGroup::fromCode(groupCode);
    showSets(GroupSets());
    m_scrollBar->setValue(0);
    scrollTo(0);
    m_currentRow = 0;
    update();
    if (!m_group) {
        fillExerciseLists({});
        MessageBoxW(this, ExerciseLists::kUnknownTypeText, kCaption, MB_OK | MB_ICONERROR);
        return;
    }
    const std::optional<QStringList> exercises = ExerciseLists::load(*m_group);
    fillExerciseLists(exercises.value_or(QStringList()));
    if (!exercises) {
        MessageBoxW(this, StrengthRecords::kErrorAccessingDatabase, kCaption, MB_OK | MB_ICONERROR);
    }
    if (const std::optional<GroupSets> sets = gridRecords().open(date, *m_group, pullSettings())) {
        showSets(*sets);
    }
    m_rows[0].exercise->setFocus();
}

bool SetGrid::commitWeights() {
    for (const Row& row : m_rows) {
        if (!row.weight->commit()) {
            row.weight->setFocus();
            return false;
        }
    }
    return true;
}

void SetGrid::save() {
    if (!commitWeights()) {
        return;
    }
    if (m_group) {
        gridRecords().save(m_date, *m_group, controlValues());
    }
    host().returnFromSetGrid(m_groupCode);
}

void SetGrid::cancel() {
    host().returnFromSetGrid(m_groupCode);
}

bool SetGrid::handleCommand(int command) {
    switch (command) {
    case ID_GRID_SAVE:
        save();
        return true;
    case ID_GRID_CANCEL:
        cancel();
        return true;
    case ID_GRID_SELECTEXERCISE:
        selectExercise();
        return true;
    case ID_GRID_EDITLIST:
        editExerciseList();
        return true;
    case ID_CLEAR_ALLROWS:
    case ID_CLEAR_CURRENTROW:
    case ID_CLEAR_ROWANDBELOW: {
        commitWeights();
        GroupSets sets = controlValues();
        if (command == ID_CLEAR_ALLROWS) {
            sets.clearAll();
        } else if (command == ID_CLEAR_CURRENTROW) {
            sets.clearRow(m_currentRow);
        } else {
            sets.clearFrom(m_currentRow);
        }
        showSets(sets);
        return true;
    }
    default:
        return false;
    }
}

// --- The rows -------------------------------------------------------------------------------------

GroupSets SetGrid::controlValues() const {
    GroupSets sets;
    for (int index = 0; index < kRows; ++index) {
        const Row& row = m_rows[static_cast<size_t>(index)];
        StrengthSet& set = sets.at(index);
        set.exercise = row.exercise->currentText();
        set.reps = row.reps->currentText();
        set.weight = row.weight->value();
        set.rest = row.rest->currentText();
        set.intensity = std::max(0, row.intensity->currentIndex());
    }
    return sets;
}

void SetGrid::showSets(const GroupSets& sets) {
    for (int index = 0; index < kRows; ++index) {
        const Row& row = m_rows[static_cast<size_t>(index)];
        const StrengthSet& set = sets.at(index);
        const QSignalBlocker blocker(row.exercise);
        row.exercise->setText(set.exercise);
        row.reps->setText(set.reps);
        row.weight->setValue(set.weight);
        row.rest->setText(set.rest);
        row.intensity->setRating(std::clamp(set.intensity, 0, 10));
    }
    m_firstExercise = sets.at(0).exercise;
}

void SetGrid::fillExerciseLists(const QStringList& exercises) {
    for (const Row& row : m_rows) {
        const QSignalBlocker blocker(row.exercise);
        row.exercise->setSortedItems(exercises);
    }
}

void SetGrid::firstExerciseEdited() {
    const QString exercise = m_rows[0].exercise->currentText();
    if (exercise == m_firstExercise || !m_group) {
        return;
    }
    const QString replaced = m_firstExercise;
    m_firstExercise = exercise;
    GroupSets sets = controlValues();
    if (gridRecords().firstExerciseChanged(m_date, *m_group, sets, replaced, pullSettings())) {
        showSets(sets);
    }
}

void SetGrid::setExercise(int row, const QString& exercise) {
    m_rows[static_cast<size_t>(row)].exercise->setText(exercise);
    if (row == 0) {
        firstExerciseEdited();
    }
}

void SetGrid::selectExercise() {
    DeviceCombo* combo = m_rows[static_cast<size_t>(m_currentRow)].exercise;
    QStringList exercises;
    for (int item = 0; item < combo->count(); ++item) {
        exercises << combo->itemText(item);
    }
    SelectExerciseDialog dialog(exercises, combo->currentText(), this);
    if (host().runDialog(dialog) == QDialog::Accepted && !dialog.selectedExercise().isEmpty()) {
        setExercise(m_currentRow, dialog.selectedExercise());
    }
}

void SetGrid::editExerciseList() {
    if (!m_group) {
        return;
    }
    const int row = m_currentRow;
    const QString added = host().editItemList(ExerciseLists::databaseName(*m_group));
    const std::optional<QStringList> exercises = ExerciseLists::load(*m_group);
    if (!exercises) {
        MessageBoxW(this, StrengthRecords::kErrorAccessingDatabase, kCaption, MB_OK | MB_ICONERROR);
        return;
    }
    fillExerciseLists(*exercises);
    // An exercise just added is meant for the row the user was on, when that row has none yet.
    if (!added.isEmpty() && m_rows[static_cast<size_t>(row)].exercise->currentText().isEmpty()) {
        setExercise(row, added);
    }
}

// --- Focus and scrolling --------------------------------------------------------------------------

void SetGrid::focusChanged(QWidget* now) {
    if (now == nullptr || !m_rowArea->isAncestorOf(now)) {
        return;
    }
    for (int index = 0; index < kRows; ++index) {
        const Row& row = m_rows[static_cast<size_t>(index)];
        for (QWidget* control :
             {static_cast<QWidget*>(row.exercise), static_cast<QWidget*>(row.reps), static_cast<QWidget*>(row.weight),
              static_cast<QWidget*>(row.rest), static_cast<QWidget*>(row.intensity)}) {
            if (control == now || control->isAncestorOf(now)) {
                m_currentRow = index;
                ensureRowShown(index);
                return;
            }
        }
    }
}

void SetGrid::scrollTo(int position) {
    m_firstShownRow = rowOfPosition(position);
    m_rowArea->move(0, -m_firstShownRow * kRowHeight);
}

int SetGrid::positionOfRow(int firstShown) {
    return firstShown * kScrollMaximum / kHiddenRows;
}

int SetGrid::rowOfPosition(int position) {
    return (position * kHiddenRows + kScrollMaximum / 2) / kScrollMaximum;
}

void SetGrid::scrollAction(int action) {
    // An arrow moves one row and the trough a page of rows; a dragged bar stops on a whole row.
    int first = m_firstShownRow;
    switch (action) {
    case QAbstractSlider::SliderSingleStepAdd:
        ++first;
        break;
    case QAbstractSlider::SliderSingleStepSub:
        --first;
        break;
    case QAbstractSlider::SliderPageStepAdd:
        first += kVisibleRows;
        break;
    case QAbstractSlider::SliderPageStepSub:
        first -= kVisibleRows;
        break;
    case QAbstractSlider::SliderMove:
        first = rowOfPosition(m_scrollBar->sliderPosition());
        break;
    default:
        return;
    }
    m_scrollBar->setSliderPosition(positionOfRow(std::clamp(first, 0, kHiddenRows)));
}

void SetGrid::scrollRows(int rows) {
    m_scrollBar->setValue(positionOfRow(std::clamp(m_firstShownRow + rows, 0, kHiddenRows)));
}

void SetGrid::ensureRowShown(int row) {
    if (row < m_firstShownRow) {
        scrollRows(row - m_firstShownRow);
    } else if (row >= m_firstShownRow + kVisibleRows) {
        scrollRows(row - (m_firstShownRow + kVisibleRows) + 1);
    }
}

bool SetGrid::eventFilter(QObject* watched, QEvent* event) {
    const bool inRows = watched == m_viewport || m_rowArea->isAncestorOf(qobject_cast<QWidget*>(watched));
    if (event->type() == QEvent::Wheel && inRows) {
        // One notch of the wheel, one row, wherever over the rows it turns.
        m_wheelDelta += static_cast<QWheelEvent*>(event)->angleDelta().y();
        const int notches = m_wheelDelta / QWheelEvent::DefaultDeltasPerStep;
        m_wheelDelta -= notches * QWheelEvent::DefaultDeltasPerStep;
        scrollRows(-notches);
        return true;
    }
    return Page::eventFilter(watched, event);
}

void SetGrid::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    const bool upper = m_groupCode < 1200;
    PageHeading::paint(painter, *this, upper ? IDB_UPPERBODY : IDB_LOWERBODY,
                       m_group ? m_group->name() : QStringLiteral("Sets"));
    painter.setFont(DeviceFonts::tahoma(13));
    painter.setPen(Qt::black);
    painter.drawText(QRect(0, 0, width() - 6, PageHeading::kHeight), Qt::AlignRight | Qt::AlignVCenter,
                     m_date.toString(QStringLiteral("ddd M/d/yyyy")));
}

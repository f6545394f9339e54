#include "StrengthLogPage.h"

#include "Clock.h"
#include "DateControl.h"
#include "DeviceFonts.h"
#include "MessageBox.h"
#include "NotesEdit.h"
#include "NowButton.h"
#include "PageHeading.h"
#include "PageHost.h"
#include "PageMenu.h"
#include "RegistryHelper.h"
#include "Settings.h"
#include "TimeControl.h"
#include "resource.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QTreeWidget>

namespace {
// The list's and the notes' font: "Tahoma" with a height of 11.
constexpr int kFontHeight = 11;

struct Column {
    const char* heading;
    int width;
    Qt::Alignment alignment;
};
constexpr Column kColumns[StrengthLogPage::kColumnCount] = {
    {"Exercise", 99, Qt::AlignLeft}, {"Rep", 29, Qt::AlignRight}, {"Wt", 37, Qt::AlignRight},
    {"Rest", 31, Qt::AlignRight},    {"Int", 25, Qt::AlignLeft},
};

// The tool-bar and group-menu commands of each region, in group order.
constexpr int kUpperCommands[MuscleGroup::kGroupsPerRegion] = {ID_UPPER_CHEST,   ID_UPPER_SHOULDERS, ID_UPPER_BACK,
                                                               ID_UPPER_TRICEPS, ID_UPPER_BICEPS,    ID_UPPER_MISC};
constexpr int kLowerCommands[MuscleGroup::kGroupsPerRegion] = {ID_LOWER_QUADS, ID_LOWER_HAMSTRINGS, ID_LOWER_CALVES,
                                                               ID_LOWER_ABS,   ID_LOWER_MISC1,      ID_LOWER_MISC2};

const QString kCaption = QStringLiteral("Kovalin");

const int* commandsOf(BodyRegion region) {
    return region == BodyRegion::Upper ? kUpperCommands : kLowerCommands;
}

DWORD setting(const QString& name) {
    return RegistryHelper::GetDword(HKEY_CURRENT_USER, Settings::kKey, name);
}

// Upper and lower body on one day count as one workout unless AsOne is 1.
bool asOne() {
    return setting(Settings::kAsOne) != 1;
}

bool sameDateEverywhere() {
    return setting(Settings::kCkDate) == 1;
}

BodyRegion otherRegion(BodyRegion region) {
    return region == BodyRegion::Upper ? BodyRegion::Lower : BodyRegion::Upper;
}

QString controlName(int id) {
    return QStringLiteral("c%1").arg(id);
}

template <typename T> T* named(T* widget, int id) {
    widget->setObjectName(controlName(id));
    return widget;
}
} // namespace

StrengthLogPage::StrengthLogPage(PageHost& host, BodyRegion region, QWidget* parent)
    : Page(host, region == BodyRegion::Upper ? IDD_UPPERBODY : IDD_LOWERBODY, QStringLiteral("StrengthLogPage"),
           parent),
      m_region(region) {
    createControls();
    placeControls();
}

void StrengthLogPage::createControls() {
    m_datePicker = named(new DateControl(this), IDC_STRENGTH_DATE);
    m_startPicker = named(new TimeControl(TimeControl::Picture::TimeOfDay, this), IDC_STRENGTH_START);
    m_endPicker = named(new TimeControl(TimeControl::Picture::TimeOfDay, this), IDC_STRENGTH_END);
    m_elapsedPicker = named(new TimeControl(TimeControl::Picture::Span, this), IDC_STRENGTH_ELAPSED);
    m_startNow = named(new NowButton(this), IDC_STRENGTH_STARTNOW);
    m_endNow = named(new NowButton(this), IDC_STRENGTH_ENDNOW);
    m_notes = named(new NotesEdit(this), IDC_STRENGTH_NOTES);
    m_completed = named(new QCheckBox(QStringLiteral("Completed"), this), IDC_STRENGTH_COMPLETED);

    m_list = named(new QTreeWidget(this), IDC_STRENGTH_LIST);
    m_list->setFont(DeviceFonts::tahoma(kFontHeight));
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setContextMenuPolicy(Qt::CustomContextMenu);
    m_list->setColumnCount(kColumnCount);
    auto* heading = new QTreeWidgetItem;
    for (int column = 0; column < kColumnCount; ++column) {
        heading->setText(column, QString::fromLatin1(kColumns[column].heading));
        heading->setTextAlignment(column, kColumns[column].alignment | Qt::AlignVCenter);
    }
    m_list->setHeaderItem(heading);
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setSectionsMovable(false);
    for (int column = 0; column < kColumnCount; ++column) {
        m_list->header()->resizeSection(column, kColumns[column].width);
    }

    if (m_region == BodyRegion::Upper) {
        // The diagnostic button is never shown; it stays in the dialog as it always was.
        m_dbg = named(new QPushButton(QStringLiteral("dbg"), this), IDC_STRENGTH_DBG);
        m_dbg->hide();
        connect(m_dbg, &QPushButton::clicked, this, &StrengthLogPage::showCounts);
    }

    connect(m_datePicker, &DateControl::dateChanged, this, &StrengthLogPage::dateChanged);
    connect(m_startPicker, &TimeControl::timeChanged, this, &StrengthLogPage::startOrEndChanged);
    connect(m_endPicker, &TimeControl::timeChanged, this, &StrengthLogPage::startOrEndChanged);
    connect(m_startNow, &NowButton::clicked, this, &StrengthLogPage::startNow);
    connect(m_endNow, &NowButton::clicked, this, &StrengthLogPage::endNow);
    connect(m_elapsedPicker, &TimeControl::timeChanged, this, &StrengthLogPage::elapsedChanged);
    connect(m_notes, &NotesEdit::left, this, &StrengthLogPage::SaveHeader);
    connect(m_completed, &QCheckBox::clicked, this, &StrengthLogPage::completedClicked);
    connect(m_list, &QTreeWidget::customContextMenuRequested, this, &StrengthLogPage::showListMenu);
}

void StrengthLogPage::placeControls() {
    // Beside the heading: the date. Then start "!" - end "!", the elapsed time and Completed, the
    // notes, and the list down to the tab row.
    constexpr int kRow = 20;
    m_datePicker->setGeometry(134, 2, 102, kRow);
    auto* to = new QLabel(QStringLiteral("to"), this);
    to->setAlignment(Qt::AlignCenter);
    m_startPicker->setGeometry(4, 28, 72, kRow);
    m_startNow->setGeometry(77, 28, 20, kRow);
    to->setGeometry(98, 28, 14, kRow);
    m_endPicker->setGeometry(113, 28, 72, kRow);
    m_endNow->setGeometry(186, 28, 20, kRow);
    auto* time = new QLabel(QStringLiteral("Time:"), this);
    time->setGeometry(4, 51, 30, kRow);
    m_elapsedPicker->setGeometry(36, 51, 72, kRow);
    m_completed->setGeometry(126, 51, 100, kRow);
    m_notes->setGeometry(4, 74, 232, 34);
    m_list->setGeometry(4, 111, 232, 135);
    if (m_dbg != nullptr) {
        m_dbg->setGeometry(206, 28, 30, kRow);
    }
}

StrengthRecords StrengthLogPage::records() const {
    // The names are asked for each time: they change with the user.
    if (m_region == BodyRegion::Upper) {
        return StrengthRecords(host().upperBodyADatabaseName(), host().upperBodyBDatabaseName(),
                               const_cast<StrengthLogPage*>(this));
    }
    return StrengthRecords(host().lowerBodyADatabaseName(), host().lowerBodyBDatabaseName(),
                           const_cast<StrengthLogPage*>(this));
}

// --- Page hooks -----------------------------------------------------------------------------------

void StrengthLogPage::initDialog() {
    setDate(Clock::now().date());
}

void StrengthLogPage::setDate(const QDate& date) {
    m_date = date;
    m_datePicker->setDate(date);
    Load();
}

bool StrengthLogPage::handleCommand(int command) {
    const int* commands = commandsOf(m_region);
    for (int group = 0; group < MuscleGroup::kGroupsPerRegion; ++group) {
        if (commands[group] == command) {
            OpenGroup(MuscleGroup(m_region, group).code());
            return true;
        }
    }
    return false;
}

void StrengthLogPage::applyTimes(const WorkoutTimes& times) {
    WorkoutHeader header = controlValues();
    header.start = times.start;
    header.end = times.end;
    header.elapsed = times.elapsed;
    header.completed = times.completed ? 1 : 0;
    showHeader(header);
    SaveHeader();
}

// --- Loading and saving ---------------------------------------------------------------------------

void StrengthLogPage::Load() {
    std::optional<StrengthDay> day = records().LoadDay(m_date);
    m_day = day ? std::move(*day) : StrengthDay();
    if (day) {
        showHeader(m_day.header());
    }
    showSets();
}

void StrengthLogPage::SaveHeader() {
    const StrengthRecords strength = records();
    // A write that failed has been told: the page shows what the store holds, not what was not
    // saved. Without a record the shown values stay.
    if (!strength.WriteHeader(m_date, controlValues()) && strength.FindDayA(m_date) != 0) {
        Load();
    }
}

WorkoutHeader StrengthLogPage::controlValues() const {
    WorkoutHeader header;
    header.start = m_startPicker->dateTime();
    header.end = m_endPicker->dateTime();
    header.elapsed = m_elapsedPicker->time();
    header.completed = m_completed->isChecked() ? 1 : 0;
    header.notes = m_notes->notes();
    return header;
}

void StrengthLogPage::showHeader(const WorkoutHeader& header) {
    m_startPicker->setDateTime(header.start);
    m_endPicker->setDateTime(header.end);
    m_elapsedPicker->setTime(header.elapsed);
    m_completed->setChecked(header.completed == 1);
    m_notes->setNotes(header.notes);
}

void StrengthLogPage::showSets() {
    m_list->clear();
    for (const StrengthDay::ListedSet& listed : m_day.sets()) {
        const StrengthSet& set = listed.set;
        auto* row = new QTreeWidgetItem(
            m_list, QStringList{set.exercise, set.reps, set.weightText(), set.rest, set.intensityText()});
        for (int column = 0; column < kColumnCount; ++column) {
            row->setTextAlignment(column, kColumns[column].alignment | Qt::AlignVCenter);
        }
    }
}

// --- The header's controls ------------------------------------------------------------------------

void StrengthLogPage::dateChanged() {
    m_date = m_datePicker->date();
    Load();
    if (sameDateEverywhere()) {
        host().SetDateOnAllPages(m_date);
    } else if (asOne()) {
        host().forwardDateToStrengthPage(otherRegion(m_region), m_date);
    }
}

void StrengthLogPage::startOrEndChanged() {
    WorkoutHeader header = controlValues();
    header.elapsed = WorkoutHeader::elapsedBetween(header.start, header.end);
    showHeader(header);
    SaveHeader();
    passTimesOn(header);
}

void StrengthLogPage::startNow() {
    m_startPicker->setDateTime(Clock::now());
    startOrEndChanged();
}

void StrengthLogPage::endNow() {
    m_endPicker->setDateTime(Clock::now());
    startOrEndChanged();
}

void StrengthLogPage::elapsedChanged() {
    WorkoutHeader header = controlValues();
    header.end = WorkoutHeader::endAfter(header.start, header.elapsed);
    showHeader(header);
    SaveHeader();
    passTimesOn(header);
}

void StrengthLogPage::completedClicked() {
    SaveHeader();
    passTimesOn(controlValues());
}

void StrengthLogPage::passTimesOn(const WorkoutHeader& header) {
    if (asOne()) {
        host().forwardTimesToStrengthPage(
            otherRegion(m_region), WorkoutTimes{header.start, header.end, header.elapsed, header.completed == 1});
    }
}

// --- The list -------------------------------------------------------------------------------------

void StrengthLogPage::showListMenu(const QPoint& position) {
    const bool onRow = PageMenu::selectRowAt(m_list, position);
    PageMenu menu(onRow ? QStringLiteral("rowMenu") : QStringLiteral("groupMenu"), m_list);
    if (onRow) {
        menu.addCommand(ID_STRENGTH_DELETE, QStringLiteral("Delete"));
        menu.addCommand(ID_STRENGTH_EDIT, QStringLiteral("Edit"));
    } else {
        const int* commands = commandsOf(m_region);
        for (const MuscleGroup& group : MuscleGroup::ofRegion(m_region)) {
            menu.addCommand(commands[group.index()], group.name());
        }
    }
    const int command = menu.choose(m_list->viewport(), position);
    if (command == 0) {
        return;
    }
    if (command == ID_STRENGTH_DELETE) {
        deleteSelectedRow();
    } else if (command == ID_STRENGTH_EDIT) {
        editSelectedRow();
    } else {
        handleCommand(command);
    }
}

std::optional<MuscleGroup> StrengthLogPage::groupOfSelectedRow() const {
    const QList<QTreeWidgetItem*> selected = m_list->selectedItems();
    if (selected.isEmpty()) {
        return std::nullopt;
    }
    const std::optional<int> group = m_day.groupOfRow(m_list->indexOfTopLevelItem(selected.first()));
    if (!group) {
        return std::nullopt;
    }
    return MuscleGroup(m_region, *group);
}

void StrengthLogPage::editSelectedRow() {
    if (const std::optional<MuscleGroup> group = groupOfSelectedRow()) {
        OpenGroup(group->code());
    }
}

void StrengthLogPage::deleteSelectedRow() {
    if (MessageBoxW(this, kDeleteQuestion, kCaption, MB_OKCANCEL | MB_ICONQUESTION) != IDOK) {
        return;
    }
    if (const std::optional<MuscleGroup> group = groupOfSelectedRow()) {
        records().ClearGroup(m_date, *group);
    }
    Load();
}

void StrengthLogPage::OpenGroup(int groupCode) {
    // Notes typed but not yet left are saved before the grid takes the screen.
    if (m_notes->hasFocus()) {
        SaveHeader();
    }
    host().ShowSetGrid(m_date, groupCode);
}

void StrengthLogPage::showCounts() {
    MessageBoxW(this, m_day.countsText(), kCaption, MB_OK);
}

void StrengthLogPage::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (m_region == BodyRegion::Upper) {
        PageHeading::paint(painter, *this, IDB_UPPERBODY, QStringLiteral("Upper Body"));
    } else {
        PageHeading::paint(painter, *this, IDB_LOWERBODY, QStringLiteral("Lower Body"));
    }
}

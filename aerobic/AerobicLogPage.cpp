#include "AerobicLogPage.h"

#include "AerobicLists.h"
#include "Clock.h"
#include "CompactComboStyle.h"
#include "DateControl.h"
#include "DeviceCombo.h"
#include "DeviceFonts.h"
#include "ListButton.h"
#include "MessageBox.h"
#include "NotesEdit.h"
#include "NowButton.h"
#include "NumberEdit.h"
#include "PageHeading.h"
#include "PageHost.h"
#include "RatingCombo.h"
#include "RegistryHelper.h"
#include "Settings.h"
#include "TimeControl.h"
#include "UpDownControl.h"
#include "resource.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QTimeZone>

namespace {
const QString kCaption = QStringLiteral("Kovalin");
// The buttons' font: "Tahoma" with a height of 11, so that the longest caption fits the page's width.
constexpr int kButtonFontHeight = 11;
// Minutes 1-8 and 9-16 fill a row of eight drop-downs each, 17-20 a row of four.
constexpr int kBoxesPerRow = 8;

DWORD setting(const QString& name) {
    return RegistryHelper::GetDword(HKEY_CURRENT_USER, Settings::kKey, name);
}

template <typename T> T* named(T* widget, int id) {
    widget->setObjectName(QStringLiteral("c%1").arg(id));
    return widget;
}

QString viewCaption(int number) {
    return AerobicLogPage::kView + QStringLiteral(" ") + QString::number(number);
}

// The elapsed-time control's reading: the stored whole minutes of the span and the typed seconds.
QTime elapsedOf(const AerobicExercise& exercise) {
    const int minutes = AerobicExercise::elapsedMinutes(exercise.start, exercise.end);
    return QTime((minutes / 60) % 24, minutes % 60, qBound(0, exercise.elapsedSeconds, 59));
}

// A clock reading a span later on the wall clock (no daylight-saving shift in between).
QDateTime wallClockAfter(const QDateTime& start, qint64 seconds) {
    const QDateTime later = QDateTime(start.date(), start.time(), QTimeZone::utc()).addSecs(seconds);
    return QDateTime(later.date(), later.time());
}
} // namespace

AerobicLogPage::AerobicLogPage(PageHost& host, QWidget* parent)
    : Page(host, IDD_AEROBIC, QStringLiteral("AerobicLogPage"), parent) {
    createControls();
    placeControls();
}

void AerobicLogPage::createControls() {
    m_datePicker = named(new DateControl(this), IDC_AEROBIC_DATE);
    m_startPicker = named(new TimeControl(TimeControl::Picture::TimeOfDay, this), IDC_AEROBIC_START);
    m_endPicker = named(new TimeControl(TimeControl::Picture::TimeOfDay, this), IDC_AEROBIC_END);
    m_elapsedPicker = named(new TimeControl(TimeControl::Picture::Span, this), IDC_AEROBIC_ELAPSED);
    m_startNow = named(new NowButton(this), IDC_AEROBIC_STARTNOW);
    m_endNow = named(new NowButton(this), IDC_AEROBIC_ENDNOW);
    m_completed = named(new QCheckBox(QStringLiteral("Completed"), this), IDC_AEROBIC_COMPLETED);
    m_exercise = named(new DeviceCombo(true, this), IDC_AEROBIC_EXERCISE);
    m_exerciseList = named(new ListButton(this), IDC_AEROBIC_EXERCISELIST);
    m_course = named(new DeviceCombo(true, this), IDC_AEROBIC_COURSE);
    m_courseList = named(new ListButton(this), IDC_AEROBIC_COURSELIST);
    m_distance = named(new NumberEdit(RangeCheck::Kind::Number, 0, 999.9, this), IDC_AEROBIC_DISTANCE);
    named(new UpDownControl(m_distance, 0, 100, this), IDC_AEROBIC_DISTANCESPIN);
    m_heartRate = named(new NumberEdit(RangeCheck::Kind::Integer, 0, 999, this), IDC_AEROBIC_HEARTRATE);
    named(new UpDownControl(m_heartRate, 0, 250, this), IDC_AEROBIC_HEARTRATESPIN);
    m_notes = named(new NotesEdit(this), IDC_AEROBIC_NOTES);

    const QFont buttonFont = DeviceFonts::tahoma(kButtonFontHeight);
    m_firstButton = named(new QPushButton(kAddAnother, this), IDC_AEROBIC_FIRSTBUTTON);
    m_secondButton = named(new QPushButton(kAddThirdDisabled, this), IDC_AEROBIC_SECONDBUTTON);
    m_delete = named(new QPushButton(QStringLiteral("del"), this), IDC_AEROBIC_DELETE);
    for (QPushButton* button : {m_firstButton, m_secondButton, m_delete}) {
        button->setFont(buttonFont);
    }

    const char* labels[3] = {"Min. 1-8", "9-16", "17-20"};
    auto* comboStyle = new CompactComboStyle(this);
    for (int row = 0; row < 3; ++row) {
        m_minuteLabels[row] = named(new QLabel(QString::fromLatin1(labels[row]), this), IDC_AEROBIC_LABELS[row]);
    }
    for (int minute = 0; minute < AerobicSlot::kMinutes; ++minute) {
        RatingCombo* box = named(new RatingCombo(this), IDC_AEROBIC_MINUTES[minute]);
        box->setStyle(comboStyle);
        box->setFont(buttonFont);
        m_minutes[minute] = box;
        // A choice made by the person, never one shown by loading, saves the exercise.
        connect(box, &QComboBox::activated, this, &AerobicLogPage::SaveExercise);
    }

    connect(m_datePicker, &DateControl::dateChanged, this, &AerobicLogPage::dateChanged);
    connect(m_startPicker, &TimeControl::timeChanged, this, &AerobicLogPage::startOrEndChanged);
    connect(m_endPicker, &TimeControl::timeChanged, this, &AerobicLogPage::startOrEndChanged);
    connect(m_startNow, &NowButton::clicked, this, &AerobicLogPage::startNow);
    connect(m_endNow, &NowButton::clicked, this, &AerobicLogPage::endNow);
    connect(m_elapsedPicker, &TimeControl::timeChanged, this, &AerobicLogPage::elapsedChanged);
    connect(m_completed, &QCheckBox::clicked, this, &AerobicLogPage::SaveExercise);
    connect(m_distance, &NumberEdit::valueChanged, this, &AerobicLogPage::SaveExercise);
    connect(m_heartRate, &NumberEdit::valueChanged, this, &AerobicLogPage::SaveExercise);
    connect(m_notes, &NotesEdit::left, this, &AerobicLogPage::SaveExercise);
    connect(m_exercise, &QComboBox::activated, this, [this] { nameEdited(m_exercise, m_savedExercise); });
    connect(m_exercise->lineEdit(), &QLineEdit::editingFinished, this,
            [this] { nameEdited(m_exercise, m_savedExercise); });
    connect(m_course, &QComboBox::activated, this, [this] { nameEdited(m_course, m_savedCourse); });
    connect(m_course->lineEdit(), &QLineEdit::editingFinished, this, [this] { nameEdited(m_course, m_savedCourse); });
    connect(m_exerciseList, &ListButton::clicked, this,
            [this] { editList(AerobicLists::kExercises, m_exercise, m_savedExercise); });
    connect(m_courseList, &ListButton::clicked, this,
            [this] { editList(AerobicLists::kCourses, m_course, m_savedCourse); });
    connect(m_firstButton, &QPushButton::clicked, this, &AerobicLogPage::firstButtonClicked);
    connect(m_secondButton, &QPushButton::clicked, this, &AerobicLogPage::secondButtonClicked);
    connect(m_delete, &QPushButton::clicked, this, &AerobicLogPage::deleteClicked);
}

void AerobicLogPage::placeControls() {
    // Beside the heading: the date. Then start "!" - end "!", the elapsed time and Completed, the
    // exercise and the course, distance, heart rate and "del", the notes, the intensities and the
    // two buttons down to the tab row (client y 247).
    constexpr int kRow = 20;
    constexpr int kPitch = 21;
    m_datePicker->setGeometry(134, 2, 102, kRow);
    int y = 25;
    m_startPicker->setGeometry(4, y, 72, kRow);
    m_startNow->setGeometry(77, y, 20, kRow);
    auto* to = new QLabel(QStringLiteral("to"), this);
    to->setAlignment(Qt::AlignCenter);
    to->setGeometry(98, y, 14, kRow);
    m_endPicker->setGeometry(113, y, 72, kRow);
    m_endNow->setGeometry(186, y, 20, kRow);
    y += kPitch;
    (new QLabel(QStringLiteral("Time:"), this))->setGeometry(4, y, 30, kRow);
    m_elapsedPicker->setGeometry(36, y, 72, kRow);
    m_completed->setGeometry(126, y, 100, kRow);
    y += kPitch;
    (new QLabel(QStringLiteral("Exercise:"), this))->setGeometry(4, y, 50, kRow);
    m_exercise->setGeometry(56, y, 152, kRow);
    m_exerciseList->setGeometry(210, y, 26, kRow);
    y += kPitch;
    (new QLabel(QStringLiteral("Course:"), this))->setGeometry(4, y, 50, kRow);
    m_course->setGeometry(56, y, 152, kRow);
    m_courseList->setGeometry(210, y, 26, kRow);
    y += kPitch;
    (new QLabel(QStringLiteral("Distance:"), this))->setGeometry(4, y, 50, kRow);
    m_distance->setGeometry(56, y, 38, kRow);
    findChild<UpDownControl*>(QStringLiteral("c%1").arg(IDC_AEROBIC_DISTANCESPIN))->setGeometry(94, y, 13, kRow);
    (new QLabel(QStringLiteral("Avg HR:"), this))->setGeometry(112, y, 42, kRow);
    m_heartRate->setGeometry(154, y, 30, kRow);
    findChild<UpDownControl*>(QStringLiteral("c%1").arg(IDC_AEROBIC_HEARTRATESPIN))->setGeometry(184, y, 13, kRow);
    m_delete->setGeometry(206, y, 30, kRow);
    y += kPitch;
    m_notes->setGeometry(4, y, 232, 28);
    y += 29;
    constexpr int kBoxRow = 18;
    constexpr int kBoxWidth = 24;
    for (int row = 0; row < 3; ++row) {
        m_minuteLabels[row]->setGeometry(4, y + row * kBoxRow, 44, kBoxRow - 1);
    }
    for (int minute = 0; minute < AerobicSlot::kMinutes; ++minute) {
        const int row = minute / kBoxesPerRow;
        m_minutes[minute]->setGeometry(46 + (minute % kBoxesPerRow) * kBoxWidth, y + row * kBoxRow, kBoxWidth,
                                       kBoxRow - 1);
    }
    y += 3 * kBoxRow;
    m_firstButton->setGeometry(4, y, 232, 16);
    m_secondButton->setGeometry(4, y + 17, 232, 16);
}

AerobicRecords AerobicLogPage::records() const {
    // The name is asked for each time: it changes with the user.
    return AerobicRecords(host().aerobicDatabaseName(), const_cast<AerobicLogPage*>(this));
}

// --- Page hooks -----------------------------------------------------------------------------------

void AerobicLogPage::initDialog() {
    setDate(Clock::now().date());
}

void AerobicLogPage::setDate(const QDate& date) {
    m_date = date;
    m_datePicker->setDate(date);
    Load();
}

void AerobicLogPage::saveCurrent() {
    // A distance or heart rate still being typed is taken (and saved when accepted); notes being
    // typed are saved; a stored exercise is saved as it stands. An exercise never changed stays
    // unwritten, so a day only visited gets no aerobic entry.
    for (NumberEdit* edit : {m_distance, m_heartRate}) {
        if (edit->hasFocus()) {
            edit->commit();
        }
    }
    if (m_shownStored || m_notes->hasFocus()) {
        SaveExercise();
    }
}

// --- Loading and saving ---------------------------------------------------------------------------

void AerobicLogPage::Load() {
    showExercise(1, records().ShowDay(m_date));
}

void AerobicLogPage::showExercise(int number) {
    showExercise(number, records().ReadDay(m_date));
}

void AerobicLogPage::showExercise(int number, const std::optional<AerobicDay>& day) {
    const AerobicDay shownDay = day ? *day : AerobicDay();
    m_count = std::max(shownDay.exerciseCount(), number);
    m_shown = number;
    const std::optional<AerobicExercise> stored = shownDay.exercise(number);
    m_shownStored = stored.has_value();
    showValues(stored ? *stored : newExercise());
    showCaptions();
}

AerobicExercise AerobicLogPage::newExercise() const {
    // Starting and ending now, on the shown day; no intensity chosen.
    const QTime now = Clock::now().time();
    AerobicExercise exercise;
    exercise.start = QDateTime(m_date, QTime(now.hour(), now.minute()));
    exercise.end = exercise.start;
    exercise.minutes.fill(AerobicExercise::kNoChoice);
    return exercise;
}

void AerobicLogPage::SaveExercise() {
    const AerobicRecords aerobic = records();
    if (aerobic.SaveExercise(m_date, m_shown, controlValues())) {
        m_shownStored = true;
        m_savedExercise = m_exercise->currentText();
        m_savedCourse = m_course->currentText();
    } else if (aerobic.FindDay(m_date) != 0) {
        // The write failed and has been told: the page shows what the store holds, not what was not
        // saved. Without a record the shown values stay.
        showExercise(m_shown);
    }
}

AerobicExercise AerobicLogPage::controlValues() const {
    AerobicExercise exercise;
    exercise.exercise = m_exercise->currentText();
    exercise.course = m_course->currentText();
    exercise.distance = m_distance->value();
    exercise.heartRate = static_cast<int>(m_heartRate->value());
    exercise.start = m_startPicker->dateTime();
    exercise.end = m_endPicker->dateTime();
    exercise.elapsedSeconds = m_elapsedPicker->time().second();
    exercise.completed = m_completed->isChecked();
    exercise.notes = m_notes->notes();
    for (int minute = 0; minute < AerobicSlot::kMinutes; ++minute) {
        exercise.minutes[static_cast<size_t>(minute)] = m_minutes[minute]->rating();
    }
    return exercise;
}

void AerobicLogPage::showValues(const AerobicExercise& exercise) {
    m_exercise->setSortedItems(AerobicLists::load(AerobicLists::kExercises));
    m_course->setSortedItems(AerobicLists::load(AerobicLists::kCourses));
    m_exercise->setText(exercise.exercise);
    m_course->setText(exercise.course);
    m_savedExercise = exercise.exercise;
    m_savedCourse = exercise.course;
    m_startPicker->setDateTime(exercise.start);
    m_endPicker->setDateTime(exercise.end);
    m_elapsedPicker->setTime(elapsedOf(exercise));
    m_completed->setChecked(exercise.completed);
    m_distance->setValue(exercise.distance);
    m_heartRate->setValue(exercise.heartRate);
    m_notes->setNotes(exercise.notes);
    for (int minute = 0; minute < AerobicSlot::kMinutes; ++minute) {
        m_minutes[minute]->setRating(exercise.minutes[static_cast<size_t>(minute)]);
    }
}

void AerobicLogPage::showCaptions() {
    if (m_count <= 1) {
        m_firstButton->setText(kAddAnother);
    } else {
        m_firstButton->setText(viewCaption(m_shown == 1 ? 2 : 1));
    }
    // With one exercise the second button does nothing: it says what it will do once there are two.
    m_secondButton->setEnabled(m_count >= 2);
    if (m_count <= 1) {
        m_secondButton->setText(kAddThirdDisabled);
    } else if (m_count == 2) {
        m_secondButton->setText(kAddThird);
    } else {
        m_secondButton->setText(viewCaption(m_shown == 3 ? 2 : 3));
    }
}

void AerobicLogPage::showIntensityBoxes() {
    const bool shown = setting(Settings::kShowBox) == 1;
    for (QLabel* label : m_minuteLabels) {
        label->setVisible(shown);
    }
    for (RatingCombo* box : m_minutes) {
        box->setVisible(shown);
    }
}

// --- The form's controls --------------------------------------------------------------------------

void AerobicLogPage::dateChanged() {
    m_date = m_datePicker->date();
    Load();
    if (setting(Settings::kCkDate) == 1) {
        host().SetDateOnAllPages(m_date);
    }
}

void AerobicLogPage::startOrEndChanged() {
    // New times count whole minutes: the seconds of an elapsed time typed before are dropped.
    AerobicExercise exercise = controlValues();
    exercise.elapsedSeconds = 0;
    m_elapsedPicker->setTime(elapsedOf(exercise));
    SaveExercise();
}

void AerobicLogPage::startNow() {
    m_startPicker->setDateTime(QDateTime(m_date, Clock::now().time()));
    startOrEndChanged();
}

void AerobicLogPage::endNow() {
    m_endPicker->setDateTime(QDateTime(m_date, Clock::now().time()));
    startOrEndChanged();
}

void AerobicLogPage::elapsedChanged() {
    // The end follows the typed span; its seconds are kept as the elapsed seconds.
    const QTime elapsed = m_elapsedPicker->time();
    m_endPicker->setDateTime(wallClockAfter(m_startPicker->dateTime(), (elapsed.hour() * 60 + elapsed.minute()) * 60));
    SaveExercise();
}

void AerobicLogPage::nameEdited(DeviceCombo* combo, QString& lastSaved) {
    if (combo->currentText() != lastSaved) {
        SaveExercise();
    }
}

void AerobicLogPage::editList(const QString& databaseName, DeviceCombo* combo, QString& lastSaved) {
    // A name added in the editor is taken as the exercise's (or course's) at once.
    const QString added = host().editItemList(databaseName);
    combo->setSortedItems(AerobicLists::load(databaseName));
    if (!added.isEmpty()) {
        combo->setText(added);
        nameEdited(combo, lastSaved);
    }
}

// --- The buttons ----------------------------------------------------------------------------------

void AerobicLogPage::firstButtonClicked() {
    switch (m_count) {
    case 1:
        addExercise(2);
        break;
    case 2:
    case 3:
        showExercise(m_shown == 1 ? 2 : 1);
        break;
    default:
        MessageBoxW(this, kError, kCaption, MB_OK | MB_ICONERROR);
        break;
    }
}

void AerobicLogPage::secondButtonClicked() {
    if (m_count == 2) {
        addExercise(3);
    } else if (m_count == 3) {
        showExercise(m_shown == 3 ? 2 : 3);
    }
}

void AerobicLogPage::addExercise(int number) {
    // Written at once, so that the day counts it when it is shown again.
    if (records().SaveExercise(m_date, number, newExercise())) {
        showExercise(number);
    }
}

void AerobicLogPage::deleteClicked() {
    if (MessageBoxW(this, kDeleteQuestion, kCaption, MB_OKCANCEL | MB_ICONQUESTION) != IDOK) {
        return;
    }
    if (records().DeleteExercise(m_date, m_shown)) {
        // The exercise that moved into the slot is shown, or the one before when the last was deleted.
        const std::optional<AerobicDay> day = records().ReadDay(m_date);
        const int count = day ? day->exerciseCount() : 1;
        showExercise(std::min(m_shown, count));
    }
}

// --- Painting -------------------------------------------------------------------------------------

void AerobicLogPage::showEvent(QShowEvent* event) {
    showIntensityBoxes();
    Page::showEvent(event);
}

void AerobicLogPage::paintEvent(QPaintEvent*) {
    // ShowBox is read at each repaint, so that a change in the Options shows at once.
    if (m_minutes[0]->isVisibleTo(this) != (setting(Settings::kShowBox) == 1)) {
        showIntensityBoxes();
    }
    QPainter painter(this);
    PageHeading::paint(painter, *this, IDB_AEROBIC, QStringLiteral("Aerobic"));
}

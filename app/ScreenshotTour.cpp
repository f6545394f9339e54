#include "ScreenshotTour.h"

#include "AerobicRecords.h"
#include "CalendarPage.h"
#include "CalendarPopup.h"
#include "CeDatabase.h"
#include "Clock.h"
#include "CommandBar.h"
#include "ConfirmDialog.h"
#include "DateControl.h"
#include "DayKey.h"
#include "DeviceCombo.h"
#include "DeviceMessageBoxPresenter.h"
#include "DevicePaths.h"
#include "FoodRecords.h"
#include "GoalsFile.h"
#include "KovalinApp.h"
#include "MainDialog.h"
#include "NumberEdit.h"
#include "PhotoViewer.h"
#include "RecordDatabase.h"
#include "RegistryHelper.h"
#include "ReportChart.h"
#include "ReportsPage.h"
#include "SetGrid.h"
#include "Settings.h"
#include "StartupDialog.h"
#include "StrengthRecords.h"
#include "TimeControl.h"
#include "UserList.h"
#include "UtilitiesDialog.h"
#include "resource.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeWidget>

#include <cstdio>

namespace {
// The screens written again at scales 2 and 3: where texts are wrapped, cut or drawn small, and where
// lists open.
const QStringList kScaledShots = {QStringLiteral("today-summary.png"),
                                  QStringLiteral("set-grid.png"),
                                  QStringLiteral("set-grid-exercise-list.png"),
                                  QStringLiteral("set-grid-picked.png"),
                                  QStringLiteral("set-grid-weight-restored.png"),
                                  QStringLiteral("food-meals.png"),
                                  QStringLiteral("item-list-added.png"),
                                  QStringLiteral("aerobic-intensity-list.png"),
                                  QStringLiteral("reports-measure-list.png"),
                                  QStringLiteral("reports-past-week.png"),
                                  QStringLiteral("reports-four-weeks.png"),
                                  QStringLiteral("reports-body-weight-year.png"),
                                  QStringLiteral("reports-workouts-per-week-year.png"),
                                  QStringLiteral("photo.png"),
                                  QStringLiteral("utilities-cancelled.png")};

const QStringList kTabNames = {QStringLiteral("today"),   QStringLiteral("upper-body"), QStringLiteral("lower-body"),
                               QStringLiteral("aerobic"), QStringLiteral("food"),       QStringLiteral("reports"),
                               QStringLiteral("calendar")};

StrengthSet set(const char* exercise, const char* reps, double weight, const char* rest, int intensity) {
    StrengthSet made;
    made.exercise = QString::fromLatin1(exercise);
    made.reps = QString::fromLatin1(reps);
    made.weight = weight;
    made.rest = QString::fromLatin1(rest);
    made.intensity = intensity;
    return made;
}

bool writeGroup(const StrengthRecords& records, const QDate& day, const MuscleGroup& group,
                const std::vector<StrengthSet>& sets) {
    GroupSets rows;
    for (size_t row = 0; row < sets.size(); ++row) {
        rows.at(static_cast<int>(row)) = sets[row];
    }
    return records.WriteGroup(day, group, rows);
}

bool writeHeader(const StrengthRecords& records, const QDate& day, QTime start, QTime end, const char* notes) {
    WorkoutHeader header;
    header.start = QDateTime(day, start);
    header.end = QDateTime(day, end);
    header.elapsed = WorkoutHeader::elapsedBetween(header.start, header.end);
    header.completed = 1;
    header.notes = QString::fromLatin1(notes);
    return records.EnsureDatabases() && records.EnsureDay(day) && records.WriteHeader(day, header);
}

// This morning's workout of the Default user, upper and lower body, and an earlier chest day.
bool writeWorkout(const QDate& today) {
    const StrengthRecords upper(QStringLiteral("Kov2AUpperBody"), QStringLiteral("Kov2BUpperBody"));
    const StrengthRecords lower(QStringLiteral("Kov2ALowerBody"), QStringLiteral("Kov2BLowerBody"));
    const char* notes = "Felt strong. Up 5 lb on the bench press.";
    const MuscleGroup chest(BodyRegion::Upper, 0);
    return writeHeader(upper, today, QTime(6, 30), QTime(7, 45), notes) &&
           writeHeader(lower, today, QTime(6, 30), QTime(7, 45), notes) &&
           writeGroup(upper, today, chest,
                      {set("Barbell Bench Press", "10", 135, "2", 6), set("Barbell Bench Press", "8", 157.5, "2", 7),
                       set("Barbell Bench Press", "6", 175, "3", 9), set("Incline Dumbbell Press", "10", 50, "2", 7),
                       set("Incline Dumbbell Press", "10", 50, "2", 8), set("Dumbbell Flyes", "12", 30, "1", 6),
                       set("Dumbbell Flyes", "12", 30, "1", 7), set("Dumbbell Flyes", "10", 35, "1", 8),
                       set("Dumbbell Bench Press", "10", 60, "2", 8), set("Dumbbell Bench Press", "8", 65, "2", 9),
                       set("Dumbbell Bench Press", "8", 65, "2", 9)}) &&
           writeGroup(upper, today, MuscleGroup(BodyRegion::Upper, 1),
                      {set("Seated Dumbbell Press", "10", 40, "2", 7), set("Side Raises", "12", 15, "1", 6)}) &&
           writeGroup(upper, today, MuscleGroup(BodyRegion::Upper, 3),
                      {set("Close Grip Pushdowns", "12", 70, "1", 7), set("Bench Dips", "15", 0, "1", 8)}) &&
           writeGroup(lower, today, MuscleGroup(BodyRegion::Lower, 0),
                      {set("Barbell Squats", "10", 185, "3", 7), set("Barbell Squats", "8", 205, "3", 8),
                       set("Leg Press", "12", 270, "2", 8)}) &&
           writeGroup(lower, today, MuscleGroup(BodyRegion::Lower, 2),
                      {set("Standing Calf Raises", "15", 120, "1", 6), set("Seated Calf Raises", "15", 90, "1", 7)}) &&
           writeGroup(lower, today, MuscleGroup(BodyRegion::Lower, 3), {set("Floor Crunches", "25", 0, "1", 5)});
}
Meal meal(QTime time, const char* protein, const char* carbohydrate, const char* vegetable, const char* other) {
    Meal made;
    made.time = time;
    made.protein = QString::fromLatin1(protein);
    made.carbohydrate = QString::fromLatin1(carbohydrate);
    made.vegetable = QString::fromLatin1(vegetable);
    made.other = QString::fromLatin1(other);
    return made;
}

// Today's food and body values of the Default user and five meals.
bool writeFoodDay(const QDate& today) {
    const FoodRecords food(QStringLiteral("Kov2Food"));
    FoodDayValues values;
    values.water = 8;
    values.weight = 182;
    values.bodyFat = 14.5;
    values.notes = QStringLiteral("Slept well. Skipped the afternoon coffee.");
    values.sleep = 7.5;
    values.sleepQuality = 8;
    values.systolic = 118;
    values.diastolic = 76;
    values.restingHeartRate = 58;
    values.overall = 9;
    values.chest = 42.5;
    values.biceps = 15.25;
    values.waist = 32;
    values.quads = 24.5;
    values.calves = 15.5;
    const Meal meals[] = {meal(QTime(7, 5), "Egg Whites", "Oatmeal", "", "Multivitamin"),
                          meal(QTime(10, 0), "Cottage Cheese", "Strawberries", "Brussels Sprouts", "Multivitamin"),
                          meal(QTime(12, 30), "Chicken", "Brown Rice", "Broccoli", ""),
                          meal(QTime(15, 45), "Tuna", "Wheat Bread", "Lettuce", "Fish Oil"),
                          meal(QTime(19, 15), "Salmon", "Potato", "Asparagus", "")};
    bool written = food.EnsureDatabase() && food.CreateDay(today) != 0 && food.SaveDay(today, values);
    for (int slot = 0; slot < 5 && written; ++slot) {
        written = food.PutMeal(today, slot, meals[slot]);
    }
    return written;
}

AerobicExercise exerciseAt(const QDate& day, QTime start, int minutes, const QString& name, const QString& course) {
    AerobicExercise exercise;
    exercise.exercise = name;
    exercise.course = course;
    exercise.start = QDateTime(day, start);
    exercise.end = exercise.start.addSecs(60 * minutes);
    exercise.completed = true;
    exercise.minutes.fill(AerobicExercise::kNoChoice);
    return exercise;
}

// Three exercises: a run with its minutes rated, a ride and a swim.
bool writeAerobicDay(const QDate& today) {
    AerobicExercise run = exerciseAt(today, QTime(6, 30), 28, QStringLiteral("Running"), QStringLiteral("Park Loop"));
    run.distance = 3.1;
    run.heartRate = 148;
    run.notes = QStringLiteral("Easy pace, windy.");
    const int ratings[] = {3, 4, 5, 5, 6, 6, 7, 7, 8, 8, 7, 6, 5, 4};
    std::copy(std::begin(ratings), std::end(ratings), run.minutes.begin());
    AerobicExercise ride =
        exerciseAt(today, QTime(12, 15), 45, QStringLiteral("Cycling"), QStringLiteral("River Trail"));
    ride.distance = 12.5;
    ride.heartRate = 132;
    AerobicExercise swim = exerciseAt(today, QTime(18, 0), 30, QStringLiteral("Swimming"), QStringLiteral("Pool"));
    swim.distance = 1;
    swim.heartRate = 120;
    const AerobicRecords aerobic(QStringLiteral("Kov2Aerobic"));
    return aerobic.ShowDay(today) && aerobic.SaveExercise(today, 1, run) && aerobic.SaveExercise(today, 2, ride) &&
           aerobic.SaveExercise(today, 3, swim);
}

// Adds a record holding props for each day that has none yet in the dated log name.
bool addDays(const QString& name, const std::vector<std::pair<QDate, DbRecord>>& days) {
    if (!DatabaseCatalogue::ensureDatedLog(name)) {
        return false;
    }
    RecordDatabase db;
    if (!db.Open(name, DayKey::kPropId)) {
        return false;
    }
    for (const auto& [day, props] : days) {
        if (db.SeekFirstEqual(DayKey::prop(day)) != 0) {
            continue;
        }
        DbRecord record;
        record.append(DayKey::prop(day));
        for (const DbProp& prop : props.props()) {
            record.append(prop);
        }
        if (db.Write(record, 0) == 0) {
            return false;
        }
    }
    return true;
}

// A year of the Default user's history before today for the reports: a weigh-in every few days,
// slowly coming down to today's 182; the bench press on Mondays and Thursdays for twelve weeks, going
// up; squats on Tuesdays and runs on Wednesdays and Saturdays.
bool writeReportHistory(const QDate& today) {
    std::vector<std::pair<QDate, DbRecord>> weighIns;
    for (int back = 364; back >= 1; back -= (back % 3 == 0 ? 2 : 3)) {
        DbRecord record;
        const int weight = 182 + back / 28 + (back * 7 % 5) - 2;
        record.append(DbProp::i2(FoodDayValues::kWeight, static_cast<std::int16_t>(weight)));
        weighIns.emplace_back(today.addDays(-back), record);
    }
    std::vector<std::pair<QDate, DbRecord>> runs;
    const StrengthRecords upper(QStringLiteral("Kov2AUpperBody"), QStringLiteral("Kov2BUpperBody"));
    const StrengthRecords lower(QStringLiteral("Kov2ALowerBody"), QStringLiteral("Kov2BLowerBody"));
    bool written = addDays(QStringLiteral("Kov2Food"), weighIns) && upper.EnsureDatabases() && lower.EnsureDatabases();
    for (int back = 83; back >= 1 && written; --back) {
        const QDate day = today.addDays(-back);
        const int weekday = day.dayOfWeek();
        if (weekday == Qt::Monday || weekday == Qt::Thursday) {
            const double bench = 135 + (83 - back) / 7 * 2.5;
            written = upper.EnsureDay(day) && writeGroup(upper, day, MuscleGroup(BodyRegion::Upper, 0),
                                                         {set("Barbell Bench Press", "10", bench, "2", 6),
                                                          set("Barbell Bench Press", "8", bench + 10, "2", 7),
                                                          set("Incline Dumbbell Press", "10", 50, "2", 7)});
        } else if (weekday == Qt::Tuesday) {
            written = lower.EnsureDay(day) && writeGroup(lower, day, MuscleGroup(BodyRegion::Lower, 0),
                                                         {set("Barbell Squats", "10", 185, "3", 7)});
        } else if (weekday == Qt::Wednesday || weekday == Qt::Saturday) {
            DbRecord run;
            run.append(DbProp::text(701, QStringLiteral("Run")));
            run.append(DbProp::r8(722, weekday == Qt::Saturday ? 6.2 : 3.1));
            runs.emplace_back(day, run);
        }
    }
    return written && addDays(QStringLiteral("Kov2Aerobic"), runs);
}
} // namespace

ScreenshotTour::ScreenshotTour(const QString& directory, int scale) : m_directory(directory), m_scale(scale) {}

int ScreenshotTour::run() {
    QTemporaryDir deviceDir;
    DevicePaths paths(deviceDir.path() + QStringLiteral("/device"));
    if (!deviceDir.isValid() || !QDir().mkpath(m_directory) || !paths.ensureCreated()) {
        std::fprintf(stderr, "kovalin: cannot create %s or a temporary device\n", qPrintable(m_directory));
        return 1;
    }
    DevicePaths::setCurrent(paths);
    if (!CeMountObjectStore(paths.objectStore())) {
        std::fprintf(stderr, "kovalin: cannot open the temporary device's object store\n");
        return 1;
    }
    Clock::setFixed(QDateTime(QDate(2024, 3, 14), QTime(9, 41)));
    if (!writeWorkout(QDate(2024, 3, 14)) || !writeFoodDay(QDate(2024, 3, 14)) ||
        !writeAerobicDay(QDate(2024, 3, 14))) {
        std::fprintf(stderr, "kovalin: cannot write the demonstration workout\n");
        CeUnmountObjectStore();
        return 1;
    }
    int code = 0;
    {
        DeviceMessageBoxPresenter presenter;
        KovalinApp app;
        m_app = &app;
        DeviceScreen& screen = app.screen();
        screen.show();
        screen.start();
        connect(screen.findChild<StartupDialog*>(), &StartupDialog::textShown, this, &ScreenshotTour::onStartupText);
        connect(&screen.mainDialog(), &MainDialog::loaded, this,
                [this] { QTimer::singleShot(0, this, &ScreenshotTour::tourPages); });
        QApplication::exec();
        m_app = nullptr;
    }
    CeUnmountObjectStore();
    for (const QString& name : m_written) {
        std::printf("%s\n", qPrintable(QDir(m_directory).filePath(name)));
    }
    for (const QString& failure : m_failed) {
        std::fprintf(stderr, "kovalin: %s\n", qPrintable(failure));
        code = 1;
    }
    return code;
}

void ScreenshotTour::onStartupText(const QString& text) {
    if (text == QStringLiteral("   Loading calendar...")) {
        save(grabScreen(), QStringLiteral("startup.png"));
        // The release notes come up next, while the Today page is made.
        QTimer::singleShot(0, this, &ScreenshotTour::answerReleaseNotes);
    }
}

void ScreenshotTour::answerReleaseNotes() {
    auto* dialog = m_app->screen().findChild<ConfirmDialog*>(QStringLiteral("ConfirmDialog"));
    if (dialog == nullptr || !dialog->isVisible()) {
        QTimer::singleShot(10, this, &ScreenshotTour::answerReleaseNotes);
        return;
    }
    save(grabScreen(), QStringLiteral("release-notes.png"));
    dialog->findChild<QCheckBox*>(QStringLiteral("c%1").arg(IDC_CONFIRM_DONTSHOW))->setChecked(true);
    dialog->findChild<QPushButton*>(QStringLiteral("c1"))->click();
}

void ScreenshotTour::tourPages() {
    DeviceScreen& screen = m_app->screen();
    MainDialog& main = screen.mainDialog();
    for (int tab = 0; tab < MainDialog::kTabCount; ++tab) {
        main.tabControl()->setCurrentIndex(tab);
        save(grabScreen(), kTabNames[tab] + QStringLiteral(".png"));
    }
    main.tabControl()->setCurrentIndex(0);

    main.commandBar()->openMenu();
    QApplication::processEvents();
    save(grabScreen(), QStringLiteral("menu.png"));
    main.commandBar()->menu()->hide();

    QTimer::singleShot(0, this, [this] {
        auto* options = m_app->screen().findChild<QDialog*>(QStringLiteral("OptionsDialog"));
        save(grabScreen(), QStringLiteral("options.png"));
        if (options != nullptr) {
            options->reject();
        }
    });
    screen.findChild<QAction*>(QStringLiteral("cmd%1").arg(ID_MENU_OPTIONS))->trigger();
    // The fill-in box shows only while PullWt is on, between its neighbours.
    RegistryHelper::SetDword(HKEY_CURRENT_USER, Settings::kKey, Settings::kPullWt, 1);
    whenUp(QStringLiteral("OptionsDialog"), QStringLiteral("options-fill-in.png"));
    command(ID_MENU_OPTIONS);
    RegistryHelper::SetDword(HKEY_CURRENT_USER, Settings::kKey, Settings::kPullWt, 0);
    whenUp(QStringLiteral("AboutDialog"), QStringLiteral("about.png"));
    command(ID_MENU_ABOUT);
    whenUp(QStringLiteral("DeviceMessageBox"), QStringLiteral("help.png"));
    command(ID_MENU_HELP);
    tourPhoto();
    tourStrength();
    tourAerobic();
    tourOverview();
    tourReports();
    tourUtilities();
    tourImport();
    tourUsers();
    QApplication::quit();
}

void ScreenshotTour::tourPhoto() {
    // A picture of our own: hills under an evening sky.
    QImage photo(PhotoViewer::kPhotoWidth, PhotoViewer::kPhotoHeight, QImage::Format_RGB32);
    QPainter painter(&photo);
    QLinearGradient sky(0, 0, 0, photo.height());
    sky.setColorAt(0, QColor(0x2B, 0x4C, 0x9A));
    sky.setColorAt(1, QColor(0xF2, 0xA6, 0x5A));
    painter.fillRect(photo.rect(), sky);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xFF, 0xE0, 0x8A));
    painter.drawEllipse(QPointF(160, 170), 28, 28);
    painter.setBrush(QColor(0x2E, 0x5E, 0x3A));
    painter.drawEllipse(QPointF(60, 330), 170, 130);
    painter.setBrush(QColor(0x1F, 0x45, 0x2A));
    painter.drawEllipse(QPointF(210, 350), 150, 120);
    painter.end();
    if (!photo.save(PhotoViewer::hostPath(), "JPEG")) {
        m_failed.append(QStringLiteral("cannot write ") + PhotoViewer::hostPath());
        return;
    }
    QTimer::singleShot(0, this, [this] {
        save(grabScreen(), QStringLiteral("photo.png"));
        if (QDialog* viewer = visibleDialog(QStringLiteral("PhotoViewer"))) {
            viewer->accept();
        }
    });
    command(ID_MENU_PHOTO);
}

void ScreenshotTour::tourStrength() {
    MainDialog& main = m_app->screen().mainDialog();
    main.SelectPage(1);
    auto* list = main.page(1)->findChild<QTreeWidget*>(QStringLiteral("c%1").arg(IDC_STRENGTH_LIST));
    QWidget* viewport = list->viewport();
    // Tap-and-hold below the rows (the group menu), then on the fourth row (Delete and Edit).
    list->scrollToBottom();
    const QRect lastRow = list->visualItemRect(list->topLevelItem(list->topLevelItemCount() - 1));
    const QPoint below(60, std::min(lastRow.bottom() + 12, viewport->height() - 4));
    openContextMenu(viewport, below, QStringLiteral("upper-body-group-menu.png"));
    list->scrollToTop();
    openContextMenu(viewport, list->visualItemRect(list->topLevelItem(3)).center(),
                    QStringLiteral("upper-body-row-menu.png"));
    list->clearSelection();

    command(ID_UPPER_CHEST);
    save(grabScreen(), QStringLiteral("set-grid.png"));
    auto* grid = static_cast<SetGrid*>(main.setGrid());
    // The tenth row's exercise list, the lowest row shown, opens inside the screen; the name picked
    // there reads as the other rows' names do.
    m_app->screen().activateWindow();
    DeviceCombo* tenth = grid->row(9).exercise;
    tenth->setFocus();
    tenth->showPopup();
    QApplication::processEvents();
    save(grabScreen(), QStringLiteral("set-grid-exercise-list.png"));
    tenth->view()->setCurrentIndex(tenth->model()->index(tenth->findText(QStringLiteral("Incline Dumbbell Press")), 0));
    type(tenth->view(), {}, Qt::Key_Return);
    QApplication::processEvents();
    save(grabScreen(), QStringLiteral("set-grid-picked.png"));
    grid->scrollBar()->setValue(grid->scrollBar()->maximum());
    save(grabScreen(), QStringLiteral("set-grid-scrolled.png"));
    grid->scrollBar()->setValue(0);
    main.commandBar()->openMenu(main.commandBar()->addedMenu(IDR_SETGRID_MENU));
    QApplication::processEvents();
    save(grabScreen(), QStringLiteral("set-grid-clear-menu.png"));
    main.commandBar()->addedMenu(IDR_SETGRID_MENU)->hide();

    // The picker opens on the row that has the focus.
    m_app->screen().activateWindow();
    grid->row(5).exercise->setFocus();
    QApplication::processEvents();
    whenUp(QStringLiteral("SelectExerciseDialog"), QStringLiteral("select-exercise.png"));
    command(ID_GRID_SELECTEXERCISE);
    // A name typed, then added with a tap on Add: the focus is back in the edit box for the next one.
    QTimer::singleShot(0, this, [this] {
        QDialog* editor = visibleDialog(QStringLiteral("ItemListDialog"));
        if (editor == nullptr) {
            m_failed.append(QStringLiteral("no item list editor"));
            return;
        }
        editor->findChild<QLineEdit*>(QStringLiteral("c%1").arg(IDC_ITEM_EDIT))
            ->setText(QStringLiteral("Cable Crossover"));
        save(grabScreen(), QStringLiteral("item-list.png"));
        tapStart(editor->findChild<QPushButton*>(QStringLiteral("c%1").arg(IDC_ITEM_ADD)));
        type(QApplication::focusWidget(), QStringLiteral("Pec Deck"));
        save(grabScreen(), QStringLiteral("item-list-added.png"));
        editor->reject();
    });
    command(ID_GRID_EDITLIST);
    command(ID_GRID_CANCEL);
    tourControls();
    tourFood();
    main.SelectPage(0);
}

void ScreenshotTour::tourFood() {
    MainDialog& main = m_app->screen().mainDialog();
    main.SelectPage(4);
    QWidget* food = main.page(4);
    auto* scroll = food->findChild<QScrollArea*>(QStringLiteral("c%1").arg(IDC_FOOD_SCROLL));
    auto* list = food->findChild<QTreeWidget*>(QStringLiteral("c%1").arg(IDC_FOOD_MEALS));
    scroll->verticalScrollBar()->setValue(scroll->verticalScrollBar()->maximum());
    QApplication::processEvents();
    save(grabScreen(), QStringLiteral("food-meals.png"));
    QWidget* viewport = list->viewport();
    openContextMenu(viewport, list->visualItemRect(list->topLevelItem(2)).center(),
                    QStringLiteral("food-row-menu.png"));
    openContextMenu(viewport, QPoint(60, viewport->height() - 6), QStringLiteral("food-menu.png"));
    list->clearSelection();

    // The meal dialog of a new meal, its carbohydrates open.
    QTimer::singleShot(0, this, [this] {
        auto* dialog = m_app->screen().findChild<QDialog*>(QStringLiteral("MealDialog"));
        if (dialog == nullptr) {
            m_failed.append(QStringLiteral("no meal dialog"));
            return;
        }
        auto* carbohydrates = dialog->findChild<QComboBox*>(QStringLiteral("c%1").arg(IDC_MEAL_CARB));
        carbohydrates->showPopup();
        QApplication::processEvents();
        save(grabScreen(), QStringLiteral("meal-dialog.png"));
        carbohydrates->hidePopup();
        dialog->reject();
    });
    command(ID_FOOD_ADDMEAL);

    // Eleven cups are more than a day's water field takes.
    scroll->verticalScrollBar()->setValue(0);
    auto* water = food->findChild<NumberEdit*>(QStringLiteral("c%1").arg(IDC_FOOD_WATER));
    water->setFocus();
    water->selectAll();
    type(water, QStringLiteral("110"));
    whenUp(QStringLiteral("DeviceMessageBox"), QStringLiteral("food-range-message.png"));
    type(water, {}, Qt::Key_Return);
}

void ScreenshotTour::tourControls() {
    MainDialog& main = m_app->screen().mainDialog();
    QWidget* upper = main.page(1);
    // The date while its month is typed: the day is selected next.
    auto* date = upper->findChild<DateControl*>(QStringLiteral("c%1").arg(IDC_STRENGTH_DATE));
    tapStart(date);
    type(date, QStringLiteral("4"));
    save(grabScreen(), QStringLiteral("date-typing.png"));
    type(date, {}, Qt::Key_Escape);
    date->showCalendar();
    QApplication::processEvents();
    save(grabScreen(), QStringLiteral("date-calendar.png"));
    date->calendarPopup()->hide();

    auto* start = upper->findChild<TimeControl*>(QStringLiteral("c%1").arg(IDC_STRENGTH_START));
    tapStart(start);
    type(start, QStringLiteral("7"));
    save(grabScreen(), QStringLiteral("time-typing.png"));
    type(start, {}, Qt::Key_Escape);

    // The grid with weights of four and five figures, one being typed, then one out of range.
    command(ID_UPPER_CHEST);
    auto* grid = static_cast<SetGrid*>(main.setGrid());
    NumberEdit* typed = grid->row(2).weight;
    typed->setFocus();
    typed->selectAll();
    type(typed, QStringLiteral("999.9"));
    save(grabScreen(), QStringLiteral("set-grid-weights.png"));
    type(typed, QStringLiteral("9"));
    whenUp(QStringLiteral("DeviceMessageBox"), QStringLiteral("range-message.png"));
    command(ID_GRID_SAVE);
    // After the message the weight shows its last accepted value, selected, to be put right.
    QApplication::processEvents();
    save(grabScreen(), QStringLiteral("set-grid-weight-restored.png"));
    command(ID_GRID_CANCEL);
}

void ScreenshotTour::tourAerobic() {
    MainDialog& main = m_app->screen().mainDialog();
    RegistryHelper::SetDword(HKEY_CURRENT_USER, Settings::kKey, Settings::kShowBox, 1);
    main.SelectPage(3);
    QWidget* page = main.page(3);
    auto button = [page](int id) { return page->findChild<QPushButton*>(QStringLiteral("c%1").arg(id)); };
    // The day holds three exercises: the second button shows the third.
    button(IDC_AEROBIC_SECONDBUTTON)->click();
    QApplication::processEvents();
    save(grabScreen(), QStringLiteral("aerobic-exercise-3.png"));
    button(IDC_AEROBIC_FIRSTBUTTON)->click();
    QApplication::processEvents();
    save(grabScreen(), QStringLiteral("aerobic-exercise-1.png"));
    button(IDC_AEROBIC_FIRSTBUTTON)->click();
    QApplication::processEvents();
    save(grabScreen(), QStringLiteral("aerobic-exercise-2.png"));
    whenUp(QStringLiteral("DeviceMessageBox"), QStringLiteral("aerobic-delete-question.png"));
    button(IDC_AEROBIC_DELETE)->click();
    // The last minute's intensity list, at the bottom of the form, opens inside the screen.
    auto* minute20 = page->findChild<QComboBox*>(QStringLiteral("c%1").arg(IDC_AEROBIC_MINUTES[19]));
    minute20->showPopup();
    QApplication::processEvents();
    save(grabScreen(), QStringLiteral("aerobic-intensity-list.png"));
    minute20->hidePopup();
    RegistryHelper::SetDword(HKEY_CURRENT_USER, Settings::kKey, Settings::kShowBox, 0);
    main.SelectPage(0);
    main.SelectPage(3);
    QApplication::processEvents();
    save(grabScreen(), QStringLiteral("aerobic-boxes-hidden.png"));
    main.SelectPage(0);
}

namespace {
// Five weeks of training around March 2024 for the calendar: upper body on Mondays, Wednesdays and
// Fridays, lower body on Tuesdays and Thursdays (and on 11 March), a run most mornings; and the user's
// goals.
bool writeTrainingMonth(const QDate& today) {
    const StrengthRecords upper(QStringLiteral("Kov2AUpperBody"), QStringLiteral("Kov2BUpperBody"));
    const StrengthRecords lower(QStringLiteral("Kov2ALowerBody"), QStringLiteral("Kov2BLowerBody"));
    const AerobicRecords aerobic(QStringLiteral("Kov2Aerobic"));
    bool written = aerobic.EnsureDatabase() && upper.EnsureDatabases() && lower.EnsureDatabases();
    for (QDate day(2024, 2, 26); day < today && written; day = day.addDays(1)) {
        const int weekday = day.dayOfWeek();
        const int sets = 2 + day.day() % 4;
        std::vector<StrengthSet> rows;
        if (weekday == 1 || weekday == 3 || weekday == 5) {
            for (int i = 0; i < sets; ++i) {
                rows.push_back(set("Barbell Bench Press", "10", 135 + 5 * i, "2", 7));
            }
            written = upper.EnsureDay(day) && writeGroup(upper, day, MuscleGroup(BodyRegion::Upper, 0), rows);
        }
        // Monday 11 March holds all three kinds, for the calendar's pop-up.
        if (written && (weekday == 2 || weekday == 4 || day == QDate(2024, 3, 11))) {
            rows.clear();
            for (int i = 0; i < sets; ++i) {
                rows.push_back(set("Barbell Squats", "8", 185 + 10 * i, "3", 8));
            }
            written = lower.EnsureDay(day) && writeGroup(lower, day, MuscleGroup(BodyRegion::Lower, 0), rows);
        }
        if (written && day.day() % 3 != 0 && weekday != 7) {
            AerobicExercise run;
            run.exercise = QStringLiteral("Run");
            run.course = QStringLiteral("River loop");
            run.distance = 3.1;
            run.start = QDateTime(day, QTime(6, 15));
            run.end = QDateTime(day, QTime(6, 45));
            written = aerobic.CreateDay(day) != 0 && aerobic.SaveExercise(day, 1, run);
        }
    }
    return written &&
           GoalsFile::write(QStringLiteral("Run a half marathon under 1:50 in May. Bench press 225 lb by the "
                                           "summer. Keep body fat under 14%. Sleep seven hours a night, "
                                           "every night, and drink eight cups of water a day."));
}
} // namespace

void ScreenshotTour::tourOverview() {
    MainDialog& main = m_app->screen().mainDialog();
    if (!writeTrainingMonth(QDate(2024, 3, 14))) {
        m_failed.append(QStringLiteral("cannot write the demonstration month"));
        return;
    }
    main.SelectPage(0);
    QApplication::processEvents();
    save(grabScreen(), QStringLiteral("today-summary.png"));
    main.SelectPage(6);
    QApplication::processEvents();
    save(grabScreen(), QStringLiteral("calendar-month.png"));
    // A tap on Monday 11 March, a day of upper body, lower body and a run: the pop-up of all three kinds.
    auto* calendar = static_cast<CalendarPage*>(main.page(6));
    const int cell = static_cast<int>(calendar->month().firstCellDay().daysTo(QDate(2024, 3, 11)));
    const QPointF at(1 + 34 * (cell % 7) + 17, 32 + 35 * (cell / 7) + 17);
    QTimer::singleShot(0, this, [this] {
        save(grabScreen(), QStringLiteral("calendar-popup.png"));
        if (QWidget* popup = QApplication::activePopupWidget()) {
            popup->close();
        }
    });
    QMouseEvent press(QEvent::MouseButtonPress, at, calendar->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(calendar, &press);
}

void ScreenshotTour::tourReports() {
    if (!writeReportHistory(Clock::now().date())) {
        m_failed.append(QStringLiteral("cannot write the history the reports chart"));
        return;
    }
    MainDialog& main = m_app->screen().mainDialog();
    main.SelectPage(5);
    auto* page = static_cast<ReportsPage*>(main.page(5));
    auto choose = [page](int id, const QString& text) {
        auto* combo = page->findChild<QComboBox*>(QStringLiteral("c%1").arg(id));
        combo->setCurrentIndex(combo->findText(text));
    };
    auto picture = [this](const QString& name) {
        QApplication::processEvents();
        save(grabScreen(), name);
    };
    // The measure list open, inside the screen; body weight over a week, four weeks and a year.
    auto* measures = page->findChild<QComboBox*>(QStringLiteral("c%1").arg(IDC_REPORTS_MEASURE));
    measures->showPopup();
    picture(QStringLiteral("reports-measure-list.png"));
    measures->hidePopup();
    picture(QStringLiteral("reports-past-week.png"));
    choose(IDC_REPORTS_PERIOD, QStringLiteral("Past Four Weeks"));
    picture(QStringLiteral("reports-four-weeks.png"));
    choose(IDC_REPORTS_PERIOD, QStringLiteral("Past Year"));
    picture(QStringLiteral("reports-body-weight-year.png"));

    // The top set of the bench press over twelve weeks, a point tapped.
    choose(IDC_REPORTS_MEASURE, QStringLiteral("Wt Chest, Set #"));
    choose(IDC_REPORTS_PERIOD, QStringLiteral("Past 12 Weeks"));
    choose(IDC_REPORTS_SET, QStringLiteral("Set 2"));
    choose(IDC_REPORTS_EXERCISE, QStringLiteral("Barbell Bench Press"));
    if (page->report().points().size() > 10) {
        const QPointF at = ReportChart(page->report(), QPointF(ReportsPage::kChartLeft, ReportsPage::kChartBase))
                               .position(page->report().points()[10]);
        const QPoint tap = at.toPoint();
        QMouseEvent press(QEvent::MouseButtonPress, tap, page->mapToGlobal(tap), Qt::LeftButton, Qt::LeftButton, {});
        QApplication::sendEvent(page, &press);
    }
    picture(QStringLiteral("reports-weight-per-set.png"));

    choose(IDC_REPORTS_MEASURE, QStringLiteral("Workouts Per Week"));
    picture(QStringLiteral("reports-workouts-per-week.png"));
    choose(IDC_REPORTS_PERIOD, QStringLiteral("Past Year"));
    picture(QStringLiteral("reports-workouts-per-week-year.png"));
    choose(IDC_REPORTS_MEASURE, QStringLiteral("Wt Misc, Set #"));
    choose(IDC_REPORTS_PERIOD, QStringLiteral("Past Week"));
    picture(QStringLiteral("reports-no-entries.png"));
    main.SelectPage(0);
}

void ScreenshotTour::tourUsers() {
    if (UserList::add(QStringLiteral("Ann")) != UserList::AddResult::Added ||
        UserList::add(QStringLiteral("Bob")) != UserList::AddResult::Added) {
        m_failed.append(QStringLiteral("cannot add the users Ann and Bob"));
        return;
    }
    // Switch User: Ann highlighted in the select-user dialog, then the Today page for her.
    QTimer::singleShot(0, this, [this] {
        QDialog* dialog = visibleDialog(QStringLiteral("SelectUserDialog"));
        if (dialog == nullptr) {
            m_failed.append(QStringLiteral("no select-user dialog"));
            return;
        }
        selectRow(dialog, QStringLiteral("Ann"));
        save(grabScreen(), QStringLiteral("select-user.png"));
        dialog->findChild<QPushButton*>(QStringLiteral("c1"))->click();
    });
    command(ID_MENU_SWITCHUSER);
    MainDialog& main = m_app->screen().mainDialog();
    main.SelectPage(0);
    QApplication::processEvents();
    save(grabScreen(), QStringLiteral("today-switched-user.png"));

    // Manage Users: a new name typed and Bob highlighted, then Bob's deletion with "yes" typed.
    QTimer::singleShot(0, this, [this] {
        QDialog* editor = visibleDialog(QStringLiteral("ItemListDialog"));
        if (editor == nullptr) {
            m_failed.append(QStringLiteral("no user editor"));
            return;
        }
        auto* name = editor->findChild<QLineEdit*>(QStringLiteral("c%1").arg(IDC_ITEM_EDIT));
        name->setText(QStringLiteral("Carol"));
        selectRow(editor, QStringLiteral("Bob"));
        save(grabScreen(), QStringLiteral("user-editor.png"));
        name->clear();
        QTimer::singleShot(0, this, [this] {
            QDialog* confirm = visibleDialog(QStringLiteral("ConfirmDialog"));
            if (confirm == nullptr) {
                m_failed.append(QStringLiteral("no question before deleting a user"));
                return;
            }
            confirm->findChild<QLineEdit*>(QStringLiteral("c%1").arg(IDC_CONFIRM_YES))->setText(QStringLiteral("yes"));
            QApplication::processEvents();
            save(grabScreen(), QStringLiteral("user-delete.png"));
            confirm->findChild<QPushButton*>(QStringLiteral("c1"))->click();
        });
        editor->findChild<QPushButton*>(QStringLiteral("c%1").arg(IDC_ITEM_DELETE))->click();
        editor->reject();
    });
    command(ID_MENU_MANAGEUSERS);
}

QDialog* ScreenshotTour::visibleDialog(const QString& name) const {
    for (QDialog* dialog : m_app->screen().findChildren<QDialog*>(name)) {
        if (dialog->isVisible()) {
            return dialog;
        }
    }
    return nullptr;
}

void ScreenshotTour::selectRow(QWidget* dialog, const QString& text) {
    auto* list = dialog->findChild<QListWidget*>(QStringLiteral("c%1").arg(IDC_ITEM_LIST));
    list->setCurrentItem(list->findItems(text, Qt::MatchExactly).value(0));
    QApplication::processEvents();
}

void ScreenshotTour::tourUtilities() {
    QTimer::singleShot(0, this, [this] {
        auto* dialog = m_app->screen().findChild<UtilitiesDialog*>(QStringLiteral("UtilitiesDialog"));
        if (dialog == nullptr) {
            m_failed.append(QStringLiteral("no Utilities dialog"));
            return;
        }
        auto button = [dialog](int id) { return dialog->findChild<QPushButton*>(QStringLiteral("c%1").arg(id)); };
        save(grabScreen(), QStringLiteral("utilities.png"));
        // A backup under way, as its status line and bar stand after three of the six copies.
        dialog->status(QStringLiteral("Backing up..."));
        dialog->progressRange(0, 100);
        dialog->progressPosition(60);
        QApplication::processEvents();
        save(grabScreen(), QStringLiteral("utilities-backup-running.png"));
        dialog->progressPosition(0);
        // The backup itself handles events while it runs: its message box is waited for.
        whenVisible(QStringLiteral("DeviceMessageBox"), [this](QDialog* box) {
            save(grabScreen(), QStringLiteral("utilities-backup-complete.png"));
            box->accept();
        });
        button(IDC_UTIL_BACKUP)->click();
        QApplication::processEvents();
        save(grabScreen(), QStringLiteral("utilities-after-backup.png"));
        // The restore question, answered No.
        whenVisible(QStringLiteral("DeviceMessageBox"), [this](QDialog* box) {
            save(grabScreen(), QStringLiteral("utilities-restore-question.png"));
            box->reject();
        });
        button(IDC_UTIL_RESTORE)->click();
        QApplication::processEvents();
        save(grabScreen(), QStringLiteral("utilities-cancelled.png"));
        // The delete confirmation with "yes" typed, then cancelled; "Operation cancelled" is closed unseen.
        whenVisible(QStringLiteral("ConfirmDialog"), [this](QDialog* confirm) {
            confirm->findChild<QLineEdit*>()->setText(QStringLiteral("yes"));
            save(grabScreen(), QStringLiteral("utilities-delete-confirm.png"));
            whenVisible(QStringLiteral("DeviceMessageBox"), [](QDialog* box) { box->reject(); });
            confirm->reject();
        });
        button(IDC_UTIL_DELETE)->click();
        dialog->accept();
    });
    command(ID_MENU_UTILITIES);
}

namespace {
// A week of FitNotes history, as its Spreadsheet Export writes it: the shared sample, moved to a
// week before the history the reports chart.
const char* const kFitNotesWeek =
    "Date,Exercise,Category,Weight (kgs),Reps,Distance,Distance Unit,Time,Comment\n"
    "2023-12-11,Flat Barbell Bench Press,Chest,80.0,8,,,,\n"
    "2023-12-11,Flat Barbell Bench Press,Chest,85.0,6,,,,\"felt strong, slight elbow pain\"\n"
    "2023-12-11,Flat Barbell Bench Press,Chest,85.0,5,,,,\n"
    "2023-12-11,Incline Dumbbell Press,Chest,30.0,10,,,,\n"
    "2023-12-11,Barbell Row,Back,70.0,8,,,,\n"
    "2023-12-11,Barbell Row,Back,70.0,8,,,,\n"
    "2023-12-11,Cable Crunch,Abs,40.0,15,,,,\n"
    "2023-12-13,Barbell Squat,Legs,100.0,5,,,,\n"
    "2023-12-13,Barbell Squat,Legs,100.0,5,,,,\n"
    "2023-12-13,Romanian Deadlift,Legs,90.0,8,,,,\n"
    "2023-12-13,Standing Calf Raise,Legs,60.0,12,,,,\n"
    "2023-12-13,Treadmill,Cardio,,,5.0,km,0:28:30,\n"
    "2023-12-15,Overhead Press,Shoulders,45.0,6,,,,\n"
    "2023-12-15,Dumbbell Curl,Biceps,14.0,10,,,,\n"
    "2023-12-15,Tricep Pushdown,Triceps,25.0,12,,,,\n"
    "2023-12-15,Cycling,Cardio,,,20.0,km,0:45:00,Easy ride\n";
} // namespace

void ScreenshotTour::tourImport() {
    QTemporaryDir desktop;
    const QString sample = desktop.filePath(QStringLiteral("fitnotes.csv"));
    QFile file(sample);
    // Version 1 data on the device, so that Import offers the choice.
    if (!file.open(QIODevice::WriteOnly) || file.write(kFitNotesWeek) < 0 ||
        !RecordDatabase::Create(QStringLiteral("KovUpperBody"), RecordDatabase::kDatabaseType, DayKey::kPropId)) {
        m_failed.append(QStringLiteral("cannot write the FitNotes sample"));
        return;
    }
    file.close();
    QTimer::singleShot(0, this, [this, sample] {
        auto* dialog = m_app->screen().findChild<UtilitiesDialog*>(QStringLiteral("UtilitiesDialog"));
        if (dialog == nullptr) {
            m_failed.append(QStringLiteral("no Utilities dialog"));
            return;
        }
        dialog->setFileChooser([this, sample](QWidget* parent) {
            QFileDialog files(parent, QStringLiteral("Import a history"), QFileInfo(sample).path(),
                              QStringLiteral("Histories (*.csv);;All files (*)"));
            files.setOption(QFileDialog::DontUseNativeDialog);
            files.setWindowFlag(Qt::Window);
            files.resize(520, 330);
            files.selectFile(sample);
            QTimer::singleShot(50, &files, [this, &files] {
                save(grabDesktop(&files), QStringLiteral("import-file-dialog.png"));
                static_cast<QDialog&>(files).accept();
            });
            return files.exec() == QDialog::Accepted ? files.selectedFiles() : QStringList();
        });
        // The choice, answered No (files); then, once the file is read, the report.
        whenVisible(QStringLiteral("DeviceMessageBox"), [this](QDialog* box) {
            save(grabScreen(), QStringLiteral("import-choice.png"));
            box->reject();
            QTimer::singleShot(0, this, [this] {
                whenVisible(QStringLiteral("DeviceMessageBox"), [this](QDialog* report) {
                    save(grabScreen(), QStringLiteral("import-report.png"));
                    report->accept();
                });
            });
        });
        dialog->findChild<QPushButton*>(QStringLiteral("c%1").arg(IDC_UTIL_IMPORT))->click();
        dialog->accept();
    });
    command(ID_MENU_UTILITIES);
    RecordDatabase version1;
    if (version1.Open(QStringLiteral("KovUpperBody"))) {
        version1.DeleteDatabase();
    }

    MainDialog& main = m_app->screen().mainDialog();
    main.SetDateOnAllPages(QDate(2023, 12, 11));
    auto picture = [this, &main](int page, const QString& name) {
        main.SelectPage(page);
        QApplication::processEvents();
        save(grabScreen(), name);
    };
    picture(1, QStringLiteral("import-upper-body.png"));
    picture(6, QStringLiteral("import-calendar.png"));
    auto* reports = static_cast<ReportsPage*>(main.page(5));
    main.SelectPage(5);
    for (const auto& [id, text] :
         {std::pair{IDC_REPORTS_MEASURE, "Workouts Per Week"}, std::pair{IDC_REPORTS_PERIOD, "Past Year"}}) {
        auto* combo = reports->findChild<QComboBox*>(QStringLiteral("c%1").arg(id));
        combo->setCurrentIndex(combo->findText(QLatin1String(text)));
    }
    picture(5, QStringLiteral("import-reports.png"));
    main.SetDateOnAllPages(Clock::now().date());
    main.SelectPage(0);
}

QImage ScreenshotTour::grabDesktop(QWidget* window) const {
    const QImage screen = grabScreen();
    const QPixmap dialog = window->grab();
    const QPoint at(screen.width() - 90, 40);
    QImage desktop(std::max(screen.width(), at.x() + dialog.width()) + 16,
                   std::max(screen.height(), at.y() + dialog.height()) + 16, QImage::Format_RGB32);
    desktop.fill(QColor(0x3b, 0x4a, 0x5c));
    QPainter painter(&desktop);
    painter.drawImage(8, 8, screen);
    painter.fillRect(QRect(at + QPoint(10, 10), dialog.size()), QColor(0, 0, 0, 90)); // its shadow
    painter.drawPixmap(at, dialog);
    return desktop;
}

void ScreenshotTour::whenVisible(const QString& dialogName, const std::function<void(QDialog*)>& act) {
    auto* poll = new QTimer(this);
    connect(poll, &QTimer::timeout, this, [this, poll, dialogName, act] {
        auto* dialog = m_app->screen().findChild<QDialog*>(dialogName);
        if (dialog != nullptr && dialog->isVisible()) {
            poll->stop();
            poll->deleteLater();
            act(dialog);
        }
    });
    poll->start(0);
}

void ScreenshotTour::tapStart(QWidget* target) {
    const QPointF at(4, target->height() / 2);
    QMouseEvent press(QEvent::MouseButtonPress, at, target->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, {});
    QMouseEvent release(QEvent::MouseButtonRelease, at, target->mapToGlobal(at), Qt::LeftButton, {}, {});
    QApplication::sendEvent(target, &press);
    QApplication::sendEvent(target, &release);
}

void ScreenshotTour::type(QWidget* target, const QString& text, int key) {
    for (const QChar c : text) {
        QKeyEvent press(QEvent::KeyPress, c.unicode(), {}, QString(c));
        QApplication::sendEvent(target, &press);
    }
    if (key != 0) {
        QKeyEvent press(QEvent::KeyPress, key, {});
        QApplication::sendEvent(target, &press);
    }
}

void ScreenshotTour::openContextMenu(QWidget* target, const QPoint& position, const QString& name) {
    QTimer::singleShot(0, this, [this, name] {
        save(grabScreen(), name);
        if (QWidget* popup = QApplication::activePopupWidget()) {
            popup->close();
        }
    });
    QContextMenuEvent hold(QContextMenuEvent::Mouse, position, target->mapToGlobal(position));
    QApplication::sendEvent(target, &hold);
}

void ScreenshotTour::whenUp(const QString& dialogName, const QString& name, const QString& typed) {
    QTimer::singleShot(0, this, [this, dialogName, name, typed] {
        auto* dialog = m_app->screen().findChild<QDialog*>(dialogName);
        if (dialog != nullptr && !typed.isEmpty()) {
            dialog->findChild<QLineEdit*>()->setText(typed);
        }
        save(grabScreen(), name);
        if (dialog != nullptr) {
            dialog->reject();
        }
    });
}

void ScreenshotTour::command(int id) {
    if (auto* action = m_app->screen().findChild<QAction*>(QStringLiteral("cmd%1").arg(id))) {
        action->trigger();
    } else {
        m_failed.append(QStringLiteral("no command %1 on the screen").arg(id));
    }
}

QImage ScreenshotTour::grabScreen() const {
    DeviceScreen& screen = m_app->screen();
    QImage image = screen.grab().toImage();
    // Pop-up menus are windows of their own: drawn onto the picture where they stand.
    QPainter painter(&image);
    for (QWidget* popup : QApplication::topLevelWidgets()) {
        if (popup->windowType() == Qt::Popup && popup->isVisible()) {
            painter.drawPixmap(screen.mapFromGlobal(popup->pos()), popup->grab());
        }
    }
    return image;
}

void ScreenshotTour::save(const QImage& image, const QString& name) {
    if (m_scale > 1 && !kScaledShots.contains(name)) {
        return;
    }
    const QString file =
        m_scale > 1 ? QString(name).replace(QStringLiteral(".png"), QStringLiteral("-x%1.png").arg(m_scale)) : name;
    const QString path = QDir(m_directory).filePath(file);
    if (image.save(path, "PNG")) {
        m_written.append(file);
    } else {
        m_failed.append(QStringLiteral("cannot write ") + path);
    }
}

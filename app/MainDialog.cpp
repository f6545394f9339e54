#include "MainDialog.h"

#include "AboutDialog.h"
#include "Bitmaps.h"
#include "CommandBar.h"
#include "ConfirmDialog.h"
#include "DeviceScreen.h"
#include "GoalsDialog.h"
#include "ItemListDialog.h"
#include "MessageBox.h"
#include "OptionsDialog.h"
#include "PhotoViewer.h"
#include "RegistryHelper.h"
#include "SaveFailure.h"
#include "Settings.h"
#include "StartupDialog.h"
#include "UserManager.h"
#include "UtilitiesDialog.h"
#include "resource.h"

#include <QTabBar>

namespace {
// The tab row's image list receives these bitmaps, in this order, after the one it is made from.
constexpr int kTabBitmaps[] = {IDB_TODAY, IDB_UPPERBODY, IDB_LOWERBODY, IDB_AEROBIC,
                               IDB_FOOD,  IDB_REPORTS,   IDB_CALENDAR};
constexpr int kTabToolBars[MainDialog::kTabCount] = {
    IDR_TODAY_TOOLBAR, IDR_UPPERBODY_TOOLBAR, IDR_LOWERBODY_TOOLBAR, 0, IDR_FOOD_TOOLBAR, 0, 0};

const QString kTabStyle =
    QStringLiteral("QTabBar { background: white; }"
                   "QTabBar::tab { background: #E4E4E4; border: 1px solid #808080; border-top: 1px solid #404040;"
                   "  margin-right: -1px; padding: 0px 6px 0px 7px; width: 15px; height: 19px; }"
                   "QTabBar::tab:selected { background: white; border-top: 1px solid white; }");

const QString kHelpText =
    QStringLiteral("Kovalin keeps your strength, aerobic and food log, one day at a time.\n\n"
                   "Tap the tabs at the bottom of the screen to move between Today, Upper Body, Lower Body, Aerobic, "
                   "Food, Reports and Calendar.  Every change is saved as you make it.\n\n"
                   "The user guide is online at http://www.kovalin.example.org/guide.");
} // namespace

MainDialog::MainDialog(PageFactory& factory, QWidget* commandBarSlot, QWidget* parent)
    : QWidget(parent), m_users(std::make_unique<UserManager>(*this)), m_icon(Bitmaps::icon(IDR_MAINFRAME)),
      m_factory(factory), m_commandBarSlot(commandBarSlot) {
    setObjectName(QStringLiteral("MainDialog"));
    m_tabControl = new QTabBar(this);
    m_tabControl->setObjectName(QStringLiteral("c%1").arg(IDC_TAB));
    m_tabControl->setShape(QTabBar::RoundedSouth);
    m_tabControl->setDrawBase(false);
    m_tabControl->setExpanding(false);
    m_tabControl->setUsesScrollButtons(false);
    m_tabControl->setFocusPolicy(Qt::NoFocus);
    m_tabControl->setStyleSheet(kTabStyle);
}

MainDialog::~MainDialog() = default;

// --- Start-up -------------------------------------------------------------------------------------

void MainDialog::initDialog() {
    SetCurrentUser(RegistryHelper::GetString(HKEY_CURRENT_USER, Settings::kKey, Settings::kLastUser));
    m_startupDialog = new StartupDialog([this](StartupDialog& progress) { setUp(progress); }, this);
    connect(m_startupDialog, &StartupDialog::finished, this, [this] {
        m_loaded = true;
        emit loaded();
    });
    m_startupDialog->start();
}

void MainDialog::setUp(StartupDialog& progress) {
    progress.stepIt();
    progress.setText(QStringLiteral("   Setting up Kovalin..."));
    window()->setWindowIcon(m_icon);

    progress.setText(QStringLiteral("   Creating toolbars..."));
    createCommandBar();

    buildTabs();
    progress.stepIt();

    progress.setText(QStringLiteral("   Loading reports..."));
    m_tabControl->setGeometry(0, kScreenHeight - kTabRowOffset, kScreenWidth, kTabRowHeight);
    createPage(m_reportsPage, PageKind::Reports);

    progress.setText(QStringLiteral("   Loading food log..."));
    createPage(m_foodPage, PageKind::Food);
    progress.stepIt();

    progress.setText(QStringLiteral("   Loading aerobic..."));
    createPage(m_aerobicPage, PageKind::Aerobic);
    progress.setText(QStringLiteral("   Loading lower body..."));
    createPage(m_lowerBodyPage, PageKind::LowerBody);
    progress.stepIt();

    progress.setText(QStringLiteral("   Loading upper body..."));
    createPage(m_upperBodyPage, PageKind::UpperBody);
    progress.setText(QStringLiteral("   Loading calendar..."));
    createPage(m_calendarPage, PageKind::Calendar);
    progress.setText(QStringLiteral("   Loading today items..."));
    createPage(m_todayPage, PageKind::Today);
    progress.stepIt();

    createPage(m_setGrid, PageKind::SetGrid);
    placePages();
    progress.stepIt();

    progress.setText(QStringLiteral("   Finished"));
}

void MainDialog::createCommandBar() {
    delete m_commandBar;
    m_commandBar = new CommandBar(m_commandBarSlot);
    m_commandBar->setGeometry(0, 0, m_commandBarSlot->width(), CommandBar::kHeight);
    connect(m_commandBar, &CommandBar::commandChosen, this, &MainDialog::onCommand);
    m_commandBar->insertMenuBar(IDR_MENUBAR);
    m_commandBar->addToolBar(IDR_TODAY_TOOLBAR);
    m_commandBar->show();
    // The loading steps run without returning to the event loop: paint the bar now, so that "Menu"
    // stands under the progress box while the pages load.
    m_commandBar->repaint();
}

void MainDialog::buildTabs() {
    m_tabImages = ImageList::fromBitmap(IDB_TODAY, kTabImageWidth);
    for (int bitmap : kTabBitmaps) {
        m_tabImages.addMasked(bitmap, Bitmaps::kMaskColour);
    }
    m_tabControl->setIconSize(QSize(kTabImageWidth, kTabImageWidth));
    // Tab 0 shows image 1 and tab n image n + 1: image 0 is the unmasked bitmap the list was made from.
    for (int tab = 0; tab < kTabCount; ++tab) {
        m_tabControl->addTab(QIcon(m_tabImages.image(tab + 1)), QString());
    }
    connect(m_tabControl, &QTabBar::currentChanged, this, &MainDialog::switchPage, Qt::UniqueConnection);
}

void MainDialog::createPage(std::unique_ptr<Page>& member, PageKind kind) {
    member = m_factory.create(kind, *this, this);
    member->hide();
    member->initDialog();
}

void MainDialog::placePages() {
    m_setGrid->hide();
    m_setGrid->setGeometry(0, 0, Page::kWidth, Page::kHeight);
    for (int tab = 0; tab < kTabCount; ++tab) {
        page(tab)->setGeometry(0, 0, Page::kWidth, Page::kHeight);
        page(tab)->setVisible(tab == 0);
    }
    m_tabControl->raise();
    if (m_startupDialog) {
        m_startupDialog->raise();
    }
}

// --- Users ----------------------------------------------------------------------------------------

void MainDialog::SetCurrentUser(const QString& name) {
    m_userName = name == QStringLiteral("Default") ? QString() : name;
    m_databaseNames = DatabaseCatalogue::userDatabaseNames(m_userName);
    if (const DWORD error =
            RegistryHelper::SetString(HKEY_CURRENT_USER, Settings::kKey, Settings::kLastUser, m_userName)) {
        MessageBoxW(this, SaveFailure::text(error), QStringLiteral("Kovalin"), MB_OK | MB_ICONERROR);
    }
}

QString MainDialog::databaseName(UserDatabase which) const {
    return m_databaseNames[static_cast<size_t>(which)];
}

QString MainDialog::GetUserName() const {
    return m_userName.isEmpty() ? QStringLiteral("Default") : m_userName;
}

// --- Pages ----------------------------------------------------------------------------------------

Page* MainDialog::page(int index) const {
    switch (index) {
    case 0:
        return m_todayPage.get();
    case 1:
        return m_upperBodyPage.get();
    case 2:
        return m_lowerBodyPage.get();
    case 3:
        return m_aerobicPage.get();
    case 4:
        return m_foodPage.get();
    case 5:
        return m_reportsPage.get();
    case 6:
        return m_calendarPage.get();
    default:
        return nullptr;
    }
}

int MainDialog::toolBarOfTab(int index) {
    return index >= 0 && index < kTabCount ? kTabToolBars[index] : 0;
}

void MainDialog::SelectPage(int index) {
    {
        // The switch below is the one the selection causes: no second one from the signal.
        const QSignalBlocker blocker(m_tabControl);
        m_tabControl->setCurrentIndex(index);
    }
    switchPage();
}

void MainDialog::switchPage() {
    if (!m_todayPage) {
        return;
    }
    saveAerobicIfVisible();
    int index = m_tabControl->currentIndex();
    if (index < 1 || index >= kTabCount) {
        index = 0;
    }
    for (int tab = 0; tab < kTabCount; ++tab) {
        page(tab)->setVisible(tab == index);
    }
    rebuildCommandBar(index);
    m_tabControl->raise();
}

void MainDialog::rebuildCommandBar(int index) {
    if (m_commandBar == nullptr) {
        return;
    }
    m_commandBar->clear();
    m_commandBar->insertMenuBar(IDR_MENUBAR);
    if (const int toolBar = toolBarOfTab(index)) {
        m_commandBar->addToolBar(toolBar);
    }
}

void MainDialog::saveAerobicIfVisible() {
    // The aerobic page is the only page saved on leaving it.
    if (m_aerobicPage && m_aerobicPage->isVisibleTo(this)) {
        m_aerobicPage->saveCurrent();
    }
}

Page* MainDialog::strengthPage(BodyRegion region) const {
    return region == BodyRegion::Upper ? m_upperBodyPage.get() : m_lowerBodyPage.get();
}

void MainDialog::forEachLogPage(void (Page::*hook)()) {
    for (Page* logPage : {m_upperBodyPage.get(), m_lowerBodyPage.get(), m_aerobicPage.get(), m_foodPage.get()}) {
        if (logPage != nullptr) {
            (logPage->*hook)();
        }
    }
}

void MainDialog::SetDateOnAllPages(const QDate& date) {
    for (Page* datedPage :
         {m_upperBodyPage.get(), m_lowerBodyPage.get(), m_aerobicPage.get(), m_foodPage.get(), m_calendarPage.get()}) {
        if (datedPage != nullptr) {
            datedPage->setDate(date);
        }
    }
}

void MainDialog::RefreshLogPages() {
    forEachLogPage(&Page::reload);
    RepaintToday();
}

void MainDialog::ReloadForUser() {
    // Every page shows the current user's data, the overview pages included.
    forEachLogPage(&Page::reload);
    for (Page* overview : {m_todayPage.get(), m_calendarPage.get(), m_reportsPage.get()}) {
        if (overview != nullptr) {
            overview->reload();
        }
    }
}

void MainDialog::RepaintToday() {
    if (m_todayPage) {
        m_todayPage->update();
    }
}

void MainDialog::setDateOnPage(int index, const QDate& date) {
    Page* target = index >= 1 && index <= 4 ? page(index) : nullptr;
    if (target != nullptr) {
        target->setDate(date);
    }
}

void MainDialog::ShowSetGrid(const QDate& date, int groupCode) {
    if (!m_setGrid) {
        return;
    }
    // The grid is left through its own save and cancel buttons: the tab row goes while it is up.
    m_tabControl->hide();
    showSetGridCommandBar();
    m_setGrid->openGroup(date, groupCode);
    m_setGrid->show();
    m_setGrid->raise();
}

void MainDialog::showSetGridCommandBar() {
    if (m_commandBar == nullptr) {
        return;
    }
    m_commandBar->clear();
    m_commandBar->insertMenuBar(IDR_MENUBAR);
    m_commandBar->addMenu(IDR_SETGRID_MENU);
    m_commandBar->addToolBar(IDR_SETGRID_TOOLBAR);
}

void MainDialog::forwardDateToStrengthPage(BodyRegion region, const QDate& date) {
    if (Page* target = strengthPage(region)) {
        target->setDate(date);
    }
}

void MainDialog::forwardTimesToStrengthPage(BodyRegion region, const WorkoutTimes& times) {
    if (Page* target = strengthPage(region)) {
        target->applyTimes(times);
    }
}

void MainDialog::returnFromSetGrid(int groupCode) {
    if (m_setGrid) {
        m_setGrid->hide();
    }
    m_tabControl->show();
    const BodyRegion region = groupCode < 1200 ? BodyRegion::Upper : BodyRegion::Lower;
    SelectPage(region == BodyRegion::Upper ? 1 : 2);
    if (Page* target = strengthPage(region)) {
        target->reload();
    }
}

ConfirmResult MainDialog::confirm(const ConfirmRequest& request) {
    ConfirmDialog dialog(this);
    return dialog.ask(request);
}

int MainDialog::runDialog(QDialog& dialog) {
    if (dialog.parentWidget() == nullptr) {
        dialog.setParent(this, dialog.windowFlags());
    }
    return DeviceScreen::runModal(dialog);
}

QString MainDialog::editItemList(const QString& databaseName) {
    ItemListDialog dialog(this);
    dialog.setDatabaseName(databaseName);
    dialog.setUserMode(m_users.get());
    dialog.edit();
    return dialog.nameHandedBack();
}

// --- Commands -------------------------------------------------------------------------------------

void MainDialog::onCommand(int command) {
    switch (command) {
    case ID_MENU_GOALS:
        showGoals();
        break;
    case ID_MENU_ABOUT:
        showAbout();
        break;
    case ID_MENU_PHOTO:
        showPhoto();
        break;
    case ID_MENU_OPTIONS:
        showOptions();
        break;
    case ID_MENU_UTILITIES:
        showUtilities();
        break;
    case ID_MENU_SWITCHUSER:
        m_users->switchUser();
        break;
    case ID_MENU_MANAGEUSERS:
        m_users->manageUsers();
        break;
    case ID_MENU_HELP:
        showHelp();
        break;
    case ID_MENU_EXIT:
        exitProgram();
        break;
    case ID_TODAY_REFRESH:
        RepaintToday();
        break;
    case ID_UPPER_CHEST:
    case ID_UPPER_SHOULDERS:
    case ID_UPPER_BACK:
    case ID_UPPER_TRICEPS:
    case ID_UPPER_BICEPS:
    case ID_UPPER_MISC:
        if (m_upperBodyPage) {
            m_upperBodyPage->handleCommand(command);
        }
        break;
    case ID_LOWER_QUADS:
    case ID_LOWER_HAMSTRINGS:
    case ID_LOWER_CALVES:
    case ID_LOWER_ABS:
    case ID_LOWER_MISC1:
    case ID_LOWER_MISC2:
        if (m_lowerBodyPage) {
            m_lowerBodyPage->handleCommand(command);
        }
        break;
    case ID_FOOD_ADDMEAL:
        if (m_foodPage) {
            m_foodPage->handleCommand(command);
        }
        break;
    case ID_GRID_SAVE:
    case ID_GRID_CANCEL:
    case ID_GRID_SELECTEXERCISE:
    case ID_GRID_EDITLIST:
    case ID_CLEAR_ALLROWS:
    case ID_CLEAR_CURRENTROW:
    case ID_CLEAR_ROWANDBELOW:
        if (m_setGrid && m_setGrid->isVisible()) {
            m_setGrid->handleCommand(command);
        }
        break;
    case ID_IGNORED_32774:
    case ID_IGNORED_32847:
    default:
        break;
    }
}

void MainDialog::exitProgram() {
    saveAerobicIfVisible();
    endDialog();
}

void MainDialog::endDialog() {
    if (!m_ended) {
        m_ended = true;
        emit ended();
    }
}

void MainDialog::showGoals() {
    GoalsDialog dialog(this);
    if (dialog.run() == QDialog::Accepted) {
        RepaintToday();
    }
}

void MainDialog::showAbout() {
    AboutDialog dialog(this);
    dialog.run();
}

void MainDialog::showPhoto() {
    PhotoViewer::show(this);
}

void MainDialog::showOptions() {
    OptionsDialog dialog(this);
    dialog.run();
}

void MainDialog::showUtilities() {
    UtilitiesDialog dialog(*this);
    dialog.run();
    // After Delete the logs are gone: the program ends without saving a page into them.
    if (dialog.endsProgram()) {
        endDialog();
    }
}

void MainDialog::showHelp() {
    MessageBoxW(this, kHelpText, QStringLiteral("Help"), MB_OK | MB_ICONINFORMATION);
}

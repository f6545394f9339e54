#pragma once
// The main dialog (dialog 102): owns every page, the current user and the six database names, the
// command bar and the tab row, and is the only path between pages. Start-up runs from its
// initialisation through the progress box; afterwards a tab change only shows and hides pages and
// rebuilds the command bar.

#include "DatabaseCatalogue.h"
#include "ImageList.h"
#include "PageFactory.h"
#include "PageHost.h"

#include <QIcon>
#include <QPointer>
#include <QWidget>

#include <array>
#include <memory>

class CommandBar;
class QTabBar;
class StartupDialog;
class UserManager;

class MainDialog : public QWidget, public PageHost {
    Q_OBJECT
public:
    static constexpr int kTabCount = 7;
    static constexpr int kScreenWidth = 240;
    static constexpr int kScreenHeight = 320;
    // The tab row sits this far above the bottom of the screen, 21 pixels high.
    static constexpr int kTabRowOffset = 73;
    static constexpr int kTabRowHeight = 21;
    static constexpr int kTabImageWidth = 15;

    // commandBarSlot is where the command bar is made (the bottom of the screen).
    MainDialog(PageFactory& factory, QWidget* commandBarSlot, QWidget* parent);
    ~MainDialog() override;

    // Initialisation: makes the last user current and puts up the start-up progress box, whose
    // timer then loads everything.
    void initDialog();
    bool isLoaded() const { return m_loaded; }

    // Users: makes name current ("Default" is held as the empty name), builds the six database
    // names and writes LastUser. Reloads nothing.
    void SetCurrentUser(const QString& name);
    // The current user as held: empty for the Default user.
    QString currentUserName() const { return m_userName; }
    QString databaseName(UserDatabase which) const;

    // PageHost.
    QString GetUserName() const override;
    QString upperBodyADatabaseName() const override { return databaseName(UserDatabase::UpperA); }
    QString upperBodyBDatabaseName() const override { return databaseName(UserDatabase::UpperB); }
    QString lowerBodyADatabaseName() const override { return databaseName(UserDatabase::LowerA); }
    QString lowerBodyBDatabaseName() const override { return databaseName(UserDatabase::LowerB); }
    QString aerobicDatabaseName() const override { return databaseName(UserDatabase::Aerobic); }
    QString foodDatabaseName() const override { return databaseName(UserDatabase::Food); }
    void SelectPage(int index) override;
    void SetDateOnAllPages(const QDate& date) override;
    void RefreshLogPages() override;
    void ReloadForUser() override;
    void RepaintToday() override;
    void setDateOnPage(int index, const QDate& date) override;
    void showGoals() override;
    void ShowSetGrid(const QDate& date, int groupCode) override;
    void forwardDateToStrengthPage(BodyRegion region, const QDate& date) override;
    void forwardTimesToStrengthPage(BodyRegion region, const WorkoutTimes& times) override;
    void returnFromSetGrid(int groupCode) override;
    ConfirmResult confirm(const ConfirmRequest& request) override;
    int runDialog(QDialog& dialog) override;
    QString editItemList(const QString& databaseName) override;

    // The page of tab index (nullptr before it is loaded).
    Page* page(int index) const;
    Page* setGrid() const { return m_setGrid.get(); }
    QTabBar* tabControl() const { return m_tabControl; }
    CommandBar* commandBar() const { return m_commandBar; }
    const ImageList& tabImages() const { return m_tabImages; }
    // The tool bar tab index shows (0 for none).
    static int toolBarOfTab(int index);

    // A command from the menu or a tool bar.
    void onCommand(int command);
    // Exit: saves the aerobic page when it is shown, then ends the dialog.
    void exitProgram();
    bool hasEnded() const { return m_ended; }
    // Ends the dialog as it stands, saving nothing: the program stops.
    void endDialog();

signals:
    // The progress box has finished: the Today page is shown.
    void loaded();
    // The dialog has ended: the program stops.
    void ended();

private:
    void setUp(StartupDialog& progress);
    void createCommandBar();
    void buildTabs();
    void createPage(std::unique_ptr<Page>& member, PageKind kind);
    void placePages();
    void switchPage();
    void rebuildCommandBar(int index);
    void showSetGridCommandBar();
    void saveAerobicIfVisible();
    Page* strengthPage(BodyRegion region) const;
    void forEachLogPage(void (Page::*hook)());
    void showAbout();
    void showPhoto();
    void showOptions();
    void showUtilities();
    void showHelp();

    // The members, in the order the program keeps them; the pages go in reverse order at exit.
    QString m_userName;
    std::array<QString, kUserDatabaseCount> m_databaseNames;
    CommandBar* m_commandBar = nullptr;
    std::unique_ptr<Page> m_upperBodyPage;
    std::unique_ptr<Page> m_todayPage;
    std::unique_ptr<Page> m_lowerBodyPage;
    std::unique_ptr<Page> m_aerobicPage;
    std::unique_ptr<Page> m_foodPage;
    std::unique_ptr<Page> m_reportsPage;
    std::unique_ptr<Page> m_calendarPage;
    ImageList m_tabImages;
    std::unique_ptr<Page> m_setGrid;
    QPointer<StartupDialog> m_startupDialog;
    std::unique_ptr<UserManager> m_users;
    QTabBar* m_tabControl = nullptr;
    QIcon m_icon;

    PageFactory& m_factory;
    QWidget* m_commandBarSlot;
    bool m_loaded = false;
    bool m_ended = false;
};

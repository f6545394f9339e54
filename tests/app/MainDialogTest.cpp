#include "CommandBar.h"
#include "NavigationBar.h"
#include "Settings.h"
#include "ShellTestSupport.h"
#include "StartupDialog.h"

#include <QAction>
#include <QMenu>
#include <QPushButton>
#include <QTabBar>
#include <QTest>

#include <utility>

namespace {
using Texts = std::vector<std::pair<QString, int>>;

const std::vector<int> kUpperTools = {32793, 32794, 32795, 32796, 32797, 32837};
const std::vector<int> kLowerTools = {32816, 32817, 32819, 32820, 32838, 32839};

QStringList calls(const QStringList& log, const QString& prefix = {}) {
    QStringList found;
    for (const QString& line : log) {
        if (!line.endsWith(QStringLiteral(" init")) && !line.endsWith(QStringLiteral(" created")) &&
            line.startsWith(prefix)) {
            found.append(line);
        }
    }
    return found;
}

void clickTab(MainDialog& main, int index) {
    QTabBar* tabs = main.tabControl();
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(index).center());
}
} // namespace

class MainDialogTest : public ShellTest {};

TEST_F(MainDialogTest, FirstStartShowsTheProgressTextsInOrderAndOpensOnTodayForTheDefaultUser) {
    // A device with no registry key at all: the release notes come up and are cancelled.
    whenShown(QStringLiteral("ConfirmDialog"), [](QWidget* dialog) { dialog->findChild<QPushButton*>("c2")->click(); });
    m_screen = std::make_unique<DeviceScreen>(m_factory);
    m_screen->show();
    m_screen->start();

    auto* progress = m_screen->findChild<StartupDialog*>(QStringLiteral("StartupDialog"));
    ASSERT_NE(progress, nullptr);
    Texts shown;
    QObject::connect(progress, &StartupDialog::textShown,
                     [&](const QString& text, int position) { shown.emplace_back(text, position); });
    ASSERT_TRUE(waitUntil([this] { return main().isLoaded(); }));

    const Texts expected = {{"   Setting up Kovalin...", 1},  {"   Creating toolbars...", 1},
                            {"   Loading reports...", 2},     {"   Loading food log...", 2},
                            {"   Loading aerobic...", 3},     {"   Loading lower body...", 3},
                            {"   Loading upper body...", 4},  {"   Loading calendar...", 4},
                            {"   Loading today items...", 4}, {"   Finished", 6}};
    EXPECT_EQ(shown, expected);
    EXPECT_EQ(m_screen->findChild<StartupDialog*>(), nullptr);

    EXPECT_EQ(main().GetUserName(), QStringLiteral("Default"));
    int type = 0;
    EXPECT_EQ(stored(Settings::kLastUser, &type), QVariant(QString()));
    EXPECT_EQ(type, 1);

    for (int tab = 0; tab < MainDialog::kTabCount; ++tab) {
        EXPECT_EQ(main().page(tab)->isVisible(), tab == 0) << tab;
    }
}

TEST_F(MainDialogTest, TheLastUserIsMadeCurrentAndWrittenBack) {
    setText(Settings::kLastUser, QStringLiteral("Ann"));
    start();
    EXPECT_EQ(main().GetUserName(), QStringLiteral("Ann"));
    EXPECT_EQ(main().upperBodyADatabaseName(), QStringLiteral("Kov2AUpperBodyAnn"));

    // "Default" is held, and stored, as the empty name; other names are case-sensitive.
    main().SetCurrentUser(QStringLiteral("Default"));
    EXPECT_EQ(main().currentUserName(), QString());
    EXPECT_EQ(main().lowerBodyBDatabaseName(), QStringLiteral("Kov2BLowerBody"));
    EXPECT_EQ(stored(Settings::kLastUser), QVariant(QString()));
    main().SetCurrentUser(QStringLiteral("default"));
    EXPECT_EQ(main().lowerBodyBDatabaseName(), QStringLiteral("Kov2BLowerBodydefault"));
    EXPECT_EQ(stored(Settings::kLastUser), QVariant(QStringLiteral("default")));
}

TEST_F(MainDialogTest, SwitchingTabsShowsOnePageRebuildsTheToolBarKeepsTheMenuAndSavesOnlyTheAerobicPageOnLeaving) {
    start();
    const QStringList menu = {"Goals=cmd32829",        "About=cmd32831",     "View Photo=cmd32834",
                              "Options=cmd32835",      "Utilities=cmd32836", "Switch User=cmd32863",
                              "Manage Users=cmd32862", "Help=cmd32861",      "Exit=cmd32833"};
    // The tab tapped, the tool-bar commands it brings, and how often the aerobic page has been saved by then.
    const struct {
        int tab;
        std::vector<int> tools;
        int saves;
    } steps[] = {{3, {}, 0}, {4, {32828}, 1}, {1, kUpperTools, 1}, {2, kLowerTools, 1},
                 {5, {}, 1}, {6, {}, 1},      {4, {32828}, 1},     {0, {32832}, 1}};
    for (const auto& step : steps) {
        clickTab(main(), step.tab);
        for (int tab = 0; tab < MainDialog::kTabCount; ++tab) {
            EXPECT_EQ(main().page(tab)->isVisible(), tab == step.tab) << step.tab << " shows " << tab;
        }
        EXPECT_EQ(main().commandBar()->buttonCommands(), step.tools) << step.tab;
        EXPECT_EQ(calls(m_factory.log), QStringList(step.saves, QStringLiteral("aerobic save"))) << step.tab;
        // Every page keeps the one menu of nine commands.
        QStringList items;
        for (QAction* action : main().commandBar()->menu()->actions()) {
            items.append(action->text() + QLatin1Char('=') + action->objectName());
        }
        EXPECT_EQ(items, menu) << step.tab;
    }
    EXPECT_EQ(main().children().constLast(), main().tabControl());

    // SelectPage switches once: arriving saves nothing, leaving saves once.
    main().SelectPage(3);
    main().SelectPage(3);
    main().SelectPage(0);
    EXPECT_EQ(calls(m_factory.log), QStringList(3, QStringLiteral("aerobic save")));
    EXPECT_TRUE(main().page(0)->isVisible());
}

TEST_F(MainDialogTest, ToolBarCommandsGoToTheirPagesAndTheIgnoredOnesDoNothing) {
    start();
    main().SelectPage(1);
    trigger(32795);
    main().SelectPage(2);
    trigger(32839);
    main().SelectPage(4);
    trigger(32828);
    // A page's commands reach it even when another page is shown.
    main().onCommand(32837);
    main().onCommand(32774);
    main().onCommand(32847);
    EXPECT_EQ(calls(m_factory.log),
              QStringList({"upper command 32795", "lower command 32839", "food command 32828", "upper command 32837"}));
    EXPECT_TRUE(m_boxes.texts().isEmpty());
    EXPECT_FALSE(main().hasEnded());
    // The Today page's refresh button redraws it: the Today page's own test.
}

TEST_F(MainDialogTest, ExitSavesTheAerobicPageWhenItIsShownAndEndsTheProgramWithoutAPrompt) {
    // From the upper-body page, the aerobic page and the set grid (-1).
    const struct {
        int page;
        QStringList saved;
    } cases[] = {{1, {}}, {3, {"aerobic save"}}, {-1, {}}};
    for (const auto& c : cases) {
        m_screen.reset();
        m_factory.log.clear();
        start();
        if (c.page >= 0) {
            main().SelectPage(c.page);
        } else {
            main().ShowSetGrid(QDate(2024, 3, 14), 1101);
        }
        trigger(32833);
        EXPECT_TRUE(main().hasEnded()) << c.page;
        EXPECT_FALSE(m_screen->isVisible()) << c.page;
        EXPECT_EQ(calls(m_factory.log, QStringLiteral("aerobic")), c.saved) << c.page;
    }
    EXPECT_TRUE(m_boxes.texts().isEmpty());
}

// What each page asks of the others through the main window (the date with CkDate, the times with
// AsOne, the set grid, the reloads after a restore or a change of user) is each page's own test.
TEST_F(MainDialogTest, EveryDatedPageTakesTheDateAndTheSetGridReturnsToThePageOfItsRegion) {
    start();
    const QDate day(2024, 3, 14);
    main().SetDateOnAllPages(day);
    EXPECT_EQ(calls(m_factory.log),
              QStringList({"upper setDate 2024-03-14", "lower setDate 2024-03-14", "aerobic setDate 2024-03-14",
                           "food setDate 2024-03-14", "calendar setDate 2024-03-14"}));
    main().ShowSetGrid(day, 1205);
    EXPECT_TRUE(main().setGrid()->isVisible());
    main().returnFromSetGrid(1205);
    EXPECT_FALSE(main().setGrid()->isVisible());
    EXPECT_EQ(main().tabControl()->currentIndex(), 2);
}

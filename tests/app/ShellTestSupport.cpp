#include "ShellTestSupport.h"

#include "Clock.h"
#include "DeviceFonts.h"
#include "KovalinApp.h"
#include "RegistryHelper.h"
#include "Settings.h"
#include "SqlReader.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace {
// One application object for the whole test program, with the program's fonts and colours.
class QtEnvironment : public ::testing::Environment {
public:
    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qunsetenv("QT_SCALE_FACTOR");
        static int argc = 1;
        static char name[] = "app_tests";
        static char* argv[] = {name, nullptr};
        m_application = std::make_unique<QApplication>(argc, argv);
        QApplication::setQuitOnLastWindowClosed(false);
        DeviceFonts::install();
        KovalinApp::setDialogColours();
    }
    void TearDown() override { m_application.reset(); }

private:
    std::unique_ptr<QApplication> m_application;
};

[[maybe_unused]] ::testing::Environment* const environment = ::testing::AddGlobalTestEnvironment(new QtEnvironment);

const QString kStoredKey = QStringLiteral("HKEY_CURRENT_USER\\Software\\Orn\\Kovalin");

// The parent of every poll still waiting for its widget; a test's end removes what is left.
QObject& pendingPolls() {
    static QObject polls;
    return polls;
}
} // namespace

RecordingPage::RecordingPage(PageHost& host, int dialogId, const QString& className, QString name, QStringList& log,
                             QWidget* parent)
    : Page(host, dialogId, className, parent), m_name(std::move(name)), m_log(log) {}

void RecordingPage::setDate(const QDate& date) {
    m_log.append(m_name + QStringLiteral(" setDate ") + date.toString(Qt::ISODate));
}

bool RecordingPage::handleCommand(int command) {
    m_log.append(m_name + QStringLiteral(" command %1").arg(command));
    return true;
}

void RecordingPage::applyTimes(const WorkoutTimes& times) {
    m_log.append(m_name + QStringLiteral(" applyTimes ") + times.elapsed.toString(QStringLiteral("HH:mm:ss")));
}

void RecordingPage::openGroup(const QDate& date, int groupCode) {
    m_log.append(m_name + QStringLiteral(" openGroup %1 %2").arg(date.toString(Qt::ISODate)).arg(groupCode));
}

std::unique_ptr<Page> RecordingPageFactory::create(PageKind kind, PageHost& host, QWidget* parent) {
    struct Made {
        int id;
        const char* className;
        const char* name;
    };
    static const Made made[] = {{132, "StrengthLogPage", "upper"}, {133, "TodayPage", "today"},
                                {135, "StrengthLogPage", "lower"}, {136, "AerobicLogPage", "aerobic"},
                                {137, "FoodLogPage", "food"},      {138, "ReportsPage", "reports"},
                                {182, "CalendarPage", "calendar"}, {143, "SetGrid", "grid"}};
    const Made& page = made[static_cast<int>(kind)];
    log.append(QString::fromLatin1(page.name) + QStringLiteral(" created"));
    return std::make_unique<RecordingPage>(host, page.id, QString::fromLatin1(page.className),
                                           QString::fromLatin1(page.name), log, parent);
}

void whenShown(const QString& name, std::function<void(QWidget*)> act) {
    auto* poll = new QTimer(&pendingPolls());
    poll->setInterval(0);
    QObject::connect(poll, &QTimer::timeout, poll, [poll, name, act] {
        for (QWidget* widget : QApplication::allWidgets()) {
            if (widget->objectName() == name && widget->isVisible()) {
                poll->stop();
                poll->deleteLater();
                act(widget);
                return;
            }
        }
    });
    poll->start();
}

QStringList listRows(QWidget* dialog) {
    const auto* list = dialog->findChild<QListWidget*>(QStringLiteral("c1028"));
    QStringList rows;
    for (int row = 0; row < list->count(); ++row) {
        rows << list->item(row)->text();
    }
    return rows;
}

void press(QWidget* dialog, const char* name, const QString& row) {
    if (!row.isEmpty()) {
        auto* list = dialog->findChild<QListWidget*>(QStringLiteral("c1028"));
        list->setCurrentItem(list->findItems(row, Qt::MatchExactly).value(0));
    }
    dialog->findChild<QPushButton*>(QString::fromLatin1(name))->click();
}

void typeText(QWidget* dialog, const char* name, const QString& text) {
    auto* edit = dialog->findChild<QLineEdit*>(QString::fromLatin1(name));
    edit->clear();
    QTest::keyClicks(edit, text);
}

void answerConfirm(const char* button, QString* asked, const QString& typed) {
    whenShown(QStringLiteral("ConfirmDialog"), [=](QWidget* dialog) {
        if (asked != nullptr) {
            *asked = dialog->findChild<QLabel*>(QStringLiteral("c1310"))->text();
        }
        if (!typed.isNull()) {
            typeText(dialog, "c1312", typed);
        }
        press(dialog, button);
    });
}

bool waitUntil(const std::function<bool()>& condition, int timeoutMs) {
    return QTest::qWaitFor(condition, timeoutMs);
}

ShellTest::ShellTest() = default;

ShellTest::~ShellTest() {
    qDeleteAll(pendingPolls().children());
    m_screen.reset();
}

MainDialog& ShellTest::start(bool notices, PageFactory* factory) {
    if (!notices) {
        setNumber(Settings::kDontShow, 1);
    }
    m_screen = std::make_unique<DeviceScreen>(factory != nullptr ? *factory : m_factory);
    m_screen->show();
    m_screen->start();
    EXPECT_TRUE(waitUntil([this] { return main().isLoaded(); }));
    return main();
}

QVariant ShellTest::stored(const QString& name, int* type) const {
    SqlReader sql(m_device.paths().objectStore());
    if (type != nullptr) {
        *type = sql.value(QStringLiteral("SELECT type FROM registry WHERE key = ? AND name = ?"), {kStoredKey, name})
                    .toInt();
    }
    return sql.value(QStringLiteral("SELECT value FROM registry WHERE key = ? AND name = ?"), {kStoredKey, name});
}

void ShellTest::setNumber(const QString& name, DWORD value) const {
    RegistryHelper::SetDword(HKEY_CURRENT_USER, Settings::kKey, name, value);
}

void ShellTest::setText(const QString& name, const QString& value) const {
    RegistryHelper::SetString(HKEY_CURRENT_USER, Settings::kKey, name, value);
}

void ShellTest::trigger(int command) {
    auto* action = m_screen->findChild<QAction*>(QStringLiteral("cmd%1").arg(command));
    ASSERT_NE(action, nullptr) << "no command " << command << " on the screen";
    action->trigger();
}

void ShellTest::holdAndChoose(QWidget* target, const QPoint& position, int command, QStringList* shown) {
    bool done = false;
    QTimer poll;
    poll.setInterval(0);
    QObject::connect(&poll, &QTimer::timeout, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr || done) {
            return;
        }
        done = true;
        if (shown != nullptr) {
            for (QAction* action : menu->actions()) {
                *shown << action->text();
            }
        }
        QAction* action = menu->findChild<QAction*>(QStringLiteral("cmd%1").arg(command));
        if (action == nullptr) {
            menu->close();
        } else {
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
        }
    });
    poll.start();
    QTest::mousePress(target, Qt::LeftButton, {}, position);
    ASSERT_TRUE(waitUntil([&done] { return done; }));
    poll.stop();
    QTest::mouseRelease(target, Qt::LeftButton, {}, position);
}

void ShellTest::typeInto(QLineEdit* edit, const QString& keys, bool replace, Qt::Key last) {
    QTest::mouseClick(edit, Qt::LeftButton, {}, QPoint(4, edit->height() / 2));
    if (replace) {
        QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    }
    QTest::keyClicks(edit, keys);
    QTest::keyClick(edit, last);
}

QStringList ShellTest::rowTexts(const QTreeWidget* list) {
    QStringList texts;
    for (int row = 0; row < list->topLevelItemCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < list->columnCount(); ++column) {
            cells << list->topLevelItem(row)->text(column);
        }
        texts << cells.join('|');
    }
    return texts;
}

QStringList ShellTest::itemTexts(const QComboBox* box) {
    QStringList texts;
    for (int item = 0; item < box->count(); ++item) {
        texts << box->itemText(item);
    }
    return texts;
}

ScreenTest::ScreenTest() {
    Clock::setFixed(kNow);
}

ScreenTest::~ScreenTest() {
    Clock::setFixed(std::nullopt);
}

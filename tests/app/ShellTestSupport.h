#pragma once
// What the shell's tests share: the application object, pages that record what the main window
// asks of them, a started device screen on a fresh device, a driver for modal dialogs, and the
// registry read back from the store with plain SQL.

#include "DeviceScreen.h"
#include "MainDialog.h"
#include "PageFactory.h"
#include "ScriptedMessageBoxes.h"
#include "ShellPageFactory.h"
#include "StoredDays.h"
#include "TestDevice.h"

#include <QStringList>
#include <QTimer>
#include <QVariant>

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTreeWidget>

#include <functional>
#include <memory>
#include <ostream>

// Failures print texts as text.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

// A page that does nothing but write each call into the shared log as "<name> <call> [argument]".
class RecordingPage : public Page {
public:
    RecordingPage(PageHost& host, int dialogId, const QString& className, QString name, QStringList& log,
                  QWidget* parent);

    void initDialog() override { m_log.append(m_name + QStringLiteral(" init")); }
    void setDate(const QDate& date) override;
    void reload() override { m_log.append(m_name + QStringLiteral(" reload")); }
    void saveCurrent() override { m_log.append(m_name + QStringLiteral(" save")); }
    bool handleCommand(int command) override;
    void applyTimes(const WorkoutTimes& times) override;
    void openGroup(const QDate& date, int groupCode) override;

private:
    QString m_name;
    QStringList& m_log;
};

// Makes RecordingPages named "upper", "today", "lower", "aerobic", "food", "reports", "calendar"
// and "grid", and logs "<name> created" for each.
class RecordingPageFactory : public PageFactory {
public:
    std::unique_ptr<Page> create(PageKind kind, PageHost& host, QWidget* parent) override;
    QStringList log;
};

// Acts on the widget of type T named name (anywhere in the application) once it is shown: polls
// with a zero-delay timer, so that a modal dialog can be answered from inside its own event loop.
void whenShown(const QString& name, std::function<void(QWidget*)> act);

// The rows of the dialog's list of names (c1028).
QStringList listRows(QWidget* dialog);
// Selects the row that reads row in that list (when row is not empty) and presses the button named name:
// "c1" OK, "c2" Cancel, "c1002" Add, "c1030" Delete.
void press(QWidget* dialog, const char* name, const QString& row = {});
// Clears the line edit named name and types text into it.
void typeText(QWidget* dialog, const char* name, const QString& text);
// Answers the next confirmation: text typed into its 'yes' box (unless null), then button; the
// question it asked goes to asked (when given).
void answerConfirm(const char* button, QString* asked = nullptr, const QString& typed = {});

// Waits until condition holds (events are processed meanwhile); false after timeoutMs.
bool waitUntil(const std::function<bool()>& condition, int timeoutMs = 5000);

class ShellTest : public ::testing::Test {
protected:
    ShellTest();
    ~ShellTest() override;

    // A screen of the recording pages (or of factory), started; waits until the loading has ended.
    // With notices false the start-up notices are switched off first (DontShow = 1).
    MainDialog& start(bool notices = false, PageFactory* factory = nullptr);
    MainDialog& main() { return m_screen->mainDialog(); }

    // A registry value of the program's key as stored in the object store: its value, or an invalid
    // QVariant when it does not exist; type receives its registry type.
    QVariant stored(const QString& name, int* type = nullptr) const;
    void setNumber(const QString& name, DWORD value) const;
    void setText(const QString& name, const QString& value) const;
    // Triggers the menu or tool-bar command's QAction, failing when there is none on the screen.
    void trigger(int command);
    // Holds the stylus on target at position until its context menu is up, records the menu's
    // items in shown (when given) and chooses the item named command (nothing when 0).
    void holdAndChoose(QWidget* target, const QPoint& position, int command, QStringList* shown = nullptr);

    // The control named "c<id>" on parent, failing the test when there is none.
    template <typename T> static T* control(const QWidget& parent, int id) {
        auto* found = parent.findChild<T*>(QStringLiteral("c%1").arg(id));
        EXPECT_NE(found, nullptr) << "no control " << id;
        return found;
    }
    // Taps the field's start, selects what it holds (when replace), types keys and presses last, as a person does.
    static void typeInto(QLineEdit* edit, const QString& keys, bool replace = false, Qt::Key last = Qt::Key_Return);
    // A list's rows, each as its texts joined by '|'.
    static QStringList rowTexts(const QTreeWidget* list);
    // The texts of a drop-down's items, in order.
    static QStringList itemTexts(const QComboBox* box);

    TestDevice m_device;
    ScriptedMessageBoxes m_boxes;
    RecordingPageFactory m_factory;
    std::unique_ptr<DeviceScreen> m_screen;
};

// The program's own pages on a fresh device, with the clock standing at kNow.
class ScreenTest : public ShellTest {
protected:
    static inline const QDate kToday{2024, 3, 14};
    static inline const QDateTime kNow{kToday, QTime(9, 41)};
    // Property types as the logs store them.
    static constexpr int kI2 = 2, kUI2 = 18, kR8 = 5, kText = 31, kFileTime = 64;

    ScreenTest();
    ~ScreenTest() override;

    // Starts the program on the first call, then shows the page of tab.
    template <typename P> P& showPage(int tab) {
        if (!m_screen) {
            start(false, &m_pages);
        }
        main().SelectPage(tab);
        return pageOf<P>(tab);
    }
    template <typename P> P& pageOf(int tab) const { return *static_cast<P*>(m_screen->mainDialog().page(tab)); }
    StoredDays storedDays() const { return StoredDays(m_device.paths().objectStore()); }

    ShellPageFactory m_pages;
};

#pragma once
// The Pocket PC screen, 240 x 320 device pixels: the navigation bar (rows 0-25), the main dialog's
// client area (rows 26-293) and the command bar (rows 294-319) with the input-panel button.
// Modal dialogs are laid over the client area, as on the device, and run a local event loop while
// the navigation bar shows their title and the command bar is put away.

#include <QPointer>
#include <QWidget>

#include <vector>

class InputPanel;
class MainDialog;
class NavigationBar;
class PageFactory;
class QDialog;
class QToolButton;

class DeviceScreen : public QWidget {
    Q_OBJECT
public:
    static constexpr int kWidth = 240;
    static constexpr int kHeight = 320;
    static constexpr int kClientTop = 26;
    static constexpr int kClientHeight = 268;
    static constexpr int kCommandBarTop = 294;

    // Where a modal dialog goes: over the client area; over everything below the navigation bar
    // (the command bar too); or as a box centred on the client area, which stays in view.
    enum class Placement { ClientArea, BelowNavigationBar, Centred };

    explicit DeviceScreen(PageFactory& factory, QWidget* parent = nullptr);
    ~DeviceScreen() override;

    MainDialog& mainDialog() const { return *m_mainDialog; }
    NavigationBar& navigationBar() const { return *m_navigationBar; }
    QWidget* clientArea() const { return m_clientArea; }
    // Where the main dialog puts its command bar.
    QWidget* commandBarSlot() const { return m_commandBarSlot; }
    InputPanel& inputPanel() const { return *m_inputPanel; }

    // Starts the program on this screen: the main dialog's initialisation, which puts up the
    // start-up progress box; the pages load on its timer.
    void start();

    // Runs dialog modally on this screen and returns its result.
    int execModal(QDialog& dialog, Placement placement);
    // Runs dialog modally on the screen its parent is shown on; an ordinary modal dialog when its
    // parent is on no screen.
    static int runModal(QDialog& dialog, Placement placement = Placement::ClientArea);
    // The screen widget is on, or nullptr.
    static DeviceScreen* of(const QObject* object);
    // The screen most recently made that still exists, or nullptr.
    static DeviceScreen* current();
    // The dialogs running modally on this screen, innermost last.
    const std::vector<QPointer<QDialog>>& modalDialogs() const { return m_modal; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void toggleInputPanel();
    void placeDialog(QDialog& dialog, Placement placement, QWidget*& cover);
    void restoreAfterModal(QWidget* previousFocus);

    NavigationBar* m_navigationBar = nullptr;
    QWidget* m_clientArea = nullptr;
    QWidget* m_commandBarSlot = nullptr;
    QToolButton* m_inputPanelButton = nullptr;
    InputPanel* m_inputPanel = nullptr;
    MainDialog* m_mainDialog = nullptr;
    std::vector<QPointer<QDialog>> m_modal;
};

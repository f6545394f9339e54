#include "DeviceScreen.h"

#include "Bitmaps.h"
#include "CommandBar.h"
#include "InputPanel.h"
#include "MainDialog.h"
#include "NavigationBar.h"
#include "resource.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QLinearGradient>
#include <QPainter>
#include <QToolButton>

namespace {
constexpr int kInputPanelButtonWidth = 30;
constexpr int kMessageBoxWidth = 224;

// The focus goes to the dialog's first control that takes it, as when a dialog opens on the device.
void focusFirstControl(QDialog& dialog) {
    for (QWidget* w = dialog.nextInFocusChain(); w != &dialog; w = w->nextInFocusChain()) {
        if (dialog.isAncestorOf(w) && w->isVisibleTo(&dialog) && w->isEnabled() && (w->focusPolicy() & Qt::TabFocus)) {
            w->setFocus(Qt::OtherFocusReason);
            return;
        }
    }
    dialog.setFocus(Qt::OtherFocusReason);
}

QPointer<DeviceScreen>& currentScreen() {
    static QPointer<DeviceScreen> screen;
    return screen;
}
} // namespace

DeviceScreen::DeviceScreen(PageFactory& factory, QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("DeviceScreen"));
    setWindowTitle(QStringLiteral("Kovalin"));
    setWindowIcon(Bitmaps::icon(IDR_MAINFRAME));
    setFixedSize(kWidth, kHeight);

    m_navigationBar = new NavigationBar(this);
    m_navigationBar->setGeometry(0, 0, kWidth, kClientTop);

    m_clientArea = new QWidget(this);
    m_clientArea->setObjectName(QStringLiteral("ClientArea"));
    m_clientArea->setGeometry(0, kClientTop, kWidth, kClientHeight);
    m_clientArea->setAutoFillBackground(true);

    m_commandBarSlot = new QWidget(this);
    m_commandBarSlot->setObjectName(QStringLiteral("CommandBarSlot"));
    m_commandBarSlot->setGeometry(0, kCommandBarTop, kWidth - kInputPanelButtonWidth, CommandBar::kHeight);

    m_inputPanelButton = new QToolButton(this);
    m_inputPanelButton->setObjectName(QStringLiteral("InputPanelButton"));
    m_inputPanelButton->setIcon(Bitmaps::masked(IDB_INPUTPANEL));
    m_inputPanelButton->setIconSize(QSize(16, 13));
    m_inputPanelButton->setAutoRaise(true);
    m_inputPanelButton->setCheckable(true);
    m_inputPanelButton->setFocusPolicy(Qt::NoFocus);
    m_inputPanelButton->setToolTip(QStringLiteral("Input Panel"));
    m_inputPanelButton->setGeometry(kWidth - kInputPanelButtonWidth, kCommandBarTop + 1, kInputPanelButtonWidth,
                                    CommandBar::kHeight - 2);
    connect(m_inputPanelButton, &QToolButton::clicked, this, &DeviceScreen::toggleInputPanel);

    m_mainDialog = new MainDialog(factory, m_commandBarSlot, m_clientArea);
    m_mainDialog->setGeometry(0, 0, kWidth, kClientHeight);
    connect(m_mainDialog, &MainDialog::ended, this, &QWidget::close);

    m_inputPanel = new InputPanel(this);
    m_inputPanel->move(0, kCommandBarTop - InputPanel::kHeight);
    m_inputPanel->hide();

    currentScreen() = this;
}

DeviceScreen::~DeviceScreen() = default;

void DeviceScreen::start() {
    m_mainDialog->initDialog();
}

DeviceScreen* DeviceScreen::current() {
    return currentScreen();
}

DeviceScreen* DeviceScreen::of(const QObject* object) {
    for (const QObject* o = object; o != nullptr; o = o->parent()) {
        if (auto* screen = qobject_cast<const DeviceScreen*>(o)) {
            return const_cast<DeviceScreen*>(screen);
        }
    }
    return nullptr;
}

int DeviceScreen::runModal(QDialog& dialog, Placement placement) {
    if (DeviceScreen* screen = of(dialog.parentWidget())) {
        return screen->execModal(dialog, placement);
    }
    return dialog.exec();
}

int DeviceScreen::execModal(QDialog& dialog, Placement placement) {
    QWidget* previousFocus = QApplication::focusWidget();
    QWidget* cover = nullptr;
    placeDialog(dialog, placement, cover);
    m_modal.emplace_back(&dialog);
    if (!dialog.windowTitle().isEmpty()) {
        m_navigationBar->setTitle(dialog.windowTitle());
    }
    // A modal dialog has no menu and no tool-bar buttons of its own: the command bar is put away.
    m_commandBarSlot->hide();
    dialog.show();
    dialog.raise();
    if (m_inputPanel->isVisible()) {
        m_inputPanel->raise();
    }
    focusFirstControl(dialog);
    const int result = dialog.exec();
    m_modal.pop_back();
    if (cover != nullptr) {
        // The dialog belongs to its caller: out of the cover before the cover goes.
        dialog.hide();
        dialog.setParent(m_clientArea);
        delete cover;
    }
    restoreAfterModal(previousFocus);
    return result;
}

void DeviceScreen::placeDialog(QDialog& dialog, Placement placement, QWidget*& cover) {
    switch (placement) {
    case Placement::ClientArea:
        dialog.setParent(m_clientArea, Qt::Widget);
        dialog.setGeometry(0, 0, kWidth, kClientHeight);
        break;
    case Placement::BelowNavigationBar:
        dialog.setParent(this, Qt::Widget);
        dialog.setGeometry(0, kClientTop, kWidth, kHeight - kClientTop);
        break;
    case Placement::Centred: {
        // The cover takes every tap on the client area while the box is up; it draws nothing.
        cover = new QWidget(m_clientArea);
        cover->setGeometry(0, 0, kWidth, kClientHeight);
        cover->show();
        cover->raise();
        dialog.setParent(cover, Qt::Widget);
        const int height = dialog.heightForWidth(kMessageBoxWidth) > 0 ? dialog.heightForWidth(kMessageBoxWidth)
                                                                       : dialog.sizeHint().height();
        const int boxHeight = std::min(height, kClientHeight - 8);
        dialog.setGeometry((kWidth - kMessageBoxWidth) / 2, (kClientHeight - boxHeight) / 2, kMessageBoxWidth,
                           boxHeight);
        break;
    }
    }
}

void DeviceScreen::restoreAfterModal(QWidget* previousFocus) {
    QString title = QStringLiteral("Kovalin");
    for (const QPointer<QDialog>& open : m_modal) {
        if (open && !open->windowTitle().isEmpty()) {
            title = open->windowTitle();
        }
    }
    m_navigationBar->setTitle(title);
    if (m_modal.empty()) {
        m_commandBarSlot->show();
    }
    if (previousFocus != nullptr) {
        previousFocus->setFocus();
    }
}

void DeviceScreen::toggleInputPanel() {
    m_inputPanel->setVisible(!m_inputPanel->isVisible());
    m_inputPanel->raise();
    m_inputPanelButton->setChecked(m_inputPanel->isVisible());
}

void DeviceScreen::paintEvent(QPaintEvent*) {
    // The command bar's strip: a light face under a dark rule, behind the menu and the buttons.
    QPainter painter(this);
    const QRect strip(0, kCommandBarTop, kWidth, kHeight - kCommandBarTop);
    QLinearGradient gradient(strip.topLeft(), strip.bottomLeft());
    gradient.setColorAt(0, QColor(0xF4, 0xF4, 0xF4));
    gradient.setColorAt(1, QColor(0xD4, 0xD4, 0xD4));
    painter.fillRect(strip, gradient);
    painter.setPen(QColor(0x80, 0x80, 0x80));
    painter.drawLine(strip.topLeft(), strip.topRight());
}

void DeviceScreen::closeEvent(QCloseEvent* event) {
    // Closing the window ends the program the way Exit does.
    if (!m_mainDialog->hasEnded()) {
        m_mainDialog->exitProgram();
    }
    event->accept();
}

#include "DeviceCombo.h"

#include "RecordLimits.h"
#include "ScreenPlacement.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QLineEdit>
#include <QWheelEvent>

#include <algorithm>

DeviceCombo::DeviceCombo(bool editable, QWidget* parent) : QComboBox(parent) {
    setEditable(editable);
    setInsertPolicy(QComboBox::NoInsert);
    setFocusPolicy(Qt::StrongFocus);
    if (editable) {
        setCompleter(nullptr);
        lineEdit()->installEventFilter(this);
        // What is typed is a name: it never grows past what a record keeps, and a longer stored name
        // is shown by its start.
        lineEdit()->setMaxLength(RecordLimits::kMaxNameLength);
    }
}

void DeviceCombo::useLineEdit(QLineEdit* edit) {
    setLineEdit(edit);
    setCompleter(nullptr);
    edit->installEventFilter(this);
}

void DeviceCombo::setText(const QString& text) {
    setEditText(text);
    if (lineEdit() != nullptr && !lineEdit()->hasFocus()) {
        lineEdit()->setCursorPosition(0);
    }
}

void DeviceCombo::setSortedItems(const QStringList& items) {
    const QString shown = currentText();
    clear();
    addItems(sortedItems(items));
    if (isEditable()) {
        setText(shown);
    }
}

QStringList DeviceCombo::sortedItems(QStringList items) {
    std::stable_sort(items.begin(), items.end(), [](const QString& a, const QString& b) {
        const int folded = a.compare(b, Qt::CaseInsensitive);
        return folded != 0 ? folded < 0 : a < b;
    });
    return items;
}

void DeviceCombo::showPopup() {
    QComboBox::showPopup();
    // An editable combo's text may be an item without being the current one: the list shows it chosen.
    if (const int shown = findText(currentText()); isEditable() && shown >= 0) {
        view()->setCurrentIndex(model()->index(shown, modelColumn()));
    }
    QWidget* popup = view()->window();
    const QRect screen = ScreenPlacement::workAreaOf(this);
    if (popup == window() || screen.contains(popup->geometry())) {
        return;
    }
    const QRect anchor(mapToGlobal(QPoint(0, 0)), size());
    popup->setGeometry(ScreenPlacement::nextTo(anchor, popup->size(), screen));
    view()->scrollTo(view()->currentIndex());
}

void DeviceCombo::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

bool DeviceCombo::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lineEdit() && event->type() == QEvent::FocusOut) {
        lineEdit()->setCursorPosition(0);
    }
    return QComboBox::eventFilter(watched, event);
}

#include "DeviceMessageBoxPresenter.h"

#include "DeviceMessageBox.h"
#include "DeviceScreen.h"
#include "MessageBox.h"

#include <QWidget>

DeviceMessageBoxPresenter::DeviceMessageBoxPresenter() : m_previous(setMessageBoxPresenter(this)) {}

DeviceMessageBoxPresenter::~DeviceMessageBoxPresenter() {
    setMessageBoxPresenter(m_previous);
}

int DeviceMessageBoxPresenter::show(QObject* owner, const QString& text, const QString& caption, UINT type) {
    QWidget* parent = nullptr;
    for (QObject* o = owner; o != nullptr && parent == nullptr; o = o->parent()) {
        parent = qobject_cast<QWidget*>(o);
    }
    if (DeviceScreen::of(parent) == nullptr && DeviceScreen::current() != nullptr) {
        parent = DeviceScreen::current()->clientArea();
    }
    DeviceMessageBox box(text, caption, type, parent);
    return box.run();
}

#include "ListButton.h"

ListButton::ListButton(QWidget* parent) : QPushButton(QStringLiteral("<-"), parent) {
    setToolTip(QStringLiteral("Edit the list"));
    setFocusPolicy(Qt::TabFocus);
}

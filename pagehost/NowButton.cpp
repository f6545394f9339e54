#include "NowButton.h"

#include "Bitmaps.h"
#include "resource.h"

NowButton::NowButton(QWidget* parent) : QToolButton(parent) {
    setIcon(QIcon(Bitmaps::masked(IDB_NOW)));
    setIconSize(QSize(16, 15));
    setAutoRaise(true);
    setToolTip(QStringLiteral("Now"));
}

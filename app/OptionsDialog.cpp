#include "OptionsDialog.h"

#include "DeviceFonts.h"
#include "MessageBox.h"
#include "RegistryHelper.h"
#include "SaveFailure.h"
#include "Settings.h"
#include "WrappingCheckBox.h"
#include "resource.h"

#include <cmath>

namespace {
// Dialog units to pixels, vertically: the dialog's 150 units fill the client area's height.
constexpr double kPixelsPerDialogUnit = 1.75;

DWORD setting(const QString& name) {
    return RegistryHelper::GetDword(HKEY_CURRENT_USER, Settings::kKey, name);
}


QCheckBox* makeBox(QWidget* parent, int id, const QString& text, bool multiLine) {
    QCheckBox* box = multiLine ? new WrappingCheckBox(text, parent) : new QCheckBox(text, parent);
    box->setObjectName(QStringLiteral("c%1").arg(id));
    box->setFont(DeviceFonts::tahoma(OptionsDialog::kFontHeight));
    return box;
}
} // namespace

OptionsDialog::OptionsDialog(QWidget* parent)
    : DeviceDialog(QStringLiteral("OptionsDialog"), QStringLiteral("Options"), parent) {
    m_pullLast =
        makeBox(content(), IDC_PULLLAST,
                QStringLiteral("Automatically pull in the data from the last time I exercised that body part"), true);
    m_pullWt =
        makeBox(content(), IDC_PULLWT,
                QStringLiteral("When I change the first strength exercise, pull in all the sets I used the last time "
                               "I did that exercise first."),
                true);
    m_fillIn = makeBox(
        content(), IDC_FILLIN,
        QStringLiteral("If prior sets are not found, fill in the first five sets with the same exercise."), true);
    m_ckDate = makeBox(content(), IDC_CKDATE, QStringLiteral("Keep all screens on the same date."), false);
    m_asOne = makeBox(content(), IDC_ASONE,
                      QStringLiteral("Treat Upper Body and Lower Body workouts done on same day as one workout"), true);
    m_showBox = makeBox(content(), IDC_SHOWBOX,
                        QStringLiteral("Show the 20 intensity rating boxes for aerobic exercise."), true);
    addCancelButton();
    addOkButton();
    placeBoxes();
    connect(m_pullWt, &QCheckBox::clicked, this, &OptionsDialog::pullWtClicked);
    readSettings();
}

QCheckBox* OptionsDialog::box(int id) const {
    return content()->findChild<QCheckBox*>(QStringLiteral("c%1").arg(id));
}

void OptionsDialog::placeBoxes() {
    struct Place {
        QCheckBox* box;
        int dialogUnitsY;
    };
    const Place places[] = {{m_pullLast, 0}, {m_pullWt, 22}, {m_fillIn, 39},
                            {m_ckDate, 67},  {m_asOne, 89},  {m_showBox, 111}};
    const int width = content()->width();
    int previousBottom = 0;
    for (const Place& place : places) {
        // A box keeps its place in the template unless the one above needs more lines than it allows.
        const int top =
            std::max(static_cast<int>(std::lround(place.dialogUnitsY * kPixelsPerDialogUnit)), previousBottom + 2);
        const int height =
            place.box->hasHeightForWidth() ? place.box->heightForWidth(width) : place.box->sizeHint().height();
        place.box->setGeometry(0, top, width, height);
        previousBottom = top + height;
    }
}

void OptionsDialog::readSettings() {
    m_asOne->setChecked(setting(Settings::kAsOne) != 1);
    m_pullLast->setChecked(setting(Settings::kPullLast) != 1);
    const bool pullWt = setting(Settings::kPullWt) == 1;
    m_pullWt->setChecked(pullWt);
    m_fillIn->setChecked(pullWt && setting(Settings::kFillIn) == 1);
    m_fillIn->setVisible(pullWt);
    m_ckDate->setChecked(setting(Settings::kCkDate) == 1);
    m_showBox->setChecked(setting(Settings::kShowBox) == 1);
}

void OptionsDialog::pullWtClicked() {
    if (m_pullWt->isChecked()) {
        // The fill-in box comes back with the stored value, not with what it showed before.
        m_fillIn->setChecked(setting(Settings::kFillIn) == 1);
        m_fillIn->show();
    } else {
        m_fillIn->hide();
    }
}

void OptionsDialog::onOk() {
    const std::pair<QString, DWORD> values[] = {
        {Settings::kPullWt, m_pullWt->isChecked() ? 1 : 0},     {Settings::kCkDate, m_ckDate->isChecked() ? 1 : 0},
        {Settings::kFillIn, m_fillIn->isChecked() ? 1 : 0},     {Settings::kShowBox, m_showBox->isChecked() ? 1 : 0},
        {Settings::kPullLast, m_pullLast->isChecked() ? 0 : 1}, {Settings::kAsOne, m_asOne->isChecked() ? 0 : 1}};
    for (const auto& [name, value] : values) {
        if (const DWORD error = RegistryHelper::SetDword(HKEY_CURRENT_USER, Settings::kKey, name, value)) {
            // The dialog stays, showing the settings as they are stored.
            MessageBoxW(this, SaveFailure::text(error), QStringLiteral("Options"), MB_OK | MB_ICONERROR);
            readSettings();
            return;
        }
    }
    accept();
}

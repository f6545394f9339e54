#pragma once
// The Options dialog (dialog 194): six check boxes over six registry values. Opening reads the
// values; OK writes all six, every time; Cancel writes nothing. Two values are stored inverted
// (PullLast and AsOne: 0 means on), so that a device without values starts with both on.

#include "DeviceDialog.h"

class QCheckBox;

class OptionsDialog : public DeviceDialog {
    Q_OBJECT
public:
    // The font of the six boxes: "Tahoma", height 11.
    static constexpr int kFontHeight = 11;

    explicit OptionsDialog(QWidget* parent);

    QCheckBox* box(int id) const;

protected:
    void onOk() override;

private:
    void placeBoxes();
    void readSettings();
    void pullWtClicked();

    QCheckBox* m_pullLast = nullptr;
    QCheckBox* m_pullWt = nullptr;
    QCheckBox* m_fillIn = nullptr;
    QCheckBox* m_ckDate = nullptr;
    QCheckBox* m_asOne = nullptr;
    QCheckBox* m_showBox = nullptr;
};

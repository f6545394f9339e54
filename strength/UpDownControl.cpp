#include "UpDownControl.h"

#include <QLineEdit>
#include <QLocale>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

UpDownControl::UpDownControl(QLineEdit* buddy, int minimum, int maximum, QWidget* parent)
    : QWidget(parent), m_buddy(buddy), m_minimum(minimum), m_maximum(maximum) {
    m_up = new QToolButton(this);
    m_up->setArrowType(Qt::UpArrow);
    m_down = new QToolButton(this);
    m_down->setArrowType(Qt::DownArrow);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (QToolButton* arrow : {m_up, m_down}) {
        arrow->setFocusPolicy(Qt::NoFocus);
        arrow->setAutoRepeat(true);
        arrow->setIconSize(QSize(5, 3));
        arrow->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        layout->addWidget(arrow);
    }
    connect(m_up, &QToolButton::clicked, this, [this] { stepBy(1); });
    connect(m_down, &QToolButton::clicked, this, [this] { stepBy(-1); });
}

void UpDownControl::stepBy(int steps) {
    // The position is the whole part of the buddy's number (0 when it holds none), as the platform
    // reads a buddy.
    const double shown = QLocale::c().toDouble(m_buddy->text());
    const int position = std::clamp(static_cast<int>(std::floor(shown)), m_minimum, m_maximum);
    m_buddy->setText(QString::number(std::clamp(position + steps, m_minimum, m_maximum)));
}

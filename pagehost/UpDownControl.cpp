#include "UpDownControl.h"

#include "NumberEdit.h"

#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

UpDownControl::UpDownControl(NumberEdit* buddy, int minimum, int maximum, QWidget* parent, int divisor)
    : QWidget(parent), m_buddy(buddy), m_minimum(minimum), m_maximum(maximum), m_divisor(divisor) {
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
    // What is typed counts first; a refused entry is not stepped from.
    if (!m_buddy->commit()) {
        return;
    }
    // A tiny allowance keeps 22.5 at position 225 although 22.5 * 10 is held as 224.99999...
    const int position = std::clamp(static_cast<int>(std::floor(m_buddy->value() * m_divisor + 1e-6)), m_minimum,
                                    m_maximum);
    m_buddy->stepTo(static_cast<double>(std::clamp(position + steps, m_minimum, m_maximum)) / m_divisor);
}

#include "CalendarPage.h"

#include "Bitmaps.h"
#include "Clock.h"
#include "DeviceFonts.h"
#include "PageHost.h"
#include "PageMenu.h"
#include "RegistryHelper.h"
#include "Settings.h"
#include "resource.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>

namespace {
const QColor kHeaderBlue(0, 109, 255);
const QColor kOtherMonthGrey(128, 128, 128);
const QColor kTodayYellow(255, 255, 64);
const QColor kShownNumberRed(255, 0, 0);
const char* const kWeekdays[] = {"Sun", "Mon", "Tue", "Wed", "Thurs", "Fri", "Sat"};
constexpr int kMarkSize = 10;

// A font described by its point size, as the device makes one: the em is points * 96 / 72 pixels.
QFont pointFont(int points, int weight = 400) {
    QFont font(DeviceFonts::family());
    font.setPixelSize(points * 96 / 72);
    font.setWeight(weight >= 700 ? QFont::Bold : QFont::Normal);
    return font;
}
} // namespace

CalendarPage::CalendarPage(PageHost& host, QWidget* parent)
    : Page(host, IDD_CALENDAR, QStringLiteral("CalendarPage"), parent),
      m_month(Clock::now().date().month(), Clock::now().date().year()),
      m_marks{{Bitmaps::masked(IDB_CAL_UPPER), Bitmaps::masked(IDB_CAL_LOWER), Bitmaps::masked(IDB_CAL_AEROBIC)},
              {Bitmaps::masked(IDB_CAL_UPPER_OTHER), Bitmaps::masked(IDB_CAL_LOWER_OTHER),
               Bitmaps::masked(IDB_CAL_AEROBIC_OTHER)}} {
    connect(addButton(IDC_CAL_PREVIOUS, QStringLiteral("<"), 152, 20), &QPushButton::clicked, this,
            &CalendarPage::showPrevious);
    connect(addButton(IDC_CAL_CURRENT, QStringLiteral("Today"), 174, 42), &QPushButton::clicked, this,
            &CalendarPage::showCurrent);
    connect(addButton(IDC_CAL_NEXT, QStringLiteral(">"), 218, 20), &QPushButton::clicked, this,
            &CalendarPage::showNext);
}

QPushButton* CalendarPage::addButton(int id, const QString& text, int left, int width) {
    auto* button = new QPushButton(text, this);
    button->setObjectName(QStringLiteral("c%1").arg(id));
    button->setFont(pointFont(7));
    button->setFocusPolicy(Qt::NoFocus);
    button->setGeometry(left, 1, width, 14);
    return button;
}

void CalendarPage::setDate(const QDate& date) {
    if (date.isValid()) {
        m_month.show(date.month(), date.year());
        update();
    }
}

void CalendarPage::showPrevious() {
    m_month.previous();
    update();
}

void CalendarPage::showCurrent() {
    const QDate today = Clock::now().date();
    m_month.show(today.month(), today.year());
    update();
}

void CalendarPage::showNext() {
    m_month.next();
    update();
}

TrainingMarks::Names CalendarPage::logNames() const {
    return {host().upperBodyADatabaseName(), host().upperBodyBDatabaseName(), host().lowerBodyADatabaseName(),
            host().lowerBodyBDatabaseName(), host().aerobicDatabaseName()};
}

void CalendarPage::paintEvent(QPaintEvent*) {
    m_month.build(logNames());
    // The page is drawn on an off-screen surface and copied to the screen in one go.
    QPixmap surface(size() * devicePixelRatio());
    surface.setDevicePixelRatio(devicePixelRatio());
    surface.fill(Qt::white);
    {
        QPainter offscreen(&surface);
        drawPage(offscreen);
    }
    QPainter(this).drawPixmap(0, 0, surface);
}

void CalendarPage::drawPage(QPainter& painter) const {
    // The weekday header.
    painter.setFont(pointFont(7));
    for (int i = 0; i < CalendarMonth::kColumns; ++i) {
        const QRect box(CalendarMonth::kLeft + CalendarMonth::kCellWidth * i, CalendarMonth::kHeaderTop,
                        CalendarMonth::kCellWidth, CalendarMonth::kHeaderBottom - CalendarMonth::kHeaderTop);
        painter.fillRect(box, kHeaderBlue);
        painter.setPen(Qt::black);
        painter.drawText(box, Qt::AlignCenter | Qt::TextSingleLine, QString::fromLatin1(kWeekdays[i]));
    }

    // The cells: grey for the neighbouring months, yellow for today, white otherwise; the day in the
    // top-right corner and the day's strength sets in red under the marks.
    const QDate today = Clock::now().date();
    const QFont dayFont = pointFont(7);
    const QFont numberFont = pointFont(7, 700);
    for (const CalendarCell& cell : m_month.cells()) {
        const bool shownMonth = cell.month == m_month.month();
        const bool isToday =
            shownMonth && cell.day == today.day() && cell.month == today.month() && cell.year == today.year();
        const QColor fill = !shownMonth ? kOtherMonthGrey : isToday ? kTodayYellow : QColor(Qt::white);
        painter.setPen(Qt::black);
        painter.setBrush(fill);
        painter.drawRect(cell.left, cell.top, cell.right - cell.left, cell.bottom - cell.top);
        painter.setFont(dayFont);
        painter.drawText(QRect(QPoint(cell.right - 13, cell.top), QPoint(cell.right - 2, cell.top + 11)),
                         Qt::AlignRight | Qt::AlignVCenter, QString::number(cell.day));
        if (cell.shownNumber > 0) {
            painter.setPen(kShownNumberRed);
            painter.setFont(numberFont);
            painter.drawText(QRect(QPoint(cell.left, cell.top + 25), QPoint(cell.right - 1, cell.bottom - 1)),
                             Qt::AlignCenter, QString::number(cell.shownNumber));
        }
    }
    painter.setBrush(Qt::NoBrush);

    // The title.
    painter.setPen(Qt::black);
    painter.setFont(pointFont(9, 700));
    painter.drawText(QRect(QPoint(8, 1), QPoint(111, 41)), Qt::AlignLeft | Qt::AlignTop, m_month.title());

    // The marks, each kind in its own place of the cell, so that a column of days reads at a glance.
    for (const CalendarCell& cell : m_month.cells()) {
        const int other = cell.month == m_month.month() ? 0 : 1;
        const int flags[3] = {cell.upperBody, cell.lowerBody, cell.aerobic};
        for (int kind = 0; kind < 3; ++kind) {
            if (flags[kind] != 0) {
                painter.drawPixmap(QRect(cell.left + 2 + kMarkSize * kind, cell.top + 13, kMarkSize, kMarkSize),
                                   m_marks[other][kind]);
            }
        }
    }
}

void CalendarPage::mousePressEvent(QMouseEvent* event) {
    const QPoint point = event->position().toPoint();
    const CalendarCell* cell = m_month.cellAt(point.x(), point.y());
    if (cell != nullptr && cell->entryCount == 1) {
        jump(*cell, cell->upperBody != 0 ? 1 : cell->lowerBody != 0 ? 2 : 3);
    } else if (cell != nullptr && cell->entryCount > 1) {
        const CalendarCell chosenCell = *cell;
        PageMenu menu(QStringLiteral("CalendarMenu"), this);
        const struct {
            int flag;
            int command;
            const QString& text;
            int bitmap;
        } kinds[] = {{chosenCell.upperBody, ID_CAL_UPPERBODY, kUpperBody, IDB_UPPERBODY},
                     {chosenCell.lowerBody, ID_CAL_LOWERBODY, kLowerBody, IDB_LOWERBODY},
                     {chosenCell.aerobic, ID_CAL_AEROBIC, kAerobic, IDB_AEROBIC}};
        for (const auto& kind : kinds) {
            if (kind.flag != 0) {
                menu.addCommand(kind.command, kind.text);
                menu.actions().back()->setIcon(QIcon(Bitmaps::masked(kind.bitmap)));
            }
        }
        const int command = menu.choose(this, point);
        const QAction* chosen = menu.findChild<QAction*>(QStringLiteral("cmd%1").arg(command));
        const QString text = chosen != nullptr ? chosen->text() : QString();
        if (text == kUpperBody) {
            jump(chosenCell, 1);
        } else if (text == kLowerBody) {
            jump(chosenCell, 2);
        } else if (text == kAerobic) {
            jump(chosenCell, 3);
        }
    }
    Page::mousePressEvent(event);
}

void CalendarPage::jump(const CalendarCell& cell, int tab) {
    const QDate date(cell.year, cell.month, cell.day);
    if (RegistryHelper::GetDword(HKEY_CURRENT_USER, Settings::kKey, Settings::kCkDate) == 1) {
        host().SetDateOnAllPages(date);
    } else {
        host().setDateOnPage(tab, date);
    }
    host().SelectPage(tab);
}

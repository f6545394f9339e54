#include "ReportsPage.h"

#include "Clock.h"
#include "DeviceCombo.h"
#include "DeviceFonts.h"
#include "MessageBox.h"
#include "PageHost.h"
#include "RegistryHelper.h"
#include "ReportChart.h"
#include "ReportCollector.h"
#include "ReportMeasure.h"
#include "ReportPeriod.h"
#include "Settings.h"
#include "resource.h"

#include <QAbstractItemView>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>

#include <cmath>

namespace {
constexpr int kRowHeight = 19;
constexpr int kFirstRow = 1;
constexpr int kSecondRow = kFirstRow + kRowHeight + 1;
// The average stands at the right of the second row, beside the set and exercise drop-downs.
const QRect kAverageBox(181, kSecondRow, 57, kRowHeight);
const QColor kLineColour(0x0A, 0x2A, 0x84);
const QColor kGridColour(0xC8, 0xC8, 0xC8);
const QColor kLabelColour(0x60, 0x60, 0x60);
const QColor kTappedColour(0xE0, 0x00, 0x00);

// "Tahoma" at 7 points, as the device measures points: 96 dots per inch, so 9 pixels to the em.
QFont smallTahoma() {
    QFont font(DeviceFonts::family());
    font.setPixelSize(9);
    return font;
}

QRectF chartArea() {
    return QRectF(ReportsPage::kChartLeft, ReportsPage::kChartBase - ReportChart::kHeight, ReportChart::kWidth,
                  ReportChart::kHeight);
}

// A scale value as short as it can be: whole numbers without decimals, others with one.
QString scaleText(double value) {
    return value == std::floor(value) ? QString::number(value, 'f', 0) : QString::number(value, 'f', 1);
}

template <typename T> T* named(T* widget, int id) {
    widget->setObjectName(QStringLiteral("c%1").arg(id));
    return widget;
}
} // namespace

ReportsPage::ReportsPage(PageHost& host, QWidget* parent)
    : Page(host, IDD_REPORTS, QStringLiteral("ReportsPage"), parent) {
    createControls();
}

void ReportsPage::createControls() {
    auto combo = [this](int id, QRect geometry, const QStringList& items) {
        auto* made = named(new DeviceCombo(false, this), id);
        made->setGeometry(geometry);
        made->addItems(items);
        // The lists open wide enough for their longest item, past the narrow boxes.
        made->view()->setMinimumWidth(made->view()->sizeHintForColumn(0) + 8);
        connect(made, &QComboBox::currentIndexChanged, this, [this, made] {
            if (m_filling) {
                return;
            }
            if (made == m_measure) {
                measureChanged();
            }
            DrawChart();
        });
        return made;
    };
    m_filling = true;
    m_measure = combo(IDC_REPORTS_MEASURE, QRect(1, kFirstRow, 136, kRowHeight), ReportMeasure::names());
    m_period = combo(IDC_REPORTS_PERIOD, QRect(139, kFirstRow, 100, kRowHeight), ReportPeriod::names());
    // The period box is as wide as its longest name needs at the scale the screen is drawn at (text is
    // hinted wider at some scales); the measure box takes the rest of the row.
    const int periodWidth = std::max(100, m_period->sizeHint().width());
    m_period->setGeometry(Page::kWidth - 1 - periodWidth, kFirstRow, periodWidth, kRowHeight);
    m_measure->setGeometry(1, kFirstRow, Page::kWidth - 4 - periodWidth, kRowHeight);
    QStringList sets;
    for (int set = 1; set <= MuscleGroup::kSets; ++set) {
        sets << QStringLiteral("Set %1").arg(set);
    }
    m_set = combo(IDC_REPORTS_SET, QRect(1, kSecondRow, 52, kRowHeight), sets);
    m_exercise = combo(IDC_REPORTS_EXERCISE, QRect(55, kSecondRow, 124, kRowHeight), {kAllExercises});
    m_exercise->view()->setMinimumWidth(200);
    m_set->hide();
    m_exercise->hide();
    m_filling = false;
}

void ReportsPage::initDialog() {
    m_filling = true;
    m_measure->setCurrentIndex(0);
    m_period->setCurrentIndex(0);
    m_set->setCurrentIndex(0);
    m_filling = false;
}

ReportChoice ReportsPage::choice() const {
    ReportChoice chosen;
    chosen.measure = m_measure->currentIndex();
    chosen.period = m_period->currentIndex();
    chosen.set = m_set->currentIndex() + 1;
    chosen.exercise = m_exercise->currentIndex() > 0 ? m_exercise->currentText() : QString();
    // Counted as one unless the setting says two: a fresh device has no value.
    chosen.workoutsAsOne = RegistryHelper::GetDword(HKEY_CURRENT_USER, Settings::kKey, Settings::kAsOne) != 1;
    return chosen;
}

std::array<QString, 6> ReportsPage::databaseNames() const {
    // Asked for each time: the names change with the user.
    return {host().upperBodyADatabaseName(), host().upperBodyBDatabaseName(), host().lowerBodyADatabaseName(),
            host().lowerBodyBDatabaseName(), host().aerobicDatabaseName(),    host().foodDatabaseName()};
}

void ReportsPage::DrawChart() {
    m_collectedFrom = databaseNames();
    m_tapped = -1;
    m_report = ReportCollector(m_collectedFrom).collect(choice(), Clock::now().date());
    update();
    if (m_report.status() == Report::Status::PeriodOutOfRange) {
        MessageBoxW(this, kError, QStringLiteral("Kovalin"), MB_OK | MB_ICONERROR);
    } else if (m_report.status() == Report::Status::ReadFailed) {
        MessageBoxW(this, QStringLiteral("Error accessing database"), QStringLiteral("Kovalin"), MB_OK | MB_ICONERROR);
    }
}

void ReportsPage::measureChanged() {
    const std::optional<ReportMeasure> measure = ReportMeasure::of(m_measure->currentIndex());
    const bool perSet = measure && measure->isWeightPerSet();
    m_set->setVisible(perSet);
    m_exercise->setVisible(perSet);
    if (perSet) {
        fillExercises();
    }
}

void ReportsPage::fillExercises() {
    const std::optional<ReportMeasure> measure = ReportMeasure::of(m_measure->currentIndex());
    if (!measure || !measure->isWeightPerSet()) {
        return;
    }
    // The chosen exercise stays chosen while the list still holds it (another group's list rarely does).
    const QString chosen = m_exercise->currentText();
    m_filling = true;
    m_exercise->clear();
    m_exercise->addItem(kAllExercises);
    m_exercise->addItems(DeviceCombo::sortedItems(ReportCollector::exercises(measure->group())));
    m_exercise->setCurrentIndex(std::max(0, m_exercise->findText(chosen)));
    m_filling = false;
}

void ReportsPage::showEvent(QShowEvent* event) {
    Page::showEvent(event);
    // The logs may have changed on the other pages, and the group's exercise list in the grid.
    fillExercises();
    DrawChart();
}

void ReportsPage::paintEvent(QPaintEvent*) {
    if (m_report.status() != Report::Status::NotCollected && databaseNames() != m_collectedFrom) {
        // Another user is current: that user's report replaces the one on the page, never drawn again.
        QTimer::singleShot(0, this, &ReportsPage::reload);
        return;
    }
    QPainter painter(this);
    if (m_report.status() != Report::Status::Collected) {
        return;
    }
    if (m_report.isEmpty()) {
        painter.setFont(DeviceFonts::dialogFont());
        painter.setPen(Qt::black);
        painter.drawText(chartArea(), Qt::AlignCenter, kNoEntries);
        return;
    }
    paintChart(painter);
}

void ReportsPage::paintChart(QPainter& painter) {
    const ReportChart chart(m_report, QPointF(kChartLeft, kChartBase));
    paintAxes(painter, chart);

    // A cosmetic one-pixel pen without antialiasing: the device's own lines, and the raster engine's
    // fast path (an antialiased polyline of a year's points cost several times the rest of the paint).
    painter.setPen(QPen(kLineColour, 0));
    const QPolygonF line = chart.polyline();
    painter.drawPolyline(line);
    if (chart.marksPoints()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(kLineColour);
        // A lone point is all there is to see: it gets a larger mark.
        const double size = line.size() == 1 ? 6.0 : 4.0;
        for (const QPointF& at : line) {
            painter.drawRect(QRectF(at.x() - size / 2, at.y() - size / 2, size, size));
        }
    }

    painter.setFont(smallTahoma());
    painter.setPen(Qt::black);
    painter.drawText(kAverageBox, Qt::AlignRight | Qt::AlignVCenter, ReportChart::averageText(m_report.average()));

    if (m_tapped >= 0 && m_tapped < static_cast<int>(m_report.points().size())) {
        const Report::Point& point = m_report.points()[static_cast<size_t>(m_tapped)];
        paintTapped(painter, chart.position(point), ReportChart::pointText(point));
    }
}

void ReportsPage::paintAxes(QPainter& painter, const ReportChart& chart) {
    const double top = chart.scaleTop();
    const QRectF area = chartArea();
    const double middle = (area.top() + area.bottom()) / 2.0;
    painter.setPen(kGridColour);
    painter.drawLine(QPointF(area.left(), area.top()), QPointF(area.right(), area.top()));
    painter.drawLine(QPointF(area.left(), middle), QPointF(area.right(), middle));

    // Ticks on the base line: each day of a week, each week of the longer periods (ending today), and
    // the first day of each month in a year.
    const int days = m_report.periodDays();
    const QDate today = m_report.lastDay();
    painter.setPen(Qt::black);
    for (int n = 1; n <= days; ++n) {
        const QDate day = ReportPeriod::day(today, days, n);
        const bool tick = days > 84 ? day.day() == 1 : days == 7 || (days - n) % 7 == 0;
        if (tick) {
            const double x = area.left() + static_cast<double>(n) / days * ReportChart::kWidth;
            painter.drawLine(QPointF(x, area.bottom() - 3), QPointF(x, area.bottom()));
        }
    }
    painter.drawLine(QPointF(area.left(), area.top()), QPointF(area.left(), area.bottom()));
    painter.drawLine(QPointF(area.left(), area.bottom()), QPointF(area.right(), area.bottom()));

    painter.setFont(smallTahoma());
    painter.setPen(kLabelColour);
    const double labelRight = area.left() - 3;
    painter.drawText(QRectF(0, area.top(), labelRight, 10), Qt::AlignRight | Qt::AlignTop, scaleText(top));
    painter.drawText(QRectF(0, middle - 5, labelRight, 10), Qt::AlignRight | Qt::AlignVCenter, scaleText(top / 2));
    painter.drawText(QRectF(0, area.bottom() - 10, labelRight, 10), Qt::AlignRight | Qt::AlignBottom,
                     QStringLiteral("0"));
    // The period's first day and today, just above the base line, each centred over its day's place
    // as far as the chart's width allows.
    const QFontMetricsF metrics(painter.font());
    for (const ReportChart::DayLabel& label : chart.dayLabels()) {
        const double width = metrics.horizontalAdvance(label.text) + 2;
        const double left = std::clamp(label.x - width / 2, area.left() + 1, area.right() - width);
        painter.drawText(QRectF(left, area.bottom() - 14, width, 10), Qt::AlignCenter, label.text);
    }
}

void ReportsPage::paintTapped(QPainter& painter, QPointF at, const QString& text) {
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(kTappedColour, 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(at, 4.0, 4.0);
    painter.setRenderHint(QPainter::Antialiasing, false);

    // The text in a small box above the point, kept within the chart.
    const QRectF area = chartArea();
    const QFontMetricsF metrics(painter.font());
    const QSizeF size(metrics.horizontalAdvance(text) + 6, metrics.height() + 2);
    QRectF box(QPointF(at.x() - size.width() / 2, at.y() - 8 - size.height()), size);
    box.moveLeft(std::clamp(box.left(), area.left() + 1, area.right() - size.width()));
    if (box.top() < area.top() + 1) {
        box.moveTop(at.y() + 8);
    }
    painter.setPen(kLabelColour);
    painter.setBrush(Qt::white);
    painter.drawRect(box);
    painter.setPen(Qt::black);
    painter.drawText(box, Qt::AlignCenter, text);
}

void ReportsPage::mousePressEvent(QMouseEvent* event) {
    // A stylus-down shows the point under it, or takes the shown text away when there is none.
    // Lifting the stylus leaves the text in place until the next tap or a new chart.
    if (event->button() == Qt::LeftButton && m_report.status() == Report::Status::Collected) {
        const int tapped = ReportChart(m_report, QPointF(kChartLeft, kChartBase)).pointAt(event->position());
        if (tapped != m_tapped) {
            m_tapped = tapped;
            update();
        }
    }
    Page::mousePressEvent(event);
}

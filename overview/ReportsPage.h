#pragma once
// The reports page (dialog 138, tab 5): a line chart of one chosen measure of the current user over
// a chosen period ending today, with the period's average. It only reads the logs. The chart is
// collected again whenever a drop-down changes, the page is shown or reloaded, or the user changes.

#include "Page.h"
#include "Report.h"
#include "ReportChoice.h"

#include <array>

class DeviceCombo;
class ReportChart;

class ReportsPage : public Page {
    Q_OBJECT
public:
    static inline const QString kNoEntries = QStringLiteral("No entries found");
    static inline const QString kError = QStringLiteral("Error");
    static inline const QString kAllExercises = QStringLiteral("All Exercises");
    // The left end of the chart's base line, on the page; the chart stands 205 pixels above it.
    static constexpr int kChartLeft = 34;
    static constexpr int kChartBase = 245;

    ReportsPage(PageHost& host, QWidget* parent);

    void initDialog() override;
    // Collects the chosen report again from the current user's logs.
    void reload() override { DrawChart(); }

    // Collects the report the drop-downs choose, for today, and redraws. A period outside the four
    // shows "Error" and draws nothing.
    void DrawChart();

    const Report& report() const { return m_report; }
    ReportChoice choice() const;
    // The index of the tapped point whose text is shown; -1 for none.
    int tappedPoint() const { return m_tapped; }

protected:
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void createControls();
    void measureChanged();
    void fillExercises();
    std::array<QString, 6> databaseNames() const;
    void paintChart(QPainter& painter);
    void paintAxes(QPainter& painter, const ReportChart& chart);
    void paintTapped(QPainter& painter, QPointF at, const QString& text);

    DeviceCombo* m_measure = nullptr;
    DeviceCombo* m_period = nullptr;
    DeviceCombo* m_set = nullptr;
    DeviceCombo* m_exercise = nullptr;
    // Set while the drop-downs are filled, so that filling them is not taken for a choice.
    bool m_filling = false;
    Report m_report;
    // The logs the report was collected from: another user's names mean it must be collected again.
    std::array<QString, 6> m_collectedFrom;
    int m_tapped = -1;
};

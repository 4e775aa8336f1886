#pragma once
// The contest's QSO rate per hour as a bar chart stacked by band, drawn from the rows of the
// report window's band-by-hour grid (hour, one column per band, total).
#include <QtCharts/QChartView>

namespace hfc {

class Control;

class RateChart : public QChartView {
    Q_OBJECT
  public:
    explicit RateChart(Control* hoursGrid, QWidget* parent = nullptr);
    bool savePng(const QString& path); // the chart at 900x500 or the size it is shown at

  private:
    void redraw();
    Control* grid_;
};

} // namespace hfc

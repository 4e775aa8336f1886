#include "ratechart.h"

#include "forms/control.h"

#include <QPainter>
#include <QPixmap>
#include <QtCharts/QBarCategoryAxis>
#include <QtCharts/QBarSet>
#include <QtCharts/QChart>
#include <QtCharts/QStackedBarSeries>
#include <QtCharts/QValueAxis>
#include <algorithm>

namespace hfc {

RateChart::RateChart(Control* hoursGrid, QWidget* parent) : QChartView(parent), grid_(hoursGrid) {
    setRenderHint(QPainter::Antialiasing);
    setMinimumSize(360, 220);
    connect(grid_, &Control::changed, this, &RateChart::redraw);
    redraw();
}

void RateChart::redraw() {
    auto* chart = new QChart;
    chart->setTitle(QStringLiteral("QSO в час по диапазонам"));
    chart->legend()->setAlignment(Qt::AlignBottom);
    const QStringList columns = grid_->columns();
    const size_t hours = grid_->rowCount();
    auto* series = new QStackedBarSeries;
    QStringList labels;
    int peak = 0;
    for (size_t r = 0; r < hours; ++r) {
        const QStringList row = grid_->row(r);
        labels << row.value(0).right(2); // the hour; the table beside gives the date
        peak = std::max(peak, row.value(int(columns.size()) - 1).toInt());
    }
    // One set per band that has QSOs: the columns between the hour and the total.
    for (int c = 1; c + 1 < columns.size(); ++c) {
        auto* set = new QBarSet(columns[c]);
        int sum = 0;
        for (size_t r = 0; r < hours; ++r) {
            const int n = grid_->row(r).value(c).toInt();
            *set << n;
            sum += n;
        }
        if (sum > 0)
            series->append(set);
        else
            delete set;
    }
    chart->addSeries(series);
    auto* x = new QBarCategoryAxis;
    x->append(labels);
    x->setTitleText(QStringLiteral("Час"));
    chart->addAxis(x, Qt::AlignBottom);
    series->attachAxis(x);
    auto* y = new QValueAxis;
    y->setRange(0, std::max(peak, 1));
    // Whole QSOs on the scale: a tick per QSO while few, round steps beyond.
    if (peak <= 10)
        y->setTickCount(std::max(peak, 1) + 1);
    else
        y->applyNiceNumbers();
    y->setLabelFormat(QStringLiteral("%d"));
    y->setTitleText(QStringLiteral("QSO"));
    chart->addAxis(y, Qt::AlignLeft);
    series->attachAxis(y);
    QChart* old = this->chart();
    setChart(chart);
    delete old;
}

bool RateChart::savePng(const QString& path) {
    // Drawn at a size of its own, whether or not the window shows the chart just now.
    const QSizeF shown = chart()->size();
    const QSizeF size(std::max(shown.width(), 900.0), std::max(shown.height(), 500.0));
    chart()->resize(size);
    QPixmap picture(size.toSize());
    picture.fill(Qt::white);
    {
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        scene()->render(&painter, QRectF(QPointF(), size), QRectF(chart()->pos(), size));
    }
    chart()->resize(shown);
    return picture.save(path, "PNG");
}

} // namespace hfc

#include "paneldock.h"

#include "forms/control.h"

#include <QGuiApplication>
#include <QTimer>

namespace hfc {

PanelDock::PanelDock(const QString& objectName, const QString& title, QWidget* content,
                     Control* control, QWidget* parent)
    : QDockWidget(title, parent), control_(control), settle_(new QTimer(this)) {
    setObjectName(objectName); // the key of the panel in a saved layout
    setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
    setWidget(content);
    connect(control, &Control::changed, this, &PanelDock::follow);
    // Wait for the button to come up: a click on a box of the panel moves the focus only then.
    settle_->setInterval(30);
    connect(settle_, &QTimer::timeout, this, [this] {
        if (QGuiApplication::mouseButtons() != Qt::NoButton) return;
        settle_->stop();
        emit activationSettled();
    });
}

void PanelDock::follow() {
    if (isHidden() == control_->visible()) setVisible(control_->visible());
    // The content mirrors the same flag; a dock shown again must not hold a hidden panel.
    if (widget() && control_->visible() && widget()->isHidden()) widget()->show();
}

bool PanelDock::event(QEvent* e) {
    if (e->type() == QEvent::WindowActivate && isFloating()) settle_->start();
    return QDockWidget::event(e);
}

} // namespace hfc

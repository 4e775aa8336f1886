#pragma once
// Small pieces the window views share: array control names, the look of a heading, a heading
// that follows its box, and a first size that fits the screen.
#include "forms/form.h"

#include <QLabel>
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace hfc {

// "tq(3)": the name of an element of a control array.
inline QString arr(const char* base, int index) {
    return Form::arrayName(QLatin1String(base), index);
}

// A heading over or beside a box: quieter than the box's own text.
inline QLabel* caption(const QString& text, QWidget* parent = nullptr) {
    auto* l = new QLabel(text, parent);
    l->setStyleSheet(QStringLiteral("color: #404040;"));
    return l;
}

// A box the model hides takes its heading with it.
inline void headingFollows(QWidget* heading, Control* box) {
    heading->setVisible(box->visible());
    QObject::connect(box, &Control::changed, heading,
                     [heading, box] { heading->setVisible(box->visible()); });
}

// A window's first size: as wished on a large screen, cut to what the screen it is on has room
// for (a 1366x768 laptop), its title bar included.
inline void resizeWithinScreen(QWidget* window, int width, int height) {
    constexpr int kTitleBar = 40;
    const QRect avail = window->screen()->availableGeometry();
    window->resize(std::min(width, avail.width()), std::min(height, avail.height() - kTitleBar));
}

} // namespace hfc

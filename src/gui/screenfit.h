#pragma once
// A window's first size: as wished on a large screen, cut to what the screen it is on has room
// for (a 1366x768 laptop), its title bar included.
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace hfc {

inline void resizeWithinScreen(QWidget* window, int width, int height) {
    constexpr int kTitleBar = 40;
    const QRect avail = window->screen()->availableGeometry();
    window->resize(std::min(width, avail.width()), std::min(height, avail.height() - kTitleBar));
}

} // namespace hfc

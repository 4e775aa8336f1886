#pragma once
// The contest finder (Ctrl+K): a filter box over the 43 contests, by code, menu caption or
// title; Enter chooses the current entry as its menu item would.
#include "forms/form.h"

#include <functional>

namespace hfc {

class ChooserForm : public Form {
    Q_OBJECT
  public:
    // choose: runs the contest's menu item in the main window.
    ChooserForm(const Env& env, std::function<void(const QString& menuItem)> chooseItem,
                QObject* parent = nullptr);

    Control *lblfilter, *txtfilter, *lstcontests;

    void Form_Load();
    void filter(); // the list follows the filter box
    void choose(); // the current entry, if any
    void move(int step);

  private:
    std::function<void(const QString&)> choose_;
    QStringList shownItems_; // menu item of each list entry
    QString shownFilter_;
};

// The contests whose code, caption or title hold every word of the filter (any case), in menu
// order, as menu items.
QStringList matchingContests(const QString& filter);

} // namespace hfc

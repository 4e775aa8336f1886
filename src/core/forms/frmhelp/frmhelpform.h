#pragma once
// The help window FRMHELP: the contest calendar tree, the rules text of a contest and its results
// archive by year and mode, with entry of new results.
#include "forms/form.h"

#include <vector>

namespace hfc {

class FrmHelpForm : public Form {
    Q_OBJECT
  public:
    explicit FrmHelpForm(const Env& env, QObject* parent = nullptr);

    // calendar
    Control *kalendar, *tvwDb;
    // rules
    Control *lblhelp, *Text1, *txtcontest;
    // results: the year list, the mode options, the visible results box and the fields of the
    // results row shown (TXTREZUL1 is the stored twin of txtrez)
    Control *lblrez, *DBCombo1, *Option1, *Option2, *txtrez;
    Control *TXTREZUL1, *TXTMOD1, *txtcont1, *txtrez1, *txtgod1;
    // menu
    Control *mnukalendar, *mnunew, *mnusave, *mnuexit;

    // One tree node as the view draws it. The same data is mirrored on tvwDb as the extra
    // properties "keys", "parents", "images" and "expanded" (each joined by "|", index 1 first).
    struct TreeNode {
        QString key, parent, text, image;
        bool expanded = false;
    };
    std::vector<TreeNode> nodes; // nodes[0] is tree index 1

    QString contestcode; // handed over by the main window before it shows this window
    QString helpcode;    // the contest whose rules and results are shown
    QString helpmode;    // "CW" or "SSB"
    QString helpgod;     // the year typed for saving

    void Form_Load();
    void Form_Activate();
    void Form_KeyUp(Event& e);
    // calendar
    void tvwDb_Expand(int index);
    void tvwDb_Collapse(int index);
    void tvwDb_NodeClick(int index);
    void mnukalendar_Click();
    // rules and results
    void wwod1();
    void WWOD();
    void Option1_Click();
    void Option2_Click();
    void DBCombo1_Click();
    void mnusave_Click();
    void mnunew_Click();
    void mnuexit_Click();

  private:
    void buildTree();
    void syncTree();
    void setExpanded(int index, bool expanded);
    void registerResults();
    void loadYears();
    void loadResultsRow(const QString& year);
    qint64 resultsRowId_ = -1; // the results row the fields show; -1 when none
};

} // namespace hfc

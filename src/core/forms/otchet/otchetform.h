#pragma once
// The report window otchet as a headless model: the station data kept in tbltit, a band table
// recounted from the log each time the window becomes active, the output folder, the four
// buttons that write the report files and the two standard exports with their check list.
//   otchetform.cpp       controls, activation (recount, date range), folder list, exit
//   writerbuttons.cpp    the Cabrillo, ADIF, .LOG and .SUM buttons
//   standardbuttons.cpp  Cabrillo 3.0 and ADIF 3.1, the category boxes and the check list
//   ratechart.cpp        the band-by-hour table and the rate chart's PNG
#include "forms/form.h"
#include "reports/standard/cabrillo3.h"
#include "reports/writers.h"

#include <array>
#include <functional>

namespace hfc {

class BoundRow;

class OtchetForm : public Form {
    Q_OBJECT
  public:
    // currentContest gives the main window's contest code at the moment of activation.
    OtchetForm(const Env& env, std::function<QString()> currentContest, QObject* parent = nullptr);
    ~OtchetForm() override;

    static constexpr int BandRows = 7; // 1,8 3,5 7 14 21 28 sat
    static constexpr int CountedRows = 6;

    // ---------------------------------------------------------------- controls
    Control *Frame1, *tcont, *tcall, *tpod, *tname, *tadres, *tgor, *tstr; // station (tbltit)
    std::array<Control*, BandRows> lblb{}, tq{}, tdx{}, tz{}, tp{};        // band table (rezult)
    Control *tqtot, *tdxtot, *tztot, *tptot, *trezult;
    Control *lq, *ld, *lz, *lp, *Label17;
    Control *lblrez1, *Text3, *lblrez2, *Text2, *lblrez3, *Text1; // "Rezult. =(" m1 + m2 ") X" p
    Control* Text4;                                               // date range of the log
    // the claimed score by the sponsor's current rules, beside the table's figure
    Control *lblclaimed, *tclaimed;
    Control *Frame2, *Dir1, *txtput; // output folder
    Control *Ccabrila, *cmbAdif, *cmbreport, *cmbtit, *Command1;
    Control* lblstatus; // whether the last file was written, and where

    // Standard exports: what a log robot would flag, the Cabrillo 3.0 categories (filled from
    // the log on activation, then the operator's choice) and whose QTCs the WAE table holds.
    Control *lbllint, *lstlint;
    Control *cmbcatop, *cmbcatassist, *cmbcatband, *cmbcatmode, *cmbcatpower, *cmbcatstation,
        *cmbcattx, *cmbqtcrole;
    Control *cmbcab3, *cmbadif3;
    // The contest hour by hour: QSOs per band (the chart draws these rows) and its PNG button.
    Control *grdhours, *cmbchart;
    // Draws the chart into a PNG file; set by the window that shows the chart. Unset (the
    // script driver), the button says the chart is drawn only in the window.
    std::function<bool(const QString& path)> chartWriter;

    // ---------------------------------------------------------------- form-level state
    QString contestcode; // the main window's code, copied at activation

    // The outcome of the last writer button, for callers that are not looking at the window.
    bool lastWriteOk = false;
    QString lastWritePath;

    // ---------------------------------------------------------------- handlers
    void Form_Activate();
    void Dir1_MouseDown();
    void Command1_Click();
    void Ccabrila_Click();
    void cmbAdif_Click();
    void cmbreport_Click();
    void cmbtit_Click();
    void cmbcab3_Click();
    void cmbadif3_Click();
    void cmbchart_Click();

  private:
    void createControls();
    void registerHandlers();
    void captionButtons();
    void recount();
    void showDateRange();
    // writerbuttons.cpp
    StationBoxes stationBoxes() const;
    SummaryBoxes summaryBoxes() const;
    void writeReport(const QString& fileName, const std::function<QByteArray()>& build);
    static QString fitFileName(QString name);
    // standardbuttons.cpp
    void createStandardControls();
    void registerStandardHandlers();
    void fillStandardBoxes();
    void checkLog(); // reads the log
    void checkLog(const QList<LogRow>& rowsInEntryOrder);
    Cabrillo3Header cabrillo3Header(const QList<LogRow>& rows);
    // The station's full call kept with the log; the station box's call for a log without one.
    QString ownCall() const;
    void showClaimedScore();
    // ratechart.cpp
    void createChartControls();
    void fillHours();

    std::function<QString()> currentContest_;
    BoundRow* station_ = nullptr; // tbltit
    BoundRow* score_ = nullptr;   // rezult
};

} // namespace hfc

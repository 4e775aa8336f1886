#pragma once
// The DXCC prefix table window: browse tbldxcc by the beginning of a prefix or a country name,
// and add new prefixes.
#include "forms/form.h"

namespace hfc {

class Dxcc1Form : public Form {
    Q_OBJECT
  public:
    explicit Dxcc1Form(const Env& env, QObject* parent = nullptr);

    // search grid and the two search boxes
    Control *DBGrid1, *lblserch, *txtserch, *txtserch1;
    // the entry frame
    Control *frdxcc, *lblprf, *txtprf, *lblpref, *txtpref, *lblstran, *txtstran, *lblkont, *txtkont,
        *lblzone, *txtitu, *txtcq;
    // the fields of the row being added
    Control *txtprf1, *txtpref1, *txtstran1, *txtkont1, *txtcq1, *txtitu1;
    Control *cmbadd, *cmbexit;

    // allowed characters: prefixes, continents and country names; zones
    QString chars, digits;

    void Form_Load();
    void boxKeyPress(const QString& box, Event& e); // every entry and search box
    void searchByPrefix();
    void searchByCountry();
    void cmbAdd_Click();
    void CMBEXIT_Click();

  private:
    void showRows(const QString& sql, const QString& pattern);
};

} // namespace hfc

#pragma once
// The settings window ("Сервис" → "Настройки…"): what a person sets once per station, one group
// per link (transceiver, DX cluster, keyer, multi-operator). Saved to the station's conf file;
// the links read the saved values and reconnect.
#include "forms/form.h"
#include "station/settings.h"

namespace hfc {

class SettingsForm : public Form {
    Q_OBJECT
  public:
    explicit SettingsForm(const Env& env, QObject* parent = nullptr);

    // groups
    Control *frRig, *frCluster, *frKeyer, *frMultiop;
    // [rig]
    Control *txtrigctld, *txtrigmodel, *txtrigport, *txtrigspeed, *txtft1000mp;
    // [cluster]
    Control *txtclusterhost, *txtclusterlogin;
    // [keyer]
    Control *cmbkeyer, *txtcwdaemon, *txtwinkeyer, *chkesm;
    // [multiop]
    Control *txtbroker, *txtlogid, *txtnode, *txtuser, *txtpassword;
    Control *cmdsave, *cmdcancel;

    void Form_Load(); // the boxes show the settings in use
    void cmdsave_Click();
    void cmdcancel_Click();
    // The boxes read back; false (why set, the box at fault in bad) when one is not usable.
    bool collect(StationSettings& out, QString& why, Control*& bad) const;

    static QStringList keyerBackends();

  signals:
    // The new settings are saved and in Env::settings: the links connect anew.
    void saved();

  private:
    Control* box(const QString& name, const QString& caption, Control* frame,
                 Control::Kind kind = Control::Kind::TextBox);
};

} // namespace hfc

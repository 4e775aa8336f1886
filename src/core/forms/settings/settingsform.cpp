#include "forms/settings/settingsform.h"

#include <QSettings>

namespace hfc {

using K = Control::Kind;

namespace {

const QString kTitle = QStringLiteral("Настройки");

// An address box: empty, or HOST:PORT.
bool addressOk(const Control* c) {
    QString host;
    quint16 port = 0;
    return c->text().trimmed().isEmpty() || splitHostPort(c->text().trimmed(), host, port);
}

// A number box: empty (0) or a whole number from 0 up.
bool numberOf(const Control* c, int& out) {
    const QString t = c->text().trimmed();
    if (t.isEmpty()) {
        out = 0;
        return true;
    }
    bool ok = false;
    out = t.toInt(&ok);
    return ok && out >= 0;
}

} // namespace

SettingsForm::SettingsForm(const Env& env, QObject* parent)
    : Form(QStringLiteral("settings"), env, parent) {
    windowTitle = kTitle;
    frRig = add("frRig", K::Frame, "Трансивер (Hamlib)");
    frCluster = add("frCluster", K::Frame, "DX-кластер");
    frKeyer = add("frKeyer", K::Frame, "Телеграфный ключ");
    frMultiop = add("frMultiop", K::Frame, "Несколько операторов (MQTT)");

    txtrigctld = box("txtrigctld", "rigctld, ХОСТ:ПОРТ", frRig);
    txtrigmodel = box("txtrigmodel", "или модель Hamlib", frRig);
    txtrigport = box("txtrigport", "её порт", frRig);
    txtrigspeed = box("txtrigspeed", "скорость, бод", frRig);
    txtft1000mp = box("txtft1000mp", "порт команды FT-1000MP", frRig);
    txtclusterhost = box("txtclusterhost", "кластер, ХОСТ:ПОРТ", frCluster);
    txtclusterlogin = box("txtclusterlogin", "позывной для входа", frCluster);
    cmbkeyer = box("cmbkeyer", "как передавать", frKeyer, K::Combo);
    cmbkeyer->setItems(keyerBackends());
    txtcwdaemon = box("txtcwdaemon", "cwdaemon, ХОСТ:ПОРТ", frKeyer);
    txtwinkeyer = box("txtwinkeyer", "порт Winkeyer", frKeyer);
    chkesm = box("chkesm", "Enter передаёт (ESM)", frKeyer, K::CheckBox);
    txtbroker = box("txtbroker", "брокер, ХОСТ:ПОРТ", frMultiop);
    txtlogid = box("txtlogid", "имя общего журнала", frMultiop);
    txtnode = box("txtnode", "имя этого компьютера", frMultiop);
    txtuser = box("txtuser", "пользователь", frMultiop);
    txtpassword = box("txtpassword", "пароль", frMultiop);
    cmdsave = add("cmdsave", K::Button, "Сохранить");
    cmdcancel = add("cmdcancel", K::Button, "Отмена");
    tabOrder = {"txtrigctld",     "txtrigmodel",     "txtrigport", "txtrigspeed", "txtft1000mp",
                "txtclusterhost", "txtclusterlogin", "cmbkeyer",   "txtcwdaemon", "txtwinkeyer",
                "chkesm",         "txtbroker",       "txtlogid",   "txtnode",     "txtuser",
                "txtpassword",    "cmdsave",         "cmdcancel"};

    proc("Form_Load", [this] { Form_Load(); });
    proc("cmdsave_Click", [this] { cmdsave_Click(); });
    proc("cmdcancel_Click", [this] { cmdcancel_Click(); });
    proc("chkesm_Click", [this] { chkesm->setValue(chkesm->checked() ? 0 : 1); });
}

Control* SettingsForm::box(const QString& name, const QString& caption, Control* frame,
                           Control::Kind kind) {
    Control* c = add(name, kind, kind == K::CheckBox ? caption : QString());
    c->setExtra(QStringLiteral("frame"), frame->name());
    // The heading a view puts beside the box.
    c->setExtra(QStringLiteral("caption"), caption);
    return c;
}

QStringList SettingsForm::keyerBackends() {
    return {"serial", "cwdaemon", "winkeyer", "rigctld"};
}

void SettingsForm::Form_Load() {
    const StationSettings s = env().settings ? *env().settings : StationSettings{};
    const auto number = [](int v) { return v > 0 ? QString::number(v) : QString(); };
    txtrigctld->setText(s.rigctld);
    txtrigmodel->setText(number(s.rigModel));
    txtrigport->setText(s.rigPort);
    txtrigspeed->setText(number(s.rigSpeed));
    txtft1000mp->setText(s.ft1000mp);
    txtclusterhost->setText(s.clusterHost);
    txtclusterlogin->setText(s.clusterLogin);
    cmbkeyer->setText(s.keyerBackend);
    txtcwdaemon->setText(s.cwdaemon);
    txtwinkeyer->setText(s.winkeyer);
    chkesm->setValue(s.esm ? 1 : 0);
    txtbroker->setText(s.broker);
    txtlogid->setText(s.logid);
    txtnode->setText(s.node);
    txtuser->setText(s.user);
    txtpassword->setText(s.password);
    setFocus(txtrigctld);
}

bool SettingsForm::collect(StationSettings& out, QString& why, Control*& bad) const {
    out = env().settings ? *env().settings : StationSettings{};
    for (Control* c : {txtrigctld, txtclusterhost, txtcwdaemon, txtbroker}) {
        if (addressOk(c)) continue;
        why = QStringLiteral("«%1» — не адрес. Нужно ХОСТ:ПОРТ, например 127.0.0.1:4532.")
                  .arg(c->text().trimmed());
        bad = c;
        return false;
    }
    if (!numberOf(txtrigmodel, out.rigModel)) {
        why = QStringLiteral("Модель Hamlib — это номер (например 1035 для FT-1000MP; список: "
                             "rigctl -l).");
        bad = txtrigmodel;
        return false;
    }
    if (!numberOf(txtrigspeed, out.rigSpeed)) {
        why = QStringLiteral("Скорость порта — это число бод (например 4800).");
        bad = txtrigspeed;
        return false;
    }
    const QString backend = cmbkeyer->text().trimmed();
    if (!keyerBackends().contains(backend)) {
        why =
            QStringLiteral("Способ передачи: %1.").arg(keyerBackends().join(QStringLiteral(", ")));
        bad = cmbkeyer;
        return false;
    }
    out.rigctld = txtrigctld->text().trimmed();
    out.rigPort = txtrigport->text().trimmed();
    out.ft1000mp = txtft1000mp->text().trimmed();
    out.clusterHost = txtclusterhost->text().trimmed();
    out.clusterLogin = txtclusterlogin->text().trimmed();
    out.keyerBackend = backend;
    out.cwdaemon = txtcwdaemon->text().trimmed();
    out.winkeyer = txtwinkeyer->text().trimmed();
    out.esm = chkesm->checked();
    out.broker = txtbroker->text().trimmed();
    out.logid = txtlogid->text().trimmed();
    out.node = txtnode->text().trimmed();
    out.user = txtuser->text();
    out.password = txtpassword->text();
    return true;
}

void SettingsForm::cmdsave_Click() {
    StationSettings s;
    QString why;
    Control* bad = nullptr;
    if (!collect(s, why, bad)) {
        msgbox(why, kTitle);
        setFocus(bad);
        return;
    }
    // Only this window's keys are written; the program's own (the window's place, the keyer's
    // texts) stay as they are in the same file.
    const QString path = StationSettings::defaultPath();
    {
        QSettings conf(path, QSettings::IniFormat);
        s.save(conf);
        conf.sync();
        if (conf.status() != QSettings::NoError) {
            msgbox(QStringLiteral("Настройки не записаны в %1: нет доступа к файлу. Действуют "
                                  "прежние.")
                       .arg(path),
                   QStringLiteral("Ошибка !!!"));
            return;
        }
    }
    if (env().settings) *env().settings = s;
    emit saved();
    unload();
}

void SettingsForm::cmdcancel_Click() {
    unload();
}

} // namespace hfc

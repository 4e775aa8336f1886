#include "forms/prow/prowform.h"

namespace hfc {

ProwForm::ProwForm(const Env& env, QObject* parent) : Form(QStringLiteral("prow"), env, parent) {
    windowTitle = QStringLiteral("Проверка журнала");
    escCloses = true;
    txtprow = add("txtprow", Control::Kind::TextBox);
    txtprow->setExtra("multiline", "1");
    cmbexit = add("cmbexit", Control::Kind::Button, "Закрыть");
    proc("cmbexit_Click", [this] { unload(); });
}

} // namespace hfc

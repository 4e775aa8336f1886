#include "forms/ui.h"

namespace hfc {

QString buttonsName(Ui::Buttons b) {
    switch (b) {
    case Ui::Buttons::Ok:
        return QStringLiteral("ok");
    case Ui::Buttons::YesNo:
        return QStringLiteral("yesno");
    case Ui::Buttons::OkCancel:
        return QStringLiteral("okcancel");
    }
    return {};
}

} // namespace hfc

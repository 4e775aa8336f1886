#pragma once
// Dialogs a window model may show. The Qt views answer them with real dialogs; the script driver
// answers from its queue and records what was shown.
#include <QString>
#include <optional>
#include <stdexcept>

namespace hfc {

class Ui {
  public:
    enum class Buttons { Ok, YesNo, OkCancel };
    enum class Answer { Ok, Cancel, Yes, No };

    virtual ~Ui() = default;
    virtual Answer msgbox(const QString& text, const QString& title, Buttons buttons) = 0;
    // nullopt when the operator cancels (an input box then returns "" to its caller)
    virtual std::optional<QString> inputbox(const QString& prompt, const QString& title) = 0;
    // "" when cancelled
    virtual QString openFile(const QString& filter) = 0;
};

QString buttonsName(Ui::Buttons b); // "ok", "yesno", "okcancel"

// Raised by the script driver's dialogs when no answer was queued.
class ScriptAbort : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

} // namespace hfc

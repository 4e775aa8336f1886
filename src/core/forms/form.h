#pragma once
// The headless window model: named controls, named handlers and procedures, named form-level
// variables, and the event path (focus, key down / key press / key up, clicks) that both the Qt
// views and the script driver use.
#include "forms/control.h"
#include "forms/env.h"
#include "forms/ui.h"

#include <QHash>
#include <QObject>
#include <functional>
#include <optional>
#include <vector>

namespace hfc {

struct Event {
    int index = -1;   // control-array index
    int keyAscii = 0; // KeyPress: a handler may change it; 0 drops the key
    int keyCode = 0;  // KeyDown / KeyUp
    int shift = 0;    // 1 Shift, 2 Ctrl, 4 Alt
    QStringList args;
};

using Handler = std::function<void(Event&)>;

// Key codes used by the handlers.
namespace keys {
constexpr int Backspace = 8, Tab = 9, Enter = 13, Esc = 27, End = 35, Home = 36, Left = 37, Up = 38,
              Right = 39, Down = 40, Delete = 46, F1 = 112, F2 = 113, F9 = 120, F12 = 123;
}

class Form : public QObject {
    Q_OBJECT
  public:
    Form(const QString& name, const Env& env, QObject* parent = nullptr);
    ~Form() override;

    const QString& name() const { return name_; }
    Env& env() { return env_; }
    const Env& env() const { return env_; }

    // --- controls ---
    Control* add(const QString& name, Control::Kind kind, const QString& text = {});
    std::vector<Control*> addArray(const QString& base, int count, Control::Kind kind);
    Control* control(const QString& name) const; // "txtcall", "cmbband(3)"; nullptr if unknown
    const std::vector<Control*>& controls() const { return order_; }
    static QString baseName(const QString& name, int* index = nullptr);
    static QString arrayName(const QString& base, int index); // "cmbband(3)"

    // --- handlers and procedures ---
    // params name the arguments a script `call` passes: "Index", "KeyAscii", "KeyCode", "Shift".
    void on(const QString& name, Handler h, const QStringList& params = {});
    void proc(const QString& name, std::function<void()> f);
    bool hasHandler(const QString& name) const { return handlers_.contains(name); }
    bool fire(const QString& name, Event& ev);
    bool fire(const QString& name);
    bool call(const QString& name, const QStringList& args); // false: unknown name

    // --- form-level variables ---
    void var(const QString& name, QString& ref);
    void var(const QString& name, int& ref);
    void var(const QString& name, double& ref);
    void var(const QString& name, std::function<QString()> get, std::function<void(QString)> set);
    bool hasVar(const QString& name) const { return vars_.contains(name); }
    QString getVar(const QString& name) const;
    bool setVar(const QString& name, const QString& value);

    // --- focus and keys ---
    Control* focused() const { return focus_; }
    QString focusName() const;
    void setFocus(const QString& name); // array base name: its checked element, else (0)
    void setFocus(Control* c);
    void typeChar(QChar c);
    void typeText(const QString& text);
    void pressKey(int keyCode, int shift = 0);
    void click(const QString& controlName);
    void click(Control* c);
    bool keyPreview = false; // the form sees keys before its controls
    bool escCloses = false;  // a window of its own: Esc closes it, as a person expects

    // --- window ---
    bool isShown() const { return shown_; }
    void show();
    void unload();
    virtual Form* subForm(const QString&) { return nullptr; }
    QStringList tabOrder; // control names; Tab moves along it
    QString windowTitle;  // the caption of the window

    // dialogs
    Ui::Answer msgbox(const QString& text, const QString& title, Ui::Buttons b = Ui::Buttons::Ok);
    QString inputbox(const QString& prompt, const QString& title); // "" on Cancel

  signals:
    void focusChanged(hfc::Control* now);
    void shownChanged(bool shown);
    void formOpened(hfc::Form* child);

  protected:
    virtual void onUnload() {}

  private:
    void runHandler(const Handler& fn, Event& ev);
    void keyDown(int keyCode, int shift);
    void keyUp(int keyCode, int shift);
    void keyEvent(const QString& suffix, int keyCode, int shift);
    void moveCaret(int keyCode);
    bool keyPress(Control* target, int& keyAscii);

    QString name_;
    Env env_;
    QHash<QString, Control*> byName_;
    std::vector<Control*> order_;
    struct HandlerEntry {
        Handler fn;
        QStringList params;
    };
    QHash<QString, HandlerEntry> handlers_;
    struct VarEntry {
        std::function<QString()> get;
        std::function<void(QString)> set;
    };
    QHash<QString, VarEntry> vars_;
    Control* focus_ = nullptr;
    bool shown_ = false;
    int handlerDepth_ = 0; // handlers running, one inside another
};

// The text of a number the way the window writes it (whole numbers without a fraction).
QString num(long long v);
// The numeric value of a text the way the window reads it: leading blanks skipped, the leading
// digits (with sign) taken, anything else 0.
long long val(const QString& s);

} // namespace hfc

#pragma once
// Binds Qt widgets to the controls of a window model: each widget mirrors its control's
// properties, and the operator's keys, clicks and focus go into the model through its event
// path. The widgets hold no state and no rules of their own.
#include "forms/form.h"

#include <QHash>
#include <QObject>

class QWidget;
class QAction;
class QKeyEvent;
class QTreeWidget;
class QListWidget;

namespace hfc {

class Binder : public QObject {
    Q_OBJECT
  public:
    explicit Binder(Form* form, QObject* parent = nullptr);

    Form* form() const { return form_; }
    // Creates the widget that fits the control's kind and binds it.
    QWidget* make(const QString& controlName, QWidget* parent = nullptr);
    QWidget* make(Control* c, QWidget* parent = nullptr);
    // Binds a menu action to a menu-item control. The mnemonic letter (Alt+letter) is marked in
    // the action's text only; the control's caption stays as the window has it.
    QAction* makeAction(const QString& controlName, QObject* parent, QChar mnemonic = {});
    // A caption with "&" before the first occurrence of the letter (any case), "&" escaped.
    static QString withMnemonic(const QString& caption, QChar mnemonic);
    QWidget* widget(const QString& controlName) const;
    // The view's own look for a bound widget (style-sheet declarations: font, colour); the
    // control's backcolor is mirrored on top of it instead of replacing it.
    void setBaseStyle(QWidget* w, const QString& declarations);

    // A window of its own follows its model's shown state: opened, it comes to the front with the
    // keyboard; closed, it hands the keyboard back to the window it was opened from.
    static void followShown(Form* form, QWidget* window);

    // Translates a Qt key event into the window's key codes; true when it was forwarded.
    static bool forwardKey(Form* form, QKeyEvent* e);
    static int vkCode(int qtKey);
    // The Latin letter on the key of a Cyrillic letter in the Russian layout; 0 for others.
    static int latinKeyAt(int qtKey);
    // A key that types a character (not a control code, no Ctrl or Alt held).
    static bool typesCharacter(const QKeyEvent* e);

  signals:
    // F10 without modifiers: the key that takes the keyboard to the window's menu bar.
    void menuKeyPressed();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void mirror(Control* c, QWidget* w);
    void mirrorTree(Control* c, QTreeWidget* t);
    void mirrorList(Control* c, QListWidget* l);
    void onFocusChanged(Control* c);
    void takeSelection(Control* c, QObject* watched);
    bool paste(Control* c, QObject* watched, QKeyEvent* ke);
    static bool keepsInEditableGrid(const QKeyEvent* ke);
    bool treeKey(Control* c, QObject* watched, QKeyEvent* ke);

    Form* form_;
    QHash<Control*, QWidget*> widgets_;
    QHash<QObject*, Control*> controls_;
    bool mirroring_ = false;
};

} // namespace hfc

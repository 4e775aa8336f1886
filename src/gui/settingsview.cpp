#include "settingsview.h"

#include "binder.h"
#include "forms/form.h"
#include "viewparts.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHash>
#include <QVBoxLayout>

namespace hfc {

SettingsView::SettingsView(Form* form, QWidget* parent)
    : QWidget(parent, Qt::Window), form_(form), binder_(new Binder(form, this)) {
    setWindowTitle(form->windowTitle);
    auto* v = new QVBoxLayout(this);
    auto* groups = new QGridLayout;
    // The groups two by two; each box goes into the group its model names, under its heading.
    QHash<QString, QFormLayout*> inside;
    int n = 0;
    for (Control* c : form->controls()) {
        if (c->kind() != Control::Kind::Frame) continue;
        QWidget* box = binder_->make(c);
        inside.insert(c->name(), new QFormLayout(box));
        groups->addWidget(box, n / 2, n % 2);
        ++n;
    }
    v->addLayout(groups);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    for (Control* c : form->controls()) {
        if (c->kind() == Control::Kind::Frame) continue;
        QFormLayout* group = inside.value(c->extra(QStringLiteral("frame")), nullptr);
        QWidget* w = binder_->make(c);
        if (!group) {
            buttons->addWidget(w);
            continue;
        }
        if (c->kind() == Control::Kind::CheckBox)
            group->addRow(QString(), w);
        else
            group->addRow(caption(c->extra(QStringLiteral("caption"))), w);
    }
    v->addStretch(1);
    v->addLayout(buttons);
    resizeWithinScreen(this, 820, 420);
    Binder::followShown(form, this);
}

} // namespace hfc

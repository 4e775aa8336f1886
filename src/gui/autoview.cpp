#include "autoview.h"

#include "binder.h"
#include "forms/form.h"
#include "viewparts.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QHash>
#include <QLabel>
#include <QMenuBar>
#include <QSet>
#include <QVBoxLayout>

namespace hfc {

AutoView::AutoView(Form* form, QWidget* parent)
    : QWidget(parent, Qt::Window), form_(form), binder_(new Binder(form, this)) {
    setWindowTitle(form->windowTitle.isEmpty() ? form->name() : form->windowTitle);
    auto* v = new QVBoxLayout(this);
    auto* menus = new QMenuBar(this);
    bool anyMenu = false;
    QSet<QChar> usedLetters;
    auto* grid = new QGridLayout;
    int row = 0;
    // Frames become group boxes; a control whose "frame" names one is laid out inside it, so
    // hiding the frame hides what it holds.
    QHash<QString, QGridLayout*> frames;
    for (Control* c : form->controls()) {
        if (c->kind() != Control::Kind::Frame) continue;
        QWidget* box = binder_->make(c);
        frames.insert(c->name(), new QGridLayout(box));
        grid->addWidget(box, row++, 0, 1, 2);
    }
    for (Control* c : form->controls()) {
        if (c->kind() == Control::Kind::Menu) {
            // Alt and the first letter of the caption not taken by an earlier menu.
            QChar letter;
            for (const QChar ch : c->text())
                if (ch.isLetter() && !usedLetters.contains(ch.toUpper())) {
                    letter = ch;
                    usedLetters.insert(ch.toUpper());
                    break;
                }
            menus->addAction(binder_->makeAction(c->name(), this, letter));
            anyMenu = true;
            continue;
        }
        if (c->kind() == Control::Kind::Timer || c->kind() == Control::Kind::Frame) continue;
        QWidget* w = binder_->make(c);
        if (!w) continue;
        if (QGridLayout* inner = frames.value(c->extra(QStringLiteral("frame")), nullptr)) {
            inner->addWidget(w, inner->rowCount(), 0);
            continue;
        }
        const bool multiline = c->extra(QStringLiteral("multiline")) == QLatin1String("1");
        if (multiline) {
            grid->addWidget(w, row, 0, 1, 2);
            grid->setRowStretch(row++, 2);
            continue;
        }
        const bool wide = c->kind() == Control::Kind::Grid || c->kind() == Control::Kind::Tree ||
                          c->kind() == Control::Kind::DirList || c->kind() == Control::Kind::List;
        if (c->kind() == Control::Kind::TextBox || c->kind() == Control::Kind::Combo) {
            // A box's heading is the model's word for it; its control name is nobody's business.
            auto* head = new QLabel(c->extra(QStringLiteral("heading")));
            grid->addWidget(head, row, 0);
            grid->addWidget(w, row, 1);
            headingFollows(head, c);
        } else {
            grid->addWidget(w, row, wide ? 0 : 1, 1, wide ? 2 : 1);
            if (wide) grid->setRowStretch(row, 1); // tables and trees take the room there is
        }
        ++row;
    }
    if (anyMenu)
        v->setMenuBar(menus);
    else
        delete menus;
    v->addLayout(grid);
    resizeWithinScreen(this, 700, 600);
    Binder::followShown(form, this);
}

} // namespace hfc

// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/dialogs/FindDialog.h"
#include "desktop/base/Listen.h"
#include "desktop/bind/BindControls.h"
#include "desktop/text/TextView.h"
#include "ui_frmFind.h"
#include <QLineEdit>
#include <QScreen>
#include <QShortcut>

namespace desktop {

FindDialog::FindDialog(textview::frmFind& form, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::frmFind>()) {
    ui_->setupUi(this);
    BindControls(*this, {{"cmbFind", &form.cmbFind},
                         {"cmbReplace", &form.cmbReplace},
                         {"chkWW", &form.chkWW},
                         {"chkMC", &form.chkMC},
                         {"chkHL", &form.chkHL},
                         {"optDU", &form.optDU},
                         {"optDD", &form.optDD},
                         {"optDA", &form.optDA},
                         {"cmdFind", &form.cmdFind},
                         {"cmdReplace", &form.cmdReplace},
                         {"cmdReplaceAll", &form.cmdReplaceAll},
                         {"cmdDelete", &form.cmdDelete},
                         {"cmdCancel", &form.cmdCancel}});
    for (const QPushButton* button : {ui_->cmdFind, ui_->cmdReplace})
        connect(button, &QPushButton::clicked, this, &FindDialog::UncoverHit); // behind the search
    const auto find = [this](const QKeySequence& keys, bool up) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, [this, up] {
            form_.FindNext(up);
            UncoverHit();
        });
    };
    find(QKeySequence(Qt::Key_F3), false);
    find(QKeySequence(Qt::SHIFT | Qt::Key_F3), true);
    Listen(form.unloaded, this, [this] { hide(); });
}

FindDialog::~FindDialog() = default;

void FindDialog::ShowInFront() {
    if (!isVisible())
        PlaceAside();
    show();
    raise();
    activateWindow();
    ui_->cmbFind->setFocus(Qt::OtherFocusReason);
    ui_->cmbFind->lineEdit()->selectAll();
}

// At the right, where it covers the beginning of few lines.
void FindDialog::PlaceAside() {
    constexpr int kMargin = 40, kBars = 190;
    adjustSize();
    const QPoint place(parentWidget()->width() - width() - kMargin, kBars);
    move(parentWidget()->mapToGlobal(place));
}

// Below the hit, or above it where there is no room.
void FindDialog::UncoverHit() {
    constexpr int kGap = 12;
    for (const TextView* view : parentWidget()->findChildren<TextView*>()) {
        if (&view->Model() != form_.Target() || !view->isVisible())
            continue;
        const TextRange range = view->Selection();
        const QRect shown = view->viewport()->rect() & (view->RectAt(range.start) | view->RectAt(range.end));
        const QRect hit(view->viewport()->mapToGlobal(shown.topLeft()), shown.size());
        QRect frame = frameGeometry();
        if (!frame.intersects(hit))
            continue;
        frame.moveTop(hit.bottom() + kGap);
        if (frame.bottom() > screen()->availableGeometry().bottom())
            frame.moveBottom(hit.top() - kGap);
        move(frame.topLeft());
    }
}

void FindDialog::reject() {
    form_.cmdCancel.Click();
}

} // namespace desktop

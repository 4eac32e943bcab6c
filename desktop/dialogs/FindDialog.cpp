// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/dialogs/FindDialog.h"
#include "desktop/base/ControlEvents.h"
#include "desktop/base/Listen.h"
#include "desktop/bind/ChoiceAdapter.h"
#include "desktop/text/TextView.h"
#include "ui_frmFind.h"
#include <QLineEdit>
#include <QScreen>

namespace desktop {

FindDialog::FindDialog(frmFind& form, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::frmFind>()) {
    ui_->setupUi(this);
    MakeBox(form.cmbFind, *ui_->cmbFind);
    MakeBox(form.cmbReplace, *ui_->cmbReplace);
    MakeCheck(form.chkWW, *ui_->chkWW);
    MakeCheck(form.chkMC, *ui_->chkMC);
    MakeCheck(form.chkHL, *ui_->chkHL);
    MakeOption(form.optDU, *ui_->optDU);
    MakeOption(form.optDD, *ui_->optDD);
    MakeOption(form.optDA, *ui_->optDA);
    MakeButton(form.cmdFind, *ui_->cmdFind);
    MakeButton(form.cmdReplace, *ui_->cmdReplace);
    for (const QPushButton* button : {ui_->cmdFind, ui_->cmdReplace})
        connect(button, &QPushButton::clicked, this, &FindDialog::UncoverHit);
    MakeButton(form.cmdReplaceAll, *ui_->cmdReplaceAll);
    MakeButton(form.cmdDelete, *ui_->cmdDelete);
    MakeButton(form.cmdCancel, *ui_->cmdCancel);
    ui_->cmdDelete->setText(form.cmdDelete.Caption);
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

void FindDialog::MakeBox(controls::ComboBox& model, QComboBox& widget) {
    new ChoiceAdapter(model, widget, this);
    boxEvents_.push_back(std::make_unique<ControlEvents>(widget, nullptr));
    boxEvents_.back()->lostFocus = [&model] { model.LostFocus(); };
}

void FindDialog::MakeCheck(controls::CheckBox& model, QCheckBox& widget) {
    const auto showValue = [&model, &widget] { widget.setChecked(model.Value() == 1); };
    showValue();
    Listen(model.changed, &widget, showValue);
    connect(&widget, &QCheckBox::clicked, this, [&model](bool ticked) { model.UserSet(ticked); });
}

void FindDialog::MakeOption(controls::OptionButton& model, QRadioButton& widget) {
    // Unchecking follows from another one of the group being checked.
    const auto showValue = [&model, &widget] {
        if (model.Value())
            widget.setChecked(true);
    };
    showValue();
    Listen(model.changed, &widget, showValue);
    connect(&widget, &QRadioButton::clicked, this, [&model] { model.UserChose(); });
}

void FindDialog::MakeButton(controls::CommandButton& model, QPushButton& widget) {
    connect(&widget, &QPushButton::clicked, this, [&model] { model.Click(); });
}

} // namespace desktop

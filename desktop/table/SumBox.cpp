// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/table/SumBox.h"
#include "desktop/table/SheetPlaces.h"
#include <QAbstractItemView>

namespace desktop {

namespace {

/// Tells before its list opens.
class DroppingBox : public QComboBox {
public:
    DroppingBox(controls::ComboBox& model, QWidget* parent) : QComboBox(parent), model_(model) {}
    void showPopup() override {
        model_.DropDown();
        setCurrentIndex(-1); // no item is chosen as long as the list is open
        QComboBox::showPopup();
    }

private:
    controls::ComboBox& model_;
};

} // namespace

SumBox::SumBox(DocumentWindow& window, QWidget& view)
    : window_(window), view_(view), box_(new DroppingBox(window.cmbSum, &view)),
      choice_(std::make_unique<ChoiceAdapter>(window.cmbSum, *box_, nullptr)), events_(*box_, this) {
    box_->setObjectName(QStringLiteral("cmbSum"));
    box_->setMaxVisibleItems(9);
    box_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box_->view()->setMinimumWidth(120);
    events_.keyDown = [this](int& key, int modifiers) {
        if (KeyPressed(key, modifiers))
            key = 0;
        else
            window_.cmbSum.KeyDown(key, modifiers);
    };
    Listen(window.cmbSum.changed, this, [this] { Show(); });
    Listen(window.cmbSum.moved, this, [this] { Place(); });
    Listen(window.pctTV.moved, this, [this] { Place(); });
    Listen(window.cmbSum.focusRequested, this, [this] { box_->setFocus(Qt::OtherFocusReason); });
    Show();
}

SumBox::~SumBox() {
    choice_.reset();
    delete box_;
}

bool SumBox::KeyPressed(int& key, int modifiers) {
    const bool opens = key == Qt::Key_F4 || key == Qt::Key_Space ||
                       (key == Qt::Key_Down && (modifiers & static_cast<int>(Qt::AltModifier)));
    if (opens)
        box_->showPopup();
    return opens;
}

void SumBox::Show() {
    const bool visible = window_.cmbSum.Visible();
    if (!visible && (box_->hasFocus() || box_->view()->hasFocus()))
        view_.setFocus(Qt::OtherFocusReason);
    box_->setVisible(visible);
    if (visible)
        Place();
}

void SumBox::Place() {
    if (!window_.cmbSum.Visible())
        return;
    box_->setGeometry(SheetPlaces(window_, view_.size()).RectOf(window_.cmbSum.Place()));
    box_->raise();
}

} // namespace desktop

// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/dialogs/EditNodesDialog.h"
#include "desktop/base/Listen.h"
#include "desktop/base/ThemeIcons.h"
#include "desktop/base/Twips.h"
#include "desktop/bind/BindControls.h"
#include "ui_frmEditNodes.h"
#include <QKeyEvent>
#include <QScreen>

namespace desktop {

namespace {

// Without an icon theme the style draws the arrow.
void ShowArrow(QToolButton& button, const char* icon, Qt::ArrowType arrow) {
    button.setIcon(ThemeIcon(QLatin1String(icon)));
    if (button.icon().isNull())
        button.setArrowType(arrow);
}

} // namespace

EditNodesDialog::EditNodesDialog(nodes::frmEditNodes& form, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::frmEditNodes>()),
      reason_(form.Messages(), *this) {
    ui_->setupUi(this);
    BindControls(*this, {{"lXPath", &form.lXPath},
                         {"lNodeName", &form.lNodeName},
                         {"lAttrs", &form.lAttrs},
                         {"lText", &form.lText},
                         {"txtXPath", &form.txtXPath},
                         {"txtNodeName", &form.txtNodeName},
                         {"txtNodeAttrs", &form.txtNodeAttrs},
                         {"txtNodeText", &form.txtNodeText},
                         {"cmdUp", &form.cmdUp},
                         {"cmdDown", &form.cmdDown},
                         {"cmdLeft", &form.cmdLeft},
                         {"cmdRight", &form.cmdRight},
                         {"cmdOk", &form.cmdOk},
                         {"cmdCancel", &form.cmdCancel},
                         {"optTree", &form.optTree},
                         {"optList", &form.optList}});
    ShowArrow(*ui_->cmdUp, "go-up", Qt::UpArrow);
    ShowArrow(*ui_->cmdDown, "go-down", Qt::DownArrow);
    ShowArrow(*ui_->cmdLeft, "go-previous", Qt::LeftArrow);
    ShowArrow(*ui_->cmdRight, "go-next", Qt::RightArrow);
    for (QWidget* child : findChildren<QWidget*>())
        child->installEventFilter(this);
    Listen(form.unloaded, this, [this] { hide(); });
}

EditNodesDialog::~EditNodesDialog() = default;

// The layout gives the text its half of the room; alone, the value box has all of it.
void EditNodesDialog::ShowForm() {
    if (!isVisible()) {
        const int room = ToPixels(5795) + sizeHint().height() - ui_->boxes->sizeHint().height();
        resize(QSize(std::max(width(), 520), room).boundedTo(screen()->availableSize() * 0.9));
    }
    show();
    raise();
    activateWindow();
}

void EditNodesDialog::reject() {
    form_.cmdCancel.Click();
}

bool EditNodesDialog::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto* press = static_cast<QKeyEvent*>(event);
        int key = press->key();
        form_.Form_KeyDown(key, static_cast<int>(press->modifiers()));
        if (key != press->key())
            return true;
    }
    return QDialog::eventFilter(watched, event);
}

bool EditNodesDialog::event(QEvent* event) {
    if (event->type() == QEvent::WindowDeactivate)
        form_.Form_Deactivate();
    // The area of the documents takes the main window along when it brings one to the front.
    if (event->type() == QEvent::WindowActivate && form_.Form_Activate())
        activateWindow();
    return QDialog::event(event);
}

} // namespace desktop

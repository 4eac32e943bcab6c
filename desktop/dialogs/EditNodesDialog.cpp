// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/dialogs/EditNodesDialog.h"
#include "desktop/base/Listen.h"
#include "desktop/base/ThemeIcons.h"
#include "desktop/base/Twips.h"
#include "desktop/bind/LineAdapter.h"
#include "ui_frmEditNodes.h"
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScreen>

namespace desktop {

namespace {

// As typed: the plain text would turn hard blanks into common ones.
QString Typed(const QPlainTextEdit& box) {
    QString text = box.document()->toRawText();
    text.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    return text;
}

QString Shown(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return text;
}

} // namespace

EditNodesDialog::EditNodesDialog(frmEditNodes& form, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::frmEditNodes>()) {
    ui_->setupUi(this);
    MakeLabel(form.lXPath, *ui_->lXPath);
    MakeLabel(form.lNodeName, *ui_->lNodeName);
    MakeLabel(form.lAttrs, *ui_->lAttrs);
    MakeLabel(form.lText, *ui_->lText);
    new LineAdapter(form.txtXPath, *ui_->txtXPath, this);
    new LineAdapter(form.txtNodeName, *ui_->txtNodeName, this);
    MakeBox(form.txtNodeAttrs, *ui_->txtNodeAttrs);
    MakeBox(form.txtNodeText, *ui_->txtNodeText);
    MakeArrow(form.cmdUp, *ui_->cmdUp, "go-up", Qt::UpArrow);
    MakeArrow(form.cmdDown, *ui_->cmdDown, "go-down", Qt::DownArrow);
    MakeArrow(form.cmdLeft, *ui_->cmdLeft, "go-previous", Qt::LeftArrow);
    MakeArrow(form.cmdRight, *ui_->cmdRight, "go-next", Qt::RightArrow);
    MakeButton(form.cmdOk, *ui_->cmdOk);
    MakeButton(form.cmdCancel, *ui_->cmdCancel);
    MakeOption(form.optTree, *ui_->optTree);
    MakeOption(form.optList, *ui_->optList);
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

void EditNodesDialog::MakeLabel(controls::Label& model, QLabel& label) {
    const auto follow = [&model, &label] {
        label.setText(model.Caption());
        label.setVisible(model.Visible());
    };
    Listen(model.changed, this, follow);
    follow();
}

void EditNodesDialog::MakeBox(controls::TextBox& model, QPlainTextEdit& box) {
    const auto follow = [&model, &box] {
        if (const QString text = Shown(model.Text()); text != Typed(box)) {
            const QSignalBlocker quiet(box);
            box.setPlainText(text);
        }
        box.setEnabled(model.Enabled());
        box.setVisible(model.Visible());
    };
    connect(&box, &QPlainTextEdit::textChanged, this, [&model, &box] {
        if (const QString text = Typed(box); text != Shown(model.Text()))
            model.UserTyped(text);
    });
    Listen(model.changed, this, follow);
    follow();
}

void EditNodesDialog::MakeButton(controls::CommandButton& model, QAbstractButton& button) {
    const auto follow = [&model, &button] { button.setEnabled(model.Enabled()); };
    connect(&button, &QAbstractButton::clicked, this, [&model] { model.Click(); });
    Listen(model.changed, this, follow);
    follow();
}

// Without an icon theme the style draws the arrow.
void EditNodesDialog::MakeArrow(controls::CommandButton& model, QToolButton& button, const char* icon,
                                Qt::ArrowType arrow) {
    button.setIcon(ThemeIcon(QLatin1String(icon)));
    if (button.icon().isNull())
        button.setArrowType(arrow);
    MakeButton(model, button);
}

void EditNodesDialog::MakeOption(controls::OptionButton& model, QAbstractButton& button) {
    const auto follow = [&model, &button] { button.setChecked(model.Value()); };
    connect(&button, &QAbstractButton::clicked, this, [&model, follow] {
        if (!model.Value())
            model.UserChose();
        follow();
    });
    Listen(model.changed, this, follow);
    follow();
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

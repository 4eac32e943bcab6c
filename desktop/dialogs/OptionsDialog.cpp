// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/dialogs/OptionsDialog.h"
#include "desktop/base/Colours.h"
#include "desktop/base/Listen.h"
#include "desktop/bind/BindControls.h"
#include "platform/text/TextTools.h"
#include "ui_frmOptions.h"
#include <algorithm>

namespace desktop {

namespace {

// The sample of the font stays in its place: a size that was typed may be any number.
constexpr double kSmallestSample = 4;
constexpr double kLargestSample = 36;

void ShowSample(const ColourSample& sample, QLineEdit& widget) {
    // The widget isn't one to write in; it has the text view's background all the same.
    QPalette palette = QApplication::palette(&widget);
    palette.setColor(QPalette::Text, ReadableOn(palette.color(QPalette::Base), ToQColor(sample.ForeColor())));
    widget.setPalette(palette);
}

} // namespace

OptionsDialog::OptionsDialog(frmOptions& form, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::frmOptions>()) {
    ui_->setupUi(this);
    BindControls(*this, {{"tbsOptions", &form.tbsOptions},
                         {"txtTNTLen", &form.txtTNTLen},
                         {"txtTTLen", &form.txtTTLen},
                         {"txtUndoSteps", &form.txtUndoSteps},
                         {"cmbEnc", &form.cmbEnc},
                         {"txtFontName", &form.txtFontName},
                         {"cmbSize", &form.cmbSize},
                         {"cmdFont", &form.cmdFont},
                         {"txtGL", Sample(form.txtGL, *ui_->cmdColor0)},
                         {"txtSlash", Sample(form.txtSlash, *ui_->cmdColor1)},
                         {"txtEqual", Sample(form.txtEqual, *ui_->cmdColor2)},
                         {"txtComment", Sample(form.txtComment, *ui_->cmdColor3)},
                         {"cmdColor0", &form.cmdColor[0]},
                         {"cmdColor1", &form.cmdColor[1]},
                         {"cmdColor2", &form.cmdColor[2]},
                         {"cmdColor3", &form.cmdColor[3]},
                         {"cmdOK", &form.cmdOK},
                         {"cmdCancel", &form.cmdCancel},
                         {"cmdApply", &form.cmdApply}});
    for (controls::Event<>* event : {&form.txtFontName.changed, &form.cmbSize.changed})
        Listen(*event, this, [this] { ShowFont(); });
    ui_->fontSample->setBackgroundRole(QPalette::Base);
    ui_->fontSample->setForegroundRole(QPalette::Text);
    ShowFont();
    Listen(form.unloaded, this, [this] { accept(); });
    setFixedSize(sizeHint());
}

OptionsDialog::~OptionsDialog() = default;

void OptionsDialog::reject() {
    form_.cmdCancel.Click();
}

/// Shows a sample in its colour. Its button has the same text for a name.
std::function<void(QWidget&)> OptionsDialog::Sample(ColourSample& sample, QPushButton& button) {
    return [this, &sample, &button](QWidget& widget) {
        auto& line = static_cast<QLineEdit&>(widget);
        line.setText(sample.Text);
        ShowSample(sample, line);
        Listen(sample.changed, this, [&sample, &line] { ShowSample(sample, line); });
        button.setAccessibleName(ui_->fraColors->title() + QLatin1Char(' ') + sample.Text);
    };
}

void OptionsDialog::ShowFont() {
    QFont font(form_.txtFontName.Text());
    font.setStyleHint(QFont::Monospace);
    font.setPointSizeF(std::clamp(text::Val(form_.cmbSize.Text()), kSmallestSample, kLargestSample));
    ui_->fontSample->setFont(font);
}

} // namespace desktop

// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/dialogs/OptionsDialog.h"
#include "desktop/base/Colours.h"
#include "desktop/bind/ChoiceAdapter.h"
#include "desktop/bind/LineAdapter.h"
#include "desktop/bind/TabAdapter.h"
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
    MakePages();
    MakeColours();
    MakeButton(form.cmdFont, *ui_->cmdFont);
    MakeButton(form.cmdOK, *ui_->cmdOK);
    MakeButton(form.cmdCancel, *ui_->cmdCancel);
    MakeButton(form.cmdApply, *ui_->cmdApply);
    Listen(form.unloaded, this, [this] { accept(); });
    setFixedSize(sizeHint());
}

OptionsDialog::~OptionsDialog() = default;

void OptionsDialog::reject() {
    form_.cmdCancel.Click();
}

void OptionsDialog::MakePages() {
    new TabAdapter(
        form_.tbsOptions, *ui_->tbsOptions, *ui_->pages,
        {{QStringLiteral("parameters"), ui_->parameters}, {QStringLiteral("textview"), ui_->textview}}, this);
    new LineAdapter(form_.txtTNTLen, *ui_->txtTNTLen, this);
    new LineAdapter(form_.txtTTLen, *ui_->txtTTLen, this);
    new LineAdapter(form_.txtUndoSteps, *ui_->txtUndoSteps, this);
    new ChoiceAdapter(form_.cmbEnc, *ui_->cmbEnc, this);
    new LineAdapter(form_.txtFontName, *ui_->txtFontName, this);
    new ChoiceAdapter(form_.cmbSize, *ui_->cmbSize, this);
    for (controls::Event<>* event : {&form_.txtFontName.changed, &form_.cmbSize.changed})
        Listen(*event, this, [this] { ShowFont(); });
    ui_->fontSample->setBackgroundRole(QPalette::Base);
    ui_->fontSample->setForegroundRole(QPalette::Text);
    ShowFont();
}

void OptionsDialog::MakeColours() {
    struct Row {
        ColourSample& sample;
        QLineEdit& widget;
        QPushButton& button;
    };
    const std::array<Row, 4> rows = {{{form_.txtGL, *ui_->txtGL, *ui_->cmdColor0},
                                      {form_.txtSlash, *ui_->txtSlash, *ui_->cmdColor1},
                                      {form_.txtEqual, *ui_->txtEqual, *ui_->cmdColor2},
                                      {form_.txtComment, *ui_->txtComment, *ui_->cmdColor3}}};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Row& row = rows[i];
        row.widget.setText(row.sample.Text);
        ShowSample(row.sample, row.widget);
        Listen(row.sample.changed, this,
               [&sample = row.sample, &widget = row.widget] { ShowSample(sample, widget); });
        row.button.setAccessibleName(ui_->fraColors->title() + QLatin1Char(' ') + row.sample.Text);
        MakeButton(form_.cmdColor[i], row.button);
    }
}

void OptionsDialog::MakeButton(controls::CommandButton& model, QPushButton& button) {
    connect(&button, &QPushButton::clicked, this, [&model] { model.Click(); });
}

void OptionsDialog::ShowFont() {
    QFont font(form_.txtFontName.Text());
    font.setStyleHint(QFont::Monospace);
    font.setPointSizeF(std::clamp(text::Val(form_.cmbSize.Text()), kSmallestSample, kLargestSample));
    ui_->fontSample->setFont(font);
}

} // namespace desktop

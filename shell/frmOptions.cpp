// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/frmOptions.h"
#include "core/model/Encodings.h"
#include "platform/text/TextTools.h"
#include "shell/Settings.h"

namespace {

constexpr std::array kSizes = {8, 9, 10, 11, 12, 14, 16, 18, 24};

/// Stores values one by one up to the first failure: what stops one stops all, and each may wait for a lock.
class Writer {
public:
    explicit Writer(services::SettingsStore& store) : store_(store) {}

    void Store(const char* key, const QString& value) {
        if (firstFailure_)
            firstFailure_ = store_.Save(QLatin1String(shell::kOptionsSection), QLatin1String(key), value);
    }
    void Take(const char* key, const QString& value, QString& inForce) {
        Store(key, value);
        inForce = value;
    }
    void TakeNumber(const char* key, const controls::TextBox& field, int& inForce) {
        inForce = text::ValInt16(text::Trim(field.Text()));
        Store(key, QString::number(inForce));
    }
    void TakeColour(const char* key, const ColourSample& sample, std::uint32_t& inForce) {
        if (sample.ForeColor() == inForce)
            return;
        inForce = sample.ForeColor();
        Store(key, QString::number(static_cast<std::int32_t>(inForce)));
    }

    const services::FileResult& Result() const { return firstFailure_; }

private:
    services::SettingsStore& store_;
    services::FileResult firstFailure_; ///< none as long as all went well
};

void TakeParameters(const frmOptions& form, Writer& writer, Options& options) {
    writer.Take("Encoding", form.cmbEnc.Text(), options.Encoding);
    writer.TakeNumber("TreeNodeTextShowLength", form.txtTNTLen, options.TreeNodeTextShowLength);
    writer.TakeNumber("TreeToolTipShowLength", form.txtTTLen, options.TreeToolTipShowLength);
    writer.TakeNumber("Steps", form.txtUndoSteps, options.Steps);
}

/// What is as before isn't stored: a user who never chose a colour gets the next version's default.
void TakeLook(const frmOptions& form, Writer& writer, Options& options) {
    if (const double size = text::Val(text::Trim(form.cmbSize.Text())); size != options.TextSize) {
        options.TextSize = size;
        writer.Store("TextSize", text::Str(size));
    }
    writer.TakeColour("CommentColor", form.txtComment, options.CommentColor);
    writer.TakeColour("SlashColor", form.txtSlash, options.SlashColor);
    writer.TakeColour("GLColor", form.txtGL, options.GLColor);
    writer.TakeColour("EqualColor", form.txtEqual, options.EqualColor);
    if (form.txtFontName.Text() != options.TextName)
        writer.Take("TextName", form.txtFontName.Text(), options.TextName);
}

} // namespace

void ColourSample::SetForeColor(std::uint32_t colour) {
    if (colour == foreColor_)
        return;
    foreColor_ = colour;
    changed();
}

frmOptions::frmOptions(Application& app)
    : txtGL(QStringLiteral("< >")), txtSlash(QStringLiteral("/ \"")), txtEqual(QStringLiteral("=")),
      txtComment(QStringLiteral("<!-- -->")), app_(app), samples_{&txtGL, &txtSlash, &txtEqual, &txtComment} {
    tbsOptions.SetTabs({{QStringLiteral("parameters"), QStringLiteral("Parameters")},
                        {QStringLiteral("textview"), QStringLiteral("TextView")}});
    mXMLEdit::LoadEncoding(cmbEnc);
    for (const int size : kSizes)
        cmbSize.AddItem(QString::number(size));
    for (int i = 0; i < static_cast<int>(cmdColor.size()); ++i)
        cmdColor[static_cast<std::size_t>(i)].Click.connect([this, i] { cmdColor_Click(i); });
    cmdFont.Click.connect([this] { cmdFont_Click(); });
    cmdOK.Click.connect([this] { cmdOK_Click(); });
    cmdCancel.Click.connect([this] { cmdCancel_Click(); });
    cmdApply.Click.connect([this] { cmdApply_Click(); });
}

void frmOptions::Form_Load() {
    const Options& options = app_.options;
    txtTNTLen.SetText(QString::number(options.TreeNodeTextShowLength));
    txtTTLen.SetText(QString::number(options.TreeToolTipShowLength));
    txtUndoSteps.SetText(QString::number(options.Steps));
    // A label that isn't on offer, from a settings file written by hand, stays unless another one is chosen.
    cmbEnc.SetText(options.Encoding);
    mXMLEdit::FindEncoding(options.Encoding, cmbEnc);
    txtFontName.SetText(options.TextName);
    cmbSize.SetText(text::Str(options.TextSize));
    txtGL.SetForeColor(options.GLColor);
    txtSlash.SetForeColor(options.SlashColor);
    txtEqual.SetForeColor(options.EqualColor);
    txtComment.SetForeColor(options.CommentColor);
}

void frmOptions::cmdColor_Click(int index) {
    ColourSample& sample = *samples_.at(static_cast<std::size_t>(index));
    if (const auto chosen = app_.services.prompts.ChooseColour(sample.ForeColor()))
        sample.SetForeColor(*chosen);
}

void frmOptions::cmdFont_Click() {
    const services::FontChoice present{txtFontName.Text(), text::Val(text::Trim(cmbSize.Text()))};
    if (const auto chosen = app_.services.prompts.ChooseFont(present)) {
        txtFontName.SetText(chosen->name);
        cmbSize.SetText(text::Str(chosen->size));
    }
}

void frmOptions::cmdApply_Click() {
    Writer writer(app_.services.settings);
    TakeParameters(*this, writer, app_.options);
    TakeLook(*this, writer, app_.options);
    shell::SetRTFColorString(app_);
    if (const services::FileResult& result = writer.Result(); !result)
        app_.services.prompts.MsgBox(QStringLiteral("The settings could not be stored.\r\n%1\r\n"
                                                    "They hold until the program ends.")
                                         .arg(result.description),
                                     services::Buttons::Ok, services::Icon::Exclamation);
}

void frmOptions::cmdOK_Click() {
    cmdApply_Click();
    unloaded();
}

void frmOptions::cmdCancel_Click() {
    unloaded();
}

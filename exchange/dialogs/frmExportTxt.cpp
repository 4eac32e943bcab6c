// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/dialogs/frmExportTxt.h"
#include "core/edit/Guard.h"
#include "core/edit/WriteFile.h"
#include "core/model/FileNames.h"
#include "platform/text/TextTools.h"

namespace exchange {

namespace {

constexpr qsizetype kSampleUnits = 100000;

} // namespace

frmExportTxt::frmExportTxt(DocumentWindow& window) : window_(window) {
    optAll.SetValue(true);
    optAll.Click.connect([this] { optLimitLs.SetValue(false); });
    optLimitLs.Click.connect([this] {
        optAll.SetValue(false);
        txtLs.SetFocus();
    });
    cmdPreview.Click.connect([this] { cmdPreview_Click(); });
    OKButton.Click.connect([this] { OKButton_Click(); });
    CancelButton.Click.connect([this] { unloaded(); });
}

void frmExportTxt::Form_Load() {
    txtLs.SetText(QStringLiteral("1"));
    chkUseAttr.SetValue(1);
}

TextOut frmExportTxt::GetResXML(qsizetype most) {
    TextOutOptions options;
    options.i_sDelimiter = delimiter.GetDelimiter();
    options.i_bIsSelectedNode = chkOnlySelected.Value() == 1;
    options.i_bIsAttr = chkUseAttr.Value() == 1;
    options.i_bIncludeNameFirst = chkFirst.Value() == 1;
    options.i_iDepthType = optLimitLs.Value() ? 1 : 0;
    options.i_iDepth = text::ValInt16(txtLs.Text());
    options.plain = chkPlain.Value() == 1;
    options.most = most;
    if (options.i_iDepthType == 1 && options.i_iDepth == 0)
        return {};
    edit::Waiting waiting(window_.app, window_.Caption);
    return GetTreeNodeResText(window_, options, waiting.Step(0, 0));
}

void frmExportTxt::cmdPreview_Click() {
    edit::Guarded(window_.app, QStringLiteral("frmExportTxt@cmdPreview_Click"), [&] {
        const TextOut out = GetResXML(kSampleUnits);
        txtSample.SetText(out.text);
        lblNote.SetCaption(out.cut ? QStringLiteral("The beginning is shown.") : QString());
    });
}

// Without a name nothing is written (quirk 94).
void frmExportTxt::OKButton_Click() {
    Application& app = window_.app;
    edit::Guarded(app, QStringLiteral("frmExportTxt@OKButton_Click"), [&] {
        TextOut out = GetResXML(0);
        if (out.cancelled)
            return;
        QString name = app.services.prompts.SaveFileName(QStringLiteral("Save As"),
                                                         QStringLiteral("Text file (*.txt)|*.txt"), {});
        if (name.isEmpty())
            return;
        if (mXMLEdit::GetExtName(name).isEmpty())
            name += QStringLiteral(".txt");
        if (mXMLEdit::FileExist(app, name) && !edit::MayReplace(app, name))
            return;
        if (edit::SaveStringToFile(app, out.text, name))
            unloaded();
    });
}

} // namespace exchange

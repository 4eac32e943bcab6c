// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/dialogs/frmExportTxt.h"
#include "core/edit/Guard.h"
#include "core/edit/Report.h"
#include "core/edit/Transaction.h"
#include "core/edit/WriteFile.h"
#include "core/model/FileNames.h"
#include "platform/text/TextTools.h"

namespace exchange {

namespace {

constexpr qsizetype kSampleUnits = 100000;

} // namespace

frmExportTxt::frmExportTxt(DocumentWindow& window) : window_(window) {
    optAll.SetValue(true);
    optAll.Click.connect([this] {
        optLimitLs.SetValue(false);
        ShowNote();
    });
    optLimitLs.Click.connect([this] {
        optAll.SetValue(false);
        txtLs.SetFocus();
        ShowNote();
    });
    txtLs.Change.connect([this] { ShowNote(); });
    chkUseAttr.Click.connect([this] { ShowNote(); });
    chkPlain.Click.connect([this] { ShowNote(); });
    delimiter.changed.connect([this] { ShowNote(); });
    cmdPreview.Click.connect([this] { cmdPreview_Click(); });
    OKButton.Click.connect([this] { OKButton_Click(); });
    CancelButton.Click.connect([this] { unloaded(); });
}

void frmExportTxt::Form_Load() {
    txtLs.SetText(QStringLiteral("1"));
    chkUseAttr.SetValue(1);
    if (const controls::TreeNode node = window_.tvXML.SelectedItem())
        selected_ = node.Key();
    ShowNote();
}

void frmExportTxt::ShowNote() {
    QStringList notes;
    if (chkUseAttr.Value() == 1 && chkPlain.Value() != 1)
        notes << QStringLiteral("What goes out is what the tables show: 3.70 as 3.7, &amp; as it is, nothing "
                                "in quotes. \"Values as in the document\" keeps all.");
    if (optLimitLs.Value() && text::ValInt16(txtLs.Text()) == 0)
        notes << QStringLiteral("No number of levels is typed: the text will be empty.");
    if (delimiter.optChoose[DelimiterChoice::kOther].Value() && delimiter.txtOther.Text().isEmpty())
        notes << QStringLiteral("No delimiter is typed: the values will stand together.");
    lblNote.SetCaption(notes.join(u'\n'));
}

// Each preview moves the selection to where the text begins; the user means the node that was selected.
void frmExportTxt::SelectAgain() {
    if (chkOnlySelected.Value() != 1)
        return;
    if (const controls::TreeNode node = window_.tvXML.Nodes.Find(selected_))
        edit::Run(window_, "GetTreeNodeResText", [&] { edit::SelectNode(window_, node); });
}

// False where it was given up.
bool frmExportTxt::GetResXML(const edit::TextSink& sink) {
    TextOutOptions options;
    options.i_sDelimiter = delimiter.GetDelimiter();
    options.i_bIsSelectedNode = chkOnlySelected.Value() == 1;
    options.i_bIsAttr = chkUseAttr.Value() == 1;
    options.i_bIncludeNameFirst = chkFirst.Value() == 1;
    options.i_iDepthType = optLimitLs.Value() ? 1 : 0;
    options.i_iDepth = text::ValInt16(txtLs.Text());
    options.plain = chkPlain.Value() == 1;
    if (options.i_iDepthType == 1 && options.i_iDepth == 0)
        return true;
    SelectAgain();
    edit::Waiting waiting(window_.app, window_.Caption);
    return GetTreeNodeResText(window_, options, sink, waiting.Step(0, 0));
}

void frmExportTxt::cmdPreview_Click() {
    edit::Guarded(window_.app, QStringLiteral("frmExportTxt@cmdPreview_Click"), [&] {
        QString sample;
        const bool whole = GetResXML([&](QStringView part) {
            sample += part;
            return sample.size() < kSampleUnits;
        });
        txtSample.SetText(sample);
        ShowNote();
        if (!whole && !sample.isEmpty())
            lblNote.SetCaption(QStringLiteral("The beginning is shown.\n") + lblNote.Caption());
    });
}

// The name to write to; empty where there is none, and then nothing is written (quirk 101).
QString frmExportTxt::GetFileName() {
    Application& app = window_.app;
    QString name = app.services.prompts.SaveFileName(QStringLiteral("Save As"),
                                                     QStringLiteral("Text file (*.txt)|*.txt"), {});
    if (name.isEmpty())
        return {};
    if (mXMLEdit::GetExtName(name).isEmpty())
        name += QStringLiteral(".txt");
    return mXMLEdit::FileExist(app, name) && !edit::MayReplace(app, name) ? QString() : name;
}

void frmExportTxt::OKButton_Click() {
    edit::Guarded(window_.app, QStringLiteral("frmExportTxt@OKButton_Click"), [&] {
        const QString name = GetFileName();
        if (!name.isEmpty() && edit::SaveTextToFile(window_.app, name, [&](const edit::TextSink& sink) {
                return GetResXML(sink);
            })) {
            unloaded();
            edit::Message(window_.app, QStringLiteral("Exported to ") + name);
        }
    });
}

} // namespace exchange

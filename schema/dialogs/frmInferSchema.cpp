// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/dialogs/frmInferSchema.h"
#include "core/edit/Guard.h"
#include "schema/dialogs/InferSchema.h"

namespace schema {

frmInferSchema::frmInferSchema(DocumentWindow& window) : window_(window) {
    cmdAdd.Click.connect([this] { cmdAdd_Click(); });
    OKButton.Click.connect([this] { OKButton_Click(); });
    CancelButton.Click.connect([this] { unloaded(); });
}

void frmInferSchema::Form_Load() {
    lblDocument.SetCaption(window_.Caption);
}

QStringList frmInferSchema::Files() const {
    QStringList files;
    for (const QString& line : txtFiles.Text().split(u'\n')) {
        if (!line.trimmed().isEmpty() && !files.contains(line.trimmed()))
            files << line.trimmed();
    }
    return files;
}

void frmInferSchema::cmdAdd_Click() {
    const QString file = window_.app.services.prompts.OpenFileName(
        QStringLiteral("Open file"), QStringLiteral("XML File (*.xml)|*.xml|All Files (*.*)|*.*"));
    if (!file.isEmpty())
        txtFiles.SetText((Files() << file).join(u'\n'));
}

// The dialog goes first: boxes and the bar come in front of the document.
void frmInferSchema::OKButton_Click() {
    edit::Guarded(window_, "InferSchema", [&] {
        const QStringList files = Files();
        unloaded();
        InferSchema(window_, files);
    });
}

} // namespace schema

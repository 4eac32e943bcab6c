// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "platform/controls/Controls.h"
#include <QStringList>

namespace schema {

/// The dialog that says which documents a schema is made of beside the one in front.
class frmInferSchema {
public:
    explicit frmInferSchema(DocumentWindow& window);
    frmInferSchema(const frmInferSchema&) = delete;
    frmInferSchema& operator=(const frmInferSchema&) = delete;

    controls::Label lblDocument;    ///< the one in front
    controls::TextBox txtFiles;     ///< further ones, a line each
    controls::CommandButton cmdAdd; ///< adds a file that the user chooses
    controls::CommandButton OKButton, CancelButton;
    controls::Event<> unloaded;

    void Form_Load();
    void cmdAdd_Click();
    void OKButton_Click(); ///< closes, and makes the schema

private:
    QStringList Files() const;
    DocumentWindow& window_;
};

} // namespace schema

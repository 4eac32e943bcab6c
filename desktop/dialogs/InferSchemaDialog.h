// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "schema/dialogs/frmInferSchema.h"
#include <QDialog>
#include <memory>

namespace Ui {
class frmInferSchema;
}

namespace desktop {

/// The widgets that say which documents a schema is made of.
class InferSchemaDialog : public QDialog {
public:
    InferSchemaDialog(schema::frmInferSchema& form, QWidget* parent);
    ~InferSchemaDialog() override;
    void reject() override; ///< Esc and the title bar's button cancel

private:
    schema::frmInferSchema& form_;
    std::unique_ptr<Ui::frmInferSchema> ui_;
};

} // namespace desktop

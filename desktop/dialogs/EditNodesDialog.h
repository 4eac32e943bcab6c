// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/base/ReasonBeside.h"
#include "nodes/dialogs/frmEditNodes.h"
#include <QDialog>
#include <memory>

namespace Ui {
class frmEditNodes;
}

namespace desktop {

/// The widgets of the one-by-one editor, which stay beside the documents.
class EditNodesDialog : public QDialog {
public:
    EditNodesDialog(nodes::frmEditNodes& form, QWidget* parent);
    ~EditNodesDialog() override;
    void ShowForm();        ///< shows the dialog, or brings it to the front
    void reject() override; ///< Esc and the title bar's button cancel
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    bool event(QEvent* event) override;

private:
    nodes::frmEditNodes& form_;
    std::unique_ptr<Ui::frmEditNodes> ui_;
    ReasonBeside reason_;
};

} // namespace desktop

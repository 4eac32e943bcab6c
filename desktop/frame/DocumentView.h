// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QWidget>
#include <memory>

namespace Ui {
class frmXMLEdit;
}

namespace desktop {

class ReasonBeside;

/// The widgets of one document window: the tree on the left, path box, tabs and their pages on the right.
class DocumentView : public QWidget {
    Q_OBJECT
public:
    explicit DocumentView(DocumentWindow& window, QWidget* parent = nullptr);
    ~DocumentView() override;

    /// Lets go of the document: from now on it may be destroyed, and nothing else may be asked here.
    void Detach();
    /// Gives the focus to the tree, or to the text when its tab is shown.
    void FocusFirst();
    void FocusAgain(); ///< to what had it last, if nothing here has it
    /// The parts that F6 walks through, in order.
    std::vector<QWidget*> Panes() const;

Q_SIGNALS:
    void contextMenuWanted(const QPoint& globalPlace);

private:
    class Bond;
    void ConnectContextMenus();
    QWidget* Page() const; ///< what takes the focus on the page that is shown

    std::unique_ptr<Ui::frmXMLEdit> ui_;
    std::unique_ptr<Bond> bond_; ///< null once detached
    std::unique_ptr<ReasonBeside> reason_;
};

} // namespace desktop

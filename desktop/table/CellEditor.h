// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "desktop/base/ControlEvents.h"
#include <QLineEdit>
#include <QObject>
#include <QPlainTextEdit>
#include <QPointer>

namespace desktop {

/// A text box laid over a cell: a line, or a larger box where the text has several lines or is long.
class CellEditor : public QObject {
public:
    CellEditor(DocumentWindow& window, controls::TextBox& model, QWidget& view, const QString& name);
    ~CellEditor() override;

private:
    void ConnectLine();
    void ConnectBox();
    void Show();
    void ShowText();
    void Place();
    void TakeFocus();
    QWidget& InUse() const;
    void BoxKey(int& key, int modifiers);
    void TellSelection();

    DocumentWindow& window_;
    controls::TextBox& model_;
    QWidget& view_;
    QPointer<QLineEdit> line_; ///< owned by the view
    QPointer<QPlainTextEdit> box_;
    ControlEvents lineEvents_, boxEvents_;
    bool shown_ = false;
    bool large_ = false;   ///< the box is in use
    bool filling_ = false; ///< the widgets follow the model
};

} // namespace desktop

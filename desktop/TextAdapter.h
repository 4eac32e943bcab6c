// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/ControlEvents.h"
#include "platform/controls/RichTextBox.h"
#include <QObject>

class SourceEdit;

/// A text editor on a RichTextBox. The editor is filled when it is first shown, since a large text takes
/// seconds, and its text is fetched when somebody asks for it.
class TextAdapter : public QObject {
public:
    TextAdapter(controls::RichTextBox& model, SourceEdit& widget, QObject* parent);
    ~TextAdapter() override; ///< hands the newest text to the model

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool IsFilled() const { return !stale_; }
    void ContentReplaced();
    void Fill();
    void ShowSelection();
    void ShowFont();
    void UserSelected();

    controls::RichTextBox& model_;
    SourceEdit& widget_;
    ControlEvents events_;
    bool stale_ = true; ///< the editor doesn't have the model's text
};

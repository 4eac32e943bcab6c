// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/base/ControlEvents.h"
#include "platform/controls/RichTextBox.h"
#include <QObject>

namespace desktop {

class TextView;

/// Puts a text view on a RichTextBox: keys, focus and clicks reach the model. The view shows the model's text
/// by itself.
class TextAdapter : public QObject {
public:
    TextAdapter(controls::RichTextBox& model, TextView& widget, QObject* parent);
    ~TextAdapter() override; ///< the view lets go of the model

private:
    controls::RichTextBox& model_;
    TextView& widget_;
    ControlEvents events_;
};

} // namespace desktop

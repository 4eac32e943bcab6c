// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/text/TextAdapter.h"
#include "desktop/base/Twips.h"
#include "desktop/text/TextView.h"

namespace desktop {

TextAdapter::TextAdapter(controls::RichTextBox& model, TextView& widget, QObject* parent)
    : QObject(parent), model_(model), widget_(widget), events_(widget, this) {
    events_.Bind(model, widget);
    widget.SetModel(&model);
    model.charFromPos = [&widget](double x, double y) {
        return widget.PositionAt(QPoint(ToPixels(x), ToPixels(y)));
    };
    connect(&widget, &TextView::userReleased, this, [&model] { model.MouseUp(); });
    connect(&widget, &TextView::userClicked, this, [&model] { model.Click(); });
}

TextAdapter::~TextAdapter() {
    model_.charFromPos = nullptr;
    widget_.SetModel(nullptr);
}

} // namespace desktop

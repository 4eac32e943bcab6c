// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/SchemaView.h"
#include "schema/BindSchema.h"

namespace schema {

namespace {

void Load(DocumentWindow& window) {
    window.txtSchema.Locked = true;
    window.txtSchema.SetFont(window.app.options.TextName, window.app.options.TextSize);
}

// It is looked for when it is looked at (quirk 95), and read again each time.
void Show(DocumentWindow& window) {
    ShowSchemaOrDTD(window);
    window.txtSchema.SetFocus();
}

// Not even the commands of editing (quirk 35).
MenuSituation Situation(DocumentWindow&) {
    return MenuSituation::ViewWithoutEditing;
}

} // namespace

const edit::View& SchemaView() {
    static constexpr edit::View view{.key = edit::kSchemaTab,
                                     .number = edit::kViewSchema,
                                     .caption = "Schema View",
                                     .entry = "mnuViewSchema",
                                     .load = Load,
                                     .show = Show,
                                     .situation = Situation};
    return view;
}

} // namespace schema

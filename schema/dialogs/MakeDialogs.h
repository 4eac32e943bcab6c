// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"

namespace schema {

class frmInferSchema;
class frmValidSample;

/// The dialogs of what is made from schemas. Each is made when it is asked for, shown by whatever listens,
/// and gone when it is done with.
struct MakeDialogs {
    /// Show a dialog and come back when it is done with (its `unloaded`).
    controls::Event<frmValidSample&> validSampleShown;
    controls::Event<frmInferSchema&> inferSchemaShown;
};
/// Those of this run.
MakeDialogs& MakeDialogsOf(Application& app);

void ShowValidSample(DocumentWindow& window);
void ShowInferSchema(DocumentWindow& window); ///< nothing happens in a document without an element

} // namespace schema

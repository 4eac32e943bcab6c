// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/Waiting.h"
#include "core/model/FetchedText.h"
#include "exchange/RowsXml.h"
#include "platform/controls/Event.h"
#include <functional>
#include <memory>

struct Application;

// A document that the program has made.
namespace exchange {

enum class Opens { XML, Schema };

/// Asks whether a document may be opened without the characters that it can't hold; true where there are
/// none.
bool MayLeaveOut(Application& app, const LeftOut& leftOut);

/// Parses a made text while the user can still cancel; false when they did. `waiting` shows the bar; it stays
/// until the document stands, unless boxes are to come.
bool Prepare(Application& app, text::LongText text, std::shared_ptr<edit::Waiting> waiting, int from,
             FetchedText& fetched);
/// Opens it as a new document without a file. It counts as changed, for it stands nowhere else.
void OpenMade(Application& app, const FetchedText& fetched, Opens kind);

/// What OK does in a dialog that makes a document: with the error exit of the dialog's routine, `make` makes
/// it, the dialog goes, and the document is opened. The dialog stays where there is none.
void OpenIfMade(Application& app, const QString& form, const std::function<bool(FetchedText&)>& make,
                controls::Event<>& unloaded);

} // namespace exchange

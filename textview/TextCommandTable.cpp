// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/TextCommandTable.h"
#include "core/edit/Transaction.h"
#include "textview/CloseTag.h"
#include "textview/TextClipboard.h"
#include "textview/TextCommands.h"
#include "textview/Undo.h"

namespace textview {

namespace {

using edit::Before;
using edit::Target;

bool ShowsText(const Target& target) {
    return target.view == edit::kViewText;
}
bool TakesEntities(const Target& target) {
    return ShowsText(target) || target.editsCell;
}

// A step of the history builds the tree anew: what the tree has ahead of the text becomes a step before.
template <auto step> void TakeStep(DocumentWindow& window) {
    edit::Run(window, "TreeChangeTextView", [&] { edit::WriteUnnamed(window); });
    step(window);
}

/// An entity at the caret.
template <const char* entity> void Insert(DocumentWindow& window) {
    InsertString(window, QLatin1String(entity));
}
constexpr char kQuote[] = "&quot;", kApostrophe[] = "&apos;", kLess[] = "&lt;", kGreater[] = "&gt;",
               kAmpersand[] = "&amp;";

void ValidateText(DocumentWindow& window) {
    Validate(window, false);
}

// --- the commands ------------------------------------------------------------------------------------------

// clang-format off
//                          none tree   list   text   table  other
//                              root node sel none sel none sel none
constexpr char kUndo[] =   "D  u u  u u  u u  u u  u";
constexpr char kRedo[] =   "D  r r  r r  r r  r r  r";
constexpr char kInText[] = "D  D D  D D  - -  D D  D";
constexpr char kOnShow[] = "D  k k  k k  k k  k k  k"; // also while the tree beside it is in use
// clang-format on

constexpr edit::Command kCommands[] = {
    {.offer = {.entries = {{"mnuEditUndo"}}, .button = {"tbCommonEdit", "undo"}, .offered = kUndo},
     .forms = {{0, TakeStep<rUndo>}},
     .before = Before::EndsEdits},
    {.offer = {.entries = {{"mnuRedo"}}, .button = {"tbCommonEdit", "redo"}, .offered = kRedo},
     .forms = {{0, TakeStep<rRedo>}},
     .before = Before::EndsEdits},
    {.offer = {.entries = {{"mnuFindReplace"}}, .button = {"tbCommonEdit", "find"}, .offered = kInText},
     .forms = {{0, RFind}},
     .before = Before::Nothing},
    {.offer = {.entries = {{"mnuSplitEditor"}, {"mnuWinSplit"}}, .offered = kInText},
     .forms = {{0, SplitText}},
     .before = Before::Nothing},
    {.offer = {.entries = {{"mnuXMLValidate", ShowsText}},
               .button = {"tbTextEdit", "validate"},
               .offered = kOnShow},
     .forms = {{0, ValidateText}},
     .before = Before::Nothing},
    {.offer = {.entries = {{"mnuXMLCloseTag", ShowsText}},
               .button = {"tbTextEdit", "closetag"},
               .offered = kOnShow},
     .forms = {{0, CloseTag}},
     .before = Before::Nothing},
    {.offer = {.button = {"tbTextEdit", "quote", nullptr, TakesEntities}, .offered = kOnShow},
     .forms = {{0, Insert<kQuote>}},
     .before = Before::Nothing},
    {.offer = {.button = {"tbTextEdit", "apostraphe", nullptr, TakesEntities}, .offered = kOnShow},
     .forms = {{0, Insert<kApostrophe>}},
     .before = Before::Nothing},
    {.offer = {.button = {"tbTextEdit", "lt", nullptr, TakesEntities}, .offered = kOnShow},
     .forms = {{0, Insert<kLess>}},
     .before = Before::Nothing},
    {.offer = {.button = {"tbTextEdit", "gt", nullptr, TakesEntities}, .offered = kOnShow},
     .forms = {{0, Insert<kGreater>}},
     .before = Before::Nothing},
    {.offer = {.button = {"tbTextEdit", "amp", nullptr, TakesEntities}, .offered = kOnShow},
     .forms = {{0, Insert<kAmpersand>}},
     .before = Before::Nothing},
};
static_assert(edit::AreComplete(kCommands));

constexpr edit::CommandForm kForms[] = {
    {"mnuEditCopy", {kContextText, RichTextCopy}},         {"mnuEditCut", {kContextText, RichTextCut}},
    {"mnuEditPaste", {kContextText, RichTextPaste}},       {"mnuDelete", {kContextText, RichTextDelete}},
    {"mnuSelectAll", {kContextText, SelectAllAtTextView}},
};

} // namespace

std::span<const edit::Command> TextCommands() {
    return kCommands;
}

std::span<const edit::CommandForm> TextForms() {
    return kForms;
}

} // namespace textview

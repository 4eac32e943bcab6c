// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/RunCommand.h"
#include "core/edit/Report.h"
#include "core/edit/TextWay.h"
#include "core/edit/Transaction.h"
#include "nodes/EditNode.h"
#include "nodes/FinishEdits.h"
#include "textview/TextLink.h"

namespace shell {

namespace {

const edit::Form* FormFor(std::span<const edit::Form> forms, int context) {
    const edit::Form* found = nullptr;
    for (const edit::Form& form : forms) {
        if (form.run && (form.context == context || (form.context == 0 && !found)))
            found = &form;
    }
    return found;
}

// The tree is another one once the text is read: the node that the command was for has to be found in it.
bool ReadTextAround(DocumentWindow& window) {
    nodes::HeldNode chosen = nodes::HoldNode(window, nodes::GetNodeInHand(window, kContextTree));
    return edit::Run(window, "ReadEditedText", [&] {
        if (!window.way->read(window))
            return false;
        const bool found = window.miPopupContext != kContextList && nodes::FindNodeAgain(window, chosen);
        if (found)
            window.tvXML.SetSelectedItem(window.tvXML.Nodes.Find(chosen.hand.key));
        else
            edit::Message(window.app,
                          QStringLiteral("The text was changed, and the node isn't there any more "
                                         "as it was."));
        return found;
    });
}

// A caret that has been moved by keys is in a node that isn't current yet, and the command is meant for that
// (quirk 85).
void FollowCaret(DocumentWindow& window) {
    if (edit::Shows(window, edit::kTextTab) && !window.TextInUse().IsMark())
        textview::SelectNodeAtCaret(window);
}

// Toolbar buttons don't take the focus, and the search and the entities change a text that hasn't got it: a
// text that is ahead of the tree goes in before a command looks at the nodes.
bool ReadText(DocumentWindow& window) {
    if (window.bond.bTextChanged() && window.miPopupContext != kContextText)
        return ReadTextAround(window);
    const bool read = !window.bond.bTextChanged() ||
                      edit::Run(window, "ReadEditedText", [&] { return window.way->read(window); });
    if (read && window.miPopupContext == kContextText)
        FollowCaret(window);
    return read;
}

void RunForm(DocumentWindow& window, const edit::Command& command, std::span<const edit::Form> forms) {
    if (command.before != edit::Before::Nothing && !nodes::FinishEdits(window))
        return;
    const edit::Form* form = FormFor(forms, window.miPopupContext);
    if (!form)
        return;
    const bool onText = form->context == kContextText;
    if (command.before != edit::Before::ReadsText || onText || ReadText(window))
        form->run(window);
}

} // namespace

void RunCommand(DocumentWindow& window, const edit::Command& command, std::span<const edit::Form> forms) {
    const bool label = edit::IsNaming(window);
    controls::TextBox* cell = edit::OpenCell(window);
    if (command.inCell && cell && command.inCell(window, *cell))
        return;
    if (command.inCell && label)
        nodes::FinishEdits(window); // the letters were meant, not the node that they are the name of
    else
        RunForm(window, command, forms);
}

} // namespace shell

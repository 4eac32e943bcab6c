// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/CheckBeside.h"
#include "core/edit/FileChanged.h"
#include "core/edit/Guard.h"
#include "core/edit/Report.h"
#include "core/edit/TextWay.h"
#include "core/model/Frame.h"
#include "schema/FaultPlaces.h"
#include "schema/TellFaults.h"
#include <utility>

namespace schema {

namespace {

const QString kChecking = QStringLiteral("The schema is being checked.");

Attention AttentionIn(DocumentWindow& window) {
    const controls::RichTextBox& text = window.TextInUse();
    return {window.tvXML.SelectedItem() ? window.tvXML.SelectedItem().Key() : QString(),
            window.tbsXML.SelectedKey(),
            window.miPopupContext,
            window.ListView1.SelectedItem(),
            window.ListView1.GetFirstVisible(),
            CheckBesideOf(window).branches,
            text.SelStart(),
            text.SelLength()};
}

bool IsInFront(const DocumentWindow& window) {
    return window.app.frame().ActiveForm() == &window;
}

// --- the status bar ----------------------------------------------------------------------------------------

// One that takes its time.
void SayChecking(DocumentWindow& window) {
    CheckBeside& state = CheckBesideOf(window);
    if (state.said || !IsInFront(window))
        return;
    state.said = true;
    state.saidBefore = window.app.frame().StatusBar1().Panel(1);
    edit::Message(window.app, kChecking);
}

void SayNoMore(DocumentWindow& window) {
    CheckBeside& state = CheckBesideOf(window);
    if (std::exchange(state.said, false) && window.app.frame().StatusBar1().Panel(1) == kChecking)
        edit::Message(window.app, state.saidBefore);
}

// --- telling -----------------------------------------------------------------------------------------------

// What follows from a document that is missing can't be judged: it is in the list.
void Take(DocumentWindow& window, const Findings& found) {
    CheckBeside& state = CheckBesideOf(window);
    ShowDiagnostics(window, found.all);
    const bool quiet = std::exchange(state.quiet, false);
    state.untold = !found.good && found.complete && !found.cancelled && !quiet;
    state.telling = state.untold && state.told;
    if (!state.telling && !quiet)
        TellOnStatusBar(window);
}

// The box never takes the key of someone who has gone on: for them the list has it, and the status bar. What
// was found in another text than there is by now isn't told at all.
void Tell(DocumentWindow& window) {
    CheckBeside& state = CheckBesideOf(window);
    if (IsInFront(window) && !edit::MayAskNow(window))
        return;
    state.telling = state.untold = false;
    if (!IsAsChecked(window))
        return;
    if (IsInFront(window) && IsTreeOfText(window) && AttentionIn(window) == state.attention)
        TellFirst(window);
    else
        TellOnStatusBar(window);
}

// --- the check ---------------------------------------------------------------------------------------------

// While a text is being typed none begins: it is checked when it has been left.
void Begin(DocumentWindow& window) {
    CheckBeside& state = CheckBesideOf(window);
    state.due = false;
    if (!IsTreeOfText(window))
        return;
    if (!HasSchemaElement(window))
        return Take(window, NoSchemaElement());
    state.request = RequestFor(window, true);
    state.request.fetched = state.fetched;
    state.running = window.app.services.schemas->Begin(state.request);
}

void End(DocumentWindow& window) {
    CheckBeside& state = CheckBesideOf(window);
    const auto check = std::move(state.running);
    const services::SchemaRequest request = std::exchange(state.request, {});
    SayNoMore(window);
    Take(window, FindingsOf(window, check->TakeAnswer(), request));
}

// Of a text that has changed meanwhile nothing is told any more.
bool GiveUpSuperseded(DocumentWindow& window) {
    CheckBeside& state = CheckBesideOf(window);
    if (!state.running || window.way->text(window) == state.request.text)
        return false;
    state.running.reset();
    SayNoMore(window);
    state.due = IsTreeOfText(window);
    return true;
}

void Look(DocumentWindow& window) {
    CheckBeside& state = CheckBesideOf(window);
    if (!window.bLoaded || window.bUnloading)
        return;
    if (!std::exchange(state.attentionTaken, true))
        state.attention = AttentionIn(window);
    if (GiveUpSuperseded(window))
        state.told = false;
    else if (state.due)
        Begin(window);
    else if (state.running && state.running->WaitForEnd(0))
        End(window);
    else if (state.running)
        SayChecking(window);
    if (state.telling)
        Tell(window);
    state.tmCheck.SetEnabled(state.busy() || state.telling);
}

void MakeDue(DocumentWindow& window) {
    CheckBeside& state = CheckBesideOf(window);
    state.due = true;
    state.name = window.Caption;
    state.attentionTaken = false;
    state.tmCheck.SetEnabled(true);
}

// For a user who has gone to a diagnostic the list has told it.
void LetBe(DocumentWindow& window) {
    CheckBeside& state = CheckBesideOf(window);
    state.told = state.untold = state.telling = false;
    state.quiet = state.busy();
}

// Saved under another name, a schema has other documents beside it.
void FollowName(DocumentWindow& window) {
    CheckBeside& state = CheckBesideOf(window);
    if (!window.bLoaded || state.name.isEmpty() || state.name == window.Caption)
        return;
    StopCheckBeside(window);
    MakeDue(window);
}

} // namespace

CheckBeside& CheckBesideOf(DocumentWindow& window) {
    return window.rooms.of<CheckBeside>();
}

void CheckAfterReading(DocumentWindow& window) {
    if (!window.app.services.schemas)
        return;
    CheckBeside& state = CheckBesideOf(window);
    StopCheckBeside(window);
    state.told = !window.bLoaded;
    MakeDue(window);
}

// The click that leaves the text also selects something, which is seen with the next tick.
void TellAfterLeaving(DocumentWindow& window) {
    CheckBeside& state = CheckBesideOf(window);
    if (!window.app.services.schemas || !IsTreeOfText(window))
        return;
    GiveUpSuperseded(window);
    const bool tells = state.busy() || state.untold;
    if (!state.busy() && !IsAsChecked(window))
        MakeDue(window);
    state.told = tells;
    if (!tells)
        return;
    state.telling = !state.busy();
    state.attentionTaken = false;
    state.tmCheck.SetEnabled(true);
}

void StopCheckBeside(DocumentWindow& window) {
    CheckBeside& state = CheckBesideOf(window);
    state.due = state.told = state.untold = state.telling = state.quiet = false;
    state.running.reset();
    SayNoMore(window);
    state.tmCheck.SetEnabled(false);
}

void ConnectCheckBeside(DocumentWindow& window) {
    CheckBesideOf(window).tmCheck.Tick.connect(
        [&window] { edit::Guarded(window, "tmCheck_Tick", [&] { Look(window); }); });
    for (auto* moved : {&window.tvXML.Expand, &window.tvXML.Collapse})
        moved->connect([&window](controls::TreeNode) { ++CheckBesideOf(window).branches; });
    DiagnosticsOf(window).wentThere.connect([&window] { LetBe(window); });
    window.captionChanged.connect([&window] { FollowName(window); });
}

} // namespace schema

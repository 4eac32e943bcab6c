// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/CheckBeside.h"
#include "core/edit/FileChanged.h"
#include "core/edit/Guard.h"
#include "core/edit/Report.h"
#include "core/edit/TextWay.h"
#include "core/model/Frame.h"
#include "schema/TellFaults.h"
#include <utility>

namespace schema {

namespace {

const QString kChecking = QStringLiteral("The schema is being checked.");

Attention AttentionIn(const DocumentWindow& window) {
    return {window.tvXML.SelectedItem() ? window.tvXML.SelectedItem().Key() : QString(),
            window.tbsXML.SelectedKey(), window.miPopupContext, window.ListView1.SelectedItem(),
            window.TextInUse().SelStart()};
}

bool IsInFront(const DocumentWindow& window) {
    return window.app.frame().ActiveForm() == &window;
}

bool IsTextAhead(const DocumentWindow& window) {
    return window.bond.bTextChanged() || window.bond.refused();
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
    state.untold = !found.good && found.complete && !found.cancelled;
    state.telling = state.untold && state.told;
    if (!state.telling)
        TellOnStatusBar(window);
}

// The box never takes the key of someone who has gone on: for them the list has it, and the status bar.
void Tell(DocumentWindow& window) {
    CheckBeside& state = CheckBesideOf(window);
    if (IsInFront(window) && !edit::MayAskNow(window))
        return;
    state.telling = state.untold = false;
    const bool same = !IsTextAhead(window) && !DiagnosticsOf(window).past;
    if (IsInFront(window) && same && AttentionIn(window) == state.attention)
        TellFirst(window);
    else
        TellOnStatusBar(window);
}

// --- the check ---------------------------------------------------------------------------------------------

void Begin(DocumentWindow& window) {
    CheckBeside& state = CheckBesideOf(window);
    state.due = false;
    state.running.reset();
    if (IsTextAhead(window)) // it is checked when it has been read
        return;
    if (!HasSchemaElement(window))
        return Take(window, NoSchemaElement());
    state.request = RequestFor(window, true);
    state.running = window.app.services.schemas->Begin(state.request);
}

// What was found in a text that has changed meanwhile isn't told any more.
void End(DocumentWindow& window) {
    CheckBeside& state = CheckBesideOf(window);
    const auto check = std::move(state.running);
    const services::SchemaRequest request = std::exchange(state.request, {});
    SayNoMore(window);
    if (window.way->text(window) == request.text)
        return Take(window, FindingsOf(check->TakeAnswer(), request));
    state.due = !IsTextAhead(window);
    state.told = false;
}

void Look(DocumentWindow& window) {
    CheckBeside& state = CheckBesideOf(window);
    if (!window.bLoaded || window.bUnloading)
        return;
    if (!std::exchange(state.attentionTaken, true))
        state.attention = AttentionIn(window);
    if (state.due)
        Begin(window);
    else if (state.running && state.running->WaitForEnd(0))
        End(window);
    else if (state.running)
        SayChecking(window);
    if (state.telling)
        Tell(window);
    state.tmCheck.SetEnabled(state.busy() || state.telling);
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
    state.due = true;
    state.told = !window.bLoaded;
    state.attentionTaken = false;
    state.tmCheck.SetEnabled(true);
}

// The click that leaves the text also selects something, which is seen with the next tick.
void TellAfterLeaving(DocumentWindow& window) {
    CheckBeside& state = CheckBesideOf(window);
    if (!state.busy() && !state.untold)
        return;
    state.told = true;
    state.telling = state.telling || (!state.busy() && state.untold);
    state.attentionTaken = false;
    state.tmCheck.SetEnabled(true);
}

void StopCheckBeside(DocumentWindow& window) {
    CheckBeside& state = CheckBesideOf(window);
    state.due = state.told = state.untold = state.telling = false;
    state.running.reset();
    SayNoMore(window);
    state.tmCheck.SetEnabled(false);
}

void ConnectCheckBeside(DocumentWindow& window) {
    CheckBesideOf(window).tmCheck.Tick.connect(
        [&window] { edit::Guarded(window, "tmCheck_Tick", [&] { Look(window); }); });
}

} // namespace schema

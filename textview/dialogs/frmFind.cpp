// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/dialogs/frmFind.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"
#include "core/model/Frame.h"
#include "textview/FillText.h"
#include "textview/ReplaceHits.h"
#include "textview/TextCommands.h"
#include "textview/TextLink.h"
#include "textview/TextState.h"
#include <QScopedValueRollback>

namespace textview {

namespace {

void FillComboOrList(controls::ComboBox& combo, const QStringList& list) {
    combo.Clear();
    for (const QString& item : list)
        combo.AddItem(item);
}

QStringList FillArrayFromCombo(const controls::ComboBox& combo) {
    return combo.Items();
}

/// Puts the box's text at the head of its list, unless the list holds it already.
void ProcessList(controls::ComboBox& combo) {
    const QString text = combo.Text();
    if (!text.isEmpty() && !combo.Items().contains(text))
        combo.AddItem(text, 0);
}

void FillBox(controls::ComboBox& combo, const QStringList& history) {
    FillComboOrList(combo, history);
    combo.SetText(history.value(0));
}

void Choose(controls::OptionButton& chosen, std::initializer_list<controls::OptionButton*> all) {
    for (controls::OptionButton* one : all)
        one->SetValue(one == &chosen);
}

bool ShowsText(const DocumentWindow* window) {
    return window && edit::Shows(*window, edit::kTextTab);
}

// By its tab, so that what is new in the tree comes into the text first. The search goes on where it was, and
// not from the current node. False when the text has become another one.
bool ShowText(DocumentWindow& window) {
    const text::LongText before = window.TextInUse().Long();
    const PaneSelections selections(window);
    edit::ShowView(window, edit::kTextTab);
    if (!(window.TextInUse().Long() == before))
        return false;
    selections.restore();
    return true;
}

} // namespace

frmFind::frmFind(Application& app) : app_(app), slot_(Finding(app)) {
    for (controls::OptionButton* option : {&optDU, &optDD, &optDA})
        option->Click.connect([this, option] { Choose(*option, {&optDU, &optDD, &optDA}); });
    optDD.SetValue(true);
    cmdDelete.Caption = QStringLiteral("清除查找列");
    cmdFind.Click.connect([this] { cmdFind_Click(); });
    cmdReplace.Click.connect([this] { cmdReplace_Click(); });
    cmdReplaceAll.Click.connect([this] { cmdReplaceAll_Click(); });
    cmdCancel.Click.connect([this] { cmdCancel_Click(); });
    cmdDelete.Click.connect([this] { cmdDelete_Click(); });
    cmbFind.LostFocus.connect([this] { cmbFind_LostFocus(); });
    cmbReplace.LostFocus.connect([this] { cmbReplace_LostFocus(); });
}

void frmFind::Show() {
    hit_ = {};
    ended_.reset();
    if (!loaded_)
        Form_Load();
    TakeSelection();
}

// The last hit is what was looked for, in whatever letters.
void frmFind::TakeSelection() {
    constexpr qsizetype kLongest = 200;
    const controls::RichTextBox* target = slot_.findTarget;
    if (!target || target->IsMark() || target->SelLength() == 0 || target->SelLength() > kLongest)
        return;
    const QString selected = target->SelText();
    if (!selected.contains(u'\n') && selected.compare(cmbFind.Text(), Qt::CaseInsensitive) != 0)
        cmbFind.SetText(selected);
}

void frmFind::Form_Load() {
    FillBox(cmbFind, slot_.findHistory);
    FillBox(cmbReplace, slot_.replaceHistory);
    loaded_ = true;
}

void frmFind::Form_Unload() {
    if (!std::exchange(loaded_, false))
        return;
    slot_.findHistory = FillArrayFromCombo(cmbFind);
    slot_.replaceHistory = FillArrayFromCombo(cmbReplace);
    unloaded();
}

FindOptions frmFind::Options() const {
    return {chkWW.Value() == 1, chkMC.Value() == 1, chkHL.Value() == 1};
}

frmFind::Way frmFind::Direction() const {
    if (way_)
        return *way_;
    return optDU.Value() ? Way::Up : optDA.Value() ? Way::All : Way::Down;
}

frmFind::Search frmFind::SearchIn(const controls::RichTextBox& target) const {
    return {cmbFind.Text(), Options(), Direction(), target.SelStart(), target.SelLength()};
}

// --- one step ----------------------------------------------------------------------------------------------

// Compared as the search compares: a hit in other letters is one as well. What is the replacement already
// isn't replaced by it, so that going on always ends.
bool frmFind::SelectsHit(const controls::RichTextBox& target, const QString& replacement) const {
    if (hit_.at < 0)
        return false;
    const QString& wanted = cmbFind.Text();
    // A hit that wasn't to be highlighted stands behind the caret.
    const bool atCaret = target.SelLength() == 0 && hit_.found && target.SelStart() == hit_.at;
    const QString selected = atCaret ? target.Long().mid(hit_.at, wanted.size())
                                     : target.Long().mid(target.SelStart(), target.SelLength());
    const Qt::CaseSensitivity sensitivity = Options().matchCase ? Qt::CaseSensitive : Qt::CaseInsensitive;
    return !selected.isEmpty() && selected.compare(wanted, sensitivity) == 0 && selected != replacement;
}

qsizetype frmFind::BehindHit(const controls::RichTextBox& target) const {
    if (hit_.at < 0)
        return target.SelStart();
    return target.SelStart() + (target.SelStart() == hit_.at ? hit_.length : target.SelLength());
}

void frmFind::Replace(controls::RichTextBox& target, const QString& replacement) {
    const qsizetype at = target.SelStart();
    if (target.SelLength() == 0)
        target.SetSelLength(cmbFind.Text().size());
    const qsizetype removed = target.SelLength();
    target.SetSelText(replacement);
    ColourInserted(*slot_.findWindow, target, at, replacement.size());
    target.SetSelStart(at);
    target.SetSelLength(replacement.size());
    if (at < round_.from)
        round_.from += replacement.size() - removed;
    hit_ = {at, replacement.size(), false};
}

// From where the last hit was left, or where the user went since. A search that came to its end begins anew.
qsizetype frmFind::FindHit(controls::RichTextBox& target) {
    const QString& wanted = cmbFind.Text();
    const bool anew = ended_ && *ended_ == SearchIn(target);
    switch (Direction()) {
    case Way::Up:
        return FindTextRev(target, wanted, anew ? target.Long().size() : target.SelStart(), Options());
    case Way::Down:
        return FindText(target, wanted, anew ? 0 : BehindHit(target), Options());
    case Way::All:
        break;
    }
    return FindAround(target, anew);
}

qsizetype frmFind::FindAround(controls::RichTextBox& target, bool anew) {
    const QString& wanted = cmbFind.Text();
    const qsizetype from = anew ? target.SelStart() + target.SelLength() : BehindHit(target);
    if (hit_.at < 0 || !last_ || *last_ != SearchIn(target))
        round_ = {from, false};
    qsizetype found = SearchDown(target, wanted, from, Options());
    if (found < 0 && !std::exchange(round_.wrapped, true))
        found = SearchDown(target, wanted, 0, Options());
    if (round_.wrapped && found >= round_.from)
        found = -1;
    return TakeHit(target, found, wanted.size(), Options());
}

qsizetype frmFind::GeneralFindReplace(controls::RichTextBox& target, bool replacing,
                                      const QString& replacement) {
    const qsizetype start = target.SelStart(), length = target.SelLength();
    if (Direction() != Way::Up && start == target.Long().size())
        target.SetSelStart(0);
    qsizetype at = -1;
    if (replacing && SelectsHit(target, replacement)) {
        Replace(target, replacement);
        at = hit_.at;
    } else {
        at = FindHit(target);
        hit_ = {};
        if (at >= 0)
            hit_ = {at, cmbFind.Text().size(), true};
    }
    if (at < 0 && target.SelStart() != start) {
        target.SetSelStart(start);
        target.SetSelLength(length);
    }
    (at < 0 ? ended_ : last_) = SearchIn(target);
    (at < 0 ? last_ : ended_).reset();
    return at;
}

// --- commands ----------------------------------------------------------------------------------------------

void frmFind::ProcessLists(bool replacing) {
    ProcessList(cmbFind);
    if (replacing)
        ProcessList(cmbReplace);
}

void frmFind::TellEnd() {
    app_.services.prompts.MsgBox(QStringLiteral("The specified region has been reached."));
}

// The pane in use of the document in front is the one that is searched, also when the user went there
// meanwhile, or to another view of it.
bool frmFind::SeeToText() {
    if (cmbFind.Text().isEmpty())
        return false;
    DocumentWindow* active = app_.frame().ActiveForm();
    bool same = true;
    if (active && !ShowsText(active))
        same = ShowText(*active);
    if (!ShowsText(active)) {
        app_.services.prompts.Beep();
        return false;
    }
    slot_.findWindow = active;
    const controls::RichTextBox* before = std::exchange(slot_.findTarget, &active->TextInUse());
    if (slot_.findTarget != before || !same) {
        hit_ = {};
        ended_.reset();
    }
    return true;
}

void frmFind::Run(bool replacing) {
    edit::Guarded(app_, QStringLiteral("frmFind.GeneralFindReplace"), [&] {
        if (!SeeToText())
            return;
        const qsizetype found = GeneralFindReplace(*slot_.findTarget, replacing, cmbReplace.Text());
        if (found >= 0)
            ShowHit();
        ShowSelection(*slot_.findWindow);
        ProcessLists(replacing);
        if (found < 0)
            TellEnd();
    });
}

// The user looks at the hit: keys and commands are for the text, and tree and path follow.
void frmFind::ShowHit() {
    DocumentWindow& window = *slot_.findWindow;
    edit::Attend(window, kContextText);
    slot_.findTarget->SetFocus();
    SelectNodeAtCaret(window);
}

void frmFind::cmdFind_Click() {
    Run(false);
}

bool frmFind::FindNext(bool up) {
    if (cmbFind.Text().isEmpty())
        cmbFind.SetText(slot_.findHistory.value(0));
    if (cmbFind.Text().isEmpty())
        return false;
    const bool all = !up && Direction() == Way::All;
    const QScopedValueRollback way(way_, std::optional(up ? Way::Up : all ? Way::All : Way::Down));
    Run(false);
    if (!loaded_)
        slot_.findHistory = FillArrayFromCombo(cmbFind);
    return true;
}

void frmFind::cmdReplace_Click() {
    Run(true);
}

std::vector<qsizetype> frmFind::HitsToReplace(controls::RichTextBox& target) {
    const QString wanted = cmbFind.Text(), replacement = cmbReplace.Text();
    const bool selected = SelectsHit(target, replacement);
    if (Direction() == Way::Up)
        return HitsUp(target, wanted, target.SelStart() + (selected ? wanted.size() : 0), replacement,
                      Options());
    if (Direction() == Way::All)
        return HitsDown(target, wanted, 0, replacement, Options());
    if (target.SelStart() == target.Long().size())
        target.SetSelStart(0);
    return HitsDown(target, wanted, selected ? target.SelStart() : BehindHit(target), replacement, Options());
}

// What repeating cmdReplace_Click to its end would do, in one pass over the text.
void frmFind::ReplaceAll() {
    const QString wanted = cmbFind.Text(), replacement = cmbReplace.Text();
    controls::RichTextBox& target = *slot_.findTarget;
    int passes = 0;
    // Only a replacement by nothing at the very end of the text leaves the caret there, and then the search
    // begins again at the start; the text has become shorter, so that ends.
    for (bool again = true; again;) {
        const std::vector<qsizetype> hits = HitsToReplace(target);
        if (hits.empty())
            break;
        const qsizetype last = ReplaceHits(*slot_.findWindow, target, hits, wanted.size(), replacement);
        ++passes;
        hit_ = {last, replacement.size(), false};
        again = Direction() == Way::Down && replacement.isEmpty() && last == target.Long().size();
    }
    JoinSteps(*slot_.findWindow, StateOf(*slot_.findWindow).UndoPos - passes);
    hit_ = {};
}

void frmFind::cmdReplaceAll_Click() {
    edit::Guarded(app_, QStringLiteral("frmFind.cmdReplaceAll_Click"), [&] {
        if (!SeeToText())
            return;
        ReplaceAll();
        ShowSelection(*slot_.findWindow);
        ProcessLists(true);
        TellEnd();
    });
}

void frmFind::cmdCancel_Click() {
    Form_Unload();
}

void frmFind::cmdDelete_Click() {
    for (controls::ComboBox* box : {&cmbFind, &cmbReplace}) {
        box->Clear();
        box->SetText({});
    }
}

void frmFind::cmbFind_LostFocus() {
    ProcessList(cmbFind);
}

void frmFind::cmbReplace_LostFocus() {
    ProcessList(cmbReplace);
}

} // namespace textview

// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/dialogs/frmFind.h"
#include "core/edit/Guard.h"
#include "core/edit/View.h"
#include "core/model/Frame.h"
#include "textview/FillText.h"
#include "textview/ReplaceHits.h"
#include "textview/TextCommands.h"

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
    const qsizetype start = window.TextInUse().SelStart(), length = window.TextInUse().SelLength();
    edit::ShowView(window, edit::kTextTab);
    controls::RichTextBox& pane = window.TextInUse();
    if (!(pane.Long() == before))
        return false;
    pane.SetSelStart(start);
    pane.SetSelLength(length);
    return true;
}

} // namespace

frmFind::frmFind(Application& app) : app_(app), slot_(textview::Finding(app)) {
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
    if (!loaded_)
        Form_Load();
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

textview::FindOptions frmFind::Options() const {
    return {chkWW.Value() == 1, chkMC.Value() == 1, chkHL.Value() == 1};
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
    target.SetSelText(replacement);
    textview::ColourInserted(*slot_.findWindow, target, at, replacement.size());
    target.SetSelStart(at);
    target.SetSelLength(replacement.size());
    hit_ = {at, replacement.size(), false};
}

qsizetype frmFind::GeneralFindReplace(controls::RichTextBox& target, bool replacing,
                                      const QString& replacement) {
    const qsizetype start = target.SelStart(), length = target.SelLength();
    const bool up = optDU.Value();
    if (!up && start == target.Long().size())
        target.SetSelStart(0);
    if (replacing && SelectsHit(target, replacement)) {
        Replace(target, replacement);
        return hit_.at;
    }
    const QString& wanted = cmbFind.Text();
    const qsizetype found = up ? textview::FindTextRev(target, wanted, target.SelStart(), Options())
                               : textview::FindText(target, wanted, BehindHit(target), Options());
    hit_ = {};
    if (found >= 0) {
        hit_ = {found, wanted.size(), true};
        return found;
    }
    target.SetSelStart(start);
    target.SetSelLength(length);
    return -1;
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
    if (slot_.findTarget != before || !same)
        hit_ = {};
    return true;
}

void frmFind::Run(bool replacing) {
    edit::Guarded(app_, QStringLiteral("frmFind.GeneralFindReplace"), [&] {
        if (!SeeToText())
            return;
        const qsizetype found = GeneralFindReplace(*slot_.findTarget, replacing, cmbReplace.Text());
        textview::ShowSelection(*slot_.findWindow);
        ProcessLists(replacing);
        if (found < 0)
            TellEnd();
    });
}

void frmFind::cmdFind_Click() {
    Run(false);
}

void frmFind::cmdReplace_Click() {
    Run(true);
}

// What repeating cmdReplace_Click to its end would do, in one pass over the text.
void frmFind::ReplaceAll() {
    const QString wanted = cmbFind.Text(), replacement = cmbReplace.Text();
    controls::RichTextBox& target = *slot_.findTarget;
    const textview::FindOptions options = Options();
    const bool up = optDU.Value();
    // Only a replacement by nothing at the very end of the text leaves the caret there, and then the search
    // begins again at the start; the text has become shorter, so that ends.
    for (bool again = true; again;) {
        if (!up && target.SelStart() == target.Long().size())
            target.SetSelStart(0);
        const bool selected = SelectsHit(target, replacement);
        const qsizetype from = selected ? target.SelStart() + (up ? wanted.size() : 0)
                               : up     ? target.SelStart()
                                        : BehindHit(target);
        const std::vector<qsizetype> hits =
            up ? textview::HitsUp(target, wanted, from, replacement, options)
               : textview::HitsDown(target, wanted, from, replacement, options);
        if (hits.empty())
            break;
        const qsizetype last =
            textview::ReplaceHits(*slot_.findWindow, target, hits, wanted.size(), replacement);
        hit_ = {last, replacement.size(), false};
        again = !up && replacement.isEmpty() && last == target.Long().size();
    }
    hit_ = {};
}

void frmFind::cmdReplaceAll_Click() {
    edit::Guarded(app_, QStringLiteral("frmFind.cmdReplaceAll_Click"), [&] {
        if (!SeeToText())
            return;
        ReplaceAll();
        textview::ShowSelection(*slot_.findWindow);
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

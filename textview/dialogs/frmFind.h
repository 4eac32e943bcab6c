// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"
#include "platform/controls/Controls.h"
#include "textview/FindSlot.h"
#include "textview/FindText.h"

/// The dialog that finds and replaces in the text pane in use of the document in front, which it keeps as
/// the slot's findTarget. Where another view shows, it brings the text to the front. It stands beside the
/// documents, which stay within reach.
class frmFind {
public:
    explicit frmFind(Application& app);
    frmFind(const frmFind&) = delete;
    frmFind& operator=(const frmFind&) = delete;

    controls::ComboBox cmbFind, cmbReplace;     ///< with the history, newest first
    controls::CheckBox chkWW, chkMC, chkHL;     ///< whole word, match case, no highlight
    controls::OptionButton optDU, optDD, optDA; ///< up, down, all; one of them is chosen
    controls::CommandButton cmdFind, cmdReplace, cmdReplaceAll, cmdCancel, cmdDelete;

    /// The dialog is done with, until it is shown again.
    controls::Event<> unloaded;

    bool Loaded() const { return loaded_; }
    const controls::RichTextBox* Target() const { return slot_.findTarget; }
    void Show();        ///< loads it if it isn't; the next search starts afresh
    void Form_Load();   ///< fills the boxes from the history
    void Form_Unload(); ///< and keeps them there

    void cmdFind_Click();
    void cmdReplace_Click();
    /// Replaces up to the end of the region; each replacement is an undo step.
    void cmdReplaceAll_Click();
    void cmdCancel_Click();
    void cmdDelete_Click(); ///< empties both boxes
    void cmbFind_LostFocus();
    void cmbReplace_LostFocus();

    /// One search, or one replacement where the last hit is selected still and isn't the replacement already.
    /// The place of the hit or the replacement, -1 when nothing was found; the selection then stays.
    qsizetype GeneralFindReplace(controls::RichTextBox& target, bool replacing, const QString& replacement);

private:
    /// What was found or put in last, as long as the search goes on from there.
    struct Hit {
        qsizetype at = -1;
        qsizetype length = 0;
        bool found = false; ///< found, and not put in
    };
    bool SeeToText(); ///< false when there is nothing to look for, or no text to look in
    textview::FindOptions Options() const;
    bool SelectsHit(const controls::RichTextBox& target, const QString& replacement) const;
    qsizetype BehindHit(const controls::RichTextBox& target) const;
    void Replace(controls::RichTextBox& target, const QString& replacement);
    void Run(bool replacing);
    void ProcessLists(bool replacing);
    void TellEnd();
    void ReplaceAll();

    Application& app_;
    textview::FindSlot& slot_;
    bool loaded_ = false;
    Hit hit_;
};

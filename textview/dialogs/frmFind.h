// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"
#include "platform/controls/Controls.h"
#include "textview/FindSlot.h"
#include "textview/FindText.h"
#include <optional>
#include <vector>

namespace textview {

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
    /// Loads it if it isn't; the next search starts afresh. What is selected in one line is to be found.
    void Show();
    void Form_Load();   ///< fills the boxes from the history
    void Form_Unload(); ///< and keeps them there

    void cmdFind_Click();
    /// The same without the dialog, down or up. False when it doesn't know what to look for.
    bool FindNext(bool up);
    void cmdReplace_Click();
    /// Replaces up to the end of the region, as one undo step; with direction all in the whole text.
    void cmdReplaceAll_Click();
    void cmdCancel_Click();
    void cmdDelete_Click(); ///< empties both boxes
    void cmbFind_LostFocus();
    void cmbReplace_LostFocus();

    /// One search, or one replacement where the last hit is selected still and isn't the replacement already.
    /// The place of the hit or the replacement, -1 when nothing was found; the selection then stays.
    qsizetype GeneralFindReplace(controls::RichTextBox& target, bool replacing, const QString& replacement);

private:
    enum class Way { Up, Down, All };
    /// What was found or put in last, as long as the search goes on from there.
    struct Hit {
        qsizetype at = -1;
        qsizetype length = 0;
        bool found = false; ///< found, and not put in
    };
    /// A search as it stands between two clicks.
    struct Search {
        QString wanted;
        FindOptions options;
        Way way = Way::Down;
        qsizetype start = 0, length = 0; ///< of the selection
        bool operator==(const Search&) const = default;
    };
    /// Once around the text (quirk 51): from its place to the end, and from the start to its place.
    struct Round {
        qsizetype from = 0;
        bool wrapped = false;
    };
    void TakeSelection();
    bool SeeToText(); ///< false when there is nothing to look for, or no text to look in
    FindOptions Options() const;
    Way Direction() const;
    Search SearchIn(const controls::RichTextBox& target) const;
    bool SelectsHit(const controls::RichTextBox& target, const QString& replacement) const;
    qsizetype BehindHit(const controls::RichTextBox& target) const;
    qsizetype FindHit(controls::RichTextBox& target);
    qsizetype FindAround(controls::RichTextBox& target, bool anew);
    void Replace(controls::RichTextBox& target, const QString& replacement);
    void Run(bool replacing);
    void ShowHit();
    void ProcessLists(bool replacing);
    void TellEnd();
    void ReplaceAll();
    std::vector<qsizetype> HitsToReplace(controls::RichTextBox& target);

    Application& app_;
    FindSlot& slot_;
    bool loaded_ = false;
    Hit hit_;
    Round round_;
    std::optional<Search> last_;  ///< as the last one left everything, with its hit
    std::optional<Search> ended_; ///< the same, where nothing more was found
    std::optional<Way> way_;      ///< instead of the one that is chosen
};

} // namespace textview

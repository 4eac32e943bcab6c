// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"
#include "platform/controls/Controls.h"
#include <array>
#include <cstdint>

/// A text shown in the colour that it stands for.
class ColourSample {
public:
    explicit ColourSample(const QString& text) : Text(text) {}
    const QString Text;
    std::uint32_t ForeColor() const { return foreColor_; } ///< 0x00BBGGRR
    void SetForeColor(std::uint32_t colour);
    controls::Event<> changed;

private:
    std::uint32_t foreColor_ = 0;
};

/// The dialog of the options: two pages of fields, and what is stored when they are applied. It shows what is
/// in force when it is loaded; nothing is taken over before Apply or OK.
class frmOptions {
public:
    explicit frmOptions(Application& app);
    frmOptions(const frmOptions&) = delete;
    frmOptions& operator=(const frmOptions&) = delete;

    controls::TabStrip tbsOptions; ///< "parameters" and "textview"
    // "parameters"
    controls::TextBox txtTNTLen, txtTTLen, txtUndoSteps;
    controls::ComboBox cmbEnc;
    // "textview"
    controls::TextBox txtFontName;
    controls::ComboBox cmbSize;
    controls::CommandButton cmdFont;
    ColourSample txtGL, txtSlash, txtEqual, txtComment;
    std::array<controls::CommandButton, 4> cmdColor; ///< in the order of the samples
    // below the pages
    controls::CommandButton cmdOK, cmdCancel, cmdApply;

    /// The dialog is done with and to be closed.
    controls::Event<> unloaded;

    void Form_Load(); ///< fills the fields with the values in force
    /// Asks for the colour of a sample, 0 to 3.
    void cmdColor_Click(int index);
    void cmdFont_Click();
    /// Stores the fields and takes them over. Numbers aren't checked: what can't be read is 0. Where storing
    /// fails the user is told once, and the values hold for this run all the same.
    void cmdApply_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

private:
    Application& app_;
    std::array<ColourSample*, 4> samples_;
};

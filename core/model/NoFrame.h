// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Frame.h"
#include "platform/controls/Controls.h"

/// The frame of an application that has none: what it is asked for comes to nothing.
class NoFrame : public Frame {
public:
    DocumentWindow* ActiveForm() override { return nullptr; }
    void ActivateForm(DocumentWindow*) override {}
    controls::StatusBar& StatusBar1() override { return statusBar_; }
    controls::ComboBox& cmbAddress() override { return address_; }
    int MousePointer() const override { return 0; }
    void SetMousePointer(int) override {}
    void ErrorReportBox(const text::Fault&, const QString&) override {}
    void NewXMLFile(const FetchedText&, const QString&) override {}
    void NewSXMLFile(const FetchedText&, const QString&) override {}
    DocumentWindow* FormNamed(const QString&) override { return nullptr; }
    bool HaveSameNameForm(const QString&, bool) override { return false; }
    void RefreshMenu() override {}
    void DisableMenu() override {}
    void RunMenuCommand(const QString&) override {}
    void ShowFind() override {}
    void FindNext(bool) override {}
    void UpdateFileMenu(const QString&) override {}
    void AddToList(const QString&) override {}
    int FormCount() override { return 0; }

private:
    controls::StatusBar statusBar_{2};
    controls::ComboBox address_;
};

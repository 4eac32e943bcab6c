// SPDX-License-Identifier: GPL-3.0-or-later
// The frame's start, its controls, its boxes and dialogs, and the address box. Windows.cpp has the documents.
#include "shell/frmMDIMain.h"
#include "core/model/mXMLEdit.h"
#include "core/sync/Files.h"
#include "nodes/dialogs/frmEditNodes.h"
#include "platform/text/TextTools.h"
#include "shell/Commands.h"
#include "shell/MenuData.h"
#include "shell/Settings.h"
#include "shell/ToolbarData.h"
#include "textview/dialogs/frmFind.h"
#include <Qt>
#include <utility>

namespace {

const QString kSupportAddress = QStringLiteral("support@orvane.example");

// "html" stands twice and "htm" not at all; people who share lists of files count on it as it is.
const QString kPatterns = QStringLiteral(
    "*.xml;*.xsd;*.wsdl;*.uddi;*.biz;*.svg;*.tsd;*.vml;*.vxml;*.xdr;*.xsl;*.xslt;*.wml;*.cml;*.dtd;*.dcd;"
    "*.xhtml;*.html;*.html;*.txt;*.csv;*.asp;*.jsp;*.aspx;*.css;*.fo;*.mml;*.math;*.mtx;*.rdf;*.smil");
const QString kAllFiles = QStringLiteral("All Files (*.*)|*.*");

QString WithAllFiles(const QString& filter) {
    return filter.isEmpty() ? kAllFiles : filter + QLatin1Char('|') + kAllFiles;
}

} // namespace

frmMDIMain::frmMDIMain(Application& application)
    : Menus(BuildMenus()), Toolbars(BuildToolbars()), app_(application) {
    app_.frame = this;
    for (const auto& menu : Menus)
        IndexMenu(*menu);
    ConnectCommands(*this);
    ConnectAddressBox();
}

frmMDIMain::~frmMDIMain() {
    windowOrder_.clear();
    forms_.clear();
    app_.frame = nullptr;
}

void frmMDIMain::IndexMenu(controls::MenuItem& item) {
    if (!item.separator) {
        entries_.push_back(&item);
        entriesByName_[item.Name].push_back(&item);
    }
    for (const auto& child : item.Items)
        IndexMenu(*child);
}

void frmMDIMain::MDIForm_Load() {
    ReadSettings(app_);
    SetRTFColorString(app_);
    GetRecentFiles();
    FillCombo();
    cmbAddress_Change();
    SetMenuSituation(MenuSituation::NoForm);
}

void frmMDIMain::MDIForm_Activate(const QString& commandLine) {
    if (commandLine.isEmpty())
        return;
    QString name = commandLine;
    if (name.startsWith(QLatin1Char('"')))
        name.remove(0, 1);
    if (name.endsWith(QLatin1Char('"')))
        name.chop(1);
    OpenNamed(name);
}

// --- controls -------------------------------------------------------------------------------------------

controls::MenuItem& frmMDIMain::Menu(const QString& name, int index) {
    const auto found = entriesByName_.constFind(name);
    if (found != entriesByName_.constEnd())
        for (controls::MenuItem* item : *found)
            if (item->Index == index)
                return *item;
    throw text::Fault(text::kFaultNotFound, QStringLiteral("Element not found"));
}

controls::Toolbar& frmMDIMain::ToolbarByName(const QString& name) {
    for (const auto& toolbar : Toolbars)
        if (toolbar->Name == name)
            return *toolbar;
    throw text::Fault(text::kFaultNotFound, QStringLiteral("Element not found"));
}

// --- boxes and dialogs ----------------------------------------------------------------------------------

void frmMDIMain::ErrorReportBox(const text::Fault& fault, const QString& routineName) {
    if (fault.Number == 0 || !app_.options.Debug)
        return;
    const QStringList lines = {
        QStringLiteral("Module name:") + routineName,
        QStringLiteral("Error number:") + QString::number(fault.Number),
        QStringLiteral("Error des:") + fault.Description,
        QStringLiteral("Please contact us by ") + kSupportAddress + QStringLiteral(" Thanks!"),
    };
    app_.services.prompts.MsgBox(lines.join(QStringLiteral("\r\n")), services::Buttons::Ok,
                                 services::Icon::Information);
}

void frmMDIMain::SetMousePointer(int pointer) {
    if (std::exchange(mousePointer_, pointer) != pointer)
        mousePointerChanged(pointer);
}

void frmMDIMain::MessageBox(const QString& message, const QString& title) {
    app_.services.prompts.MsgBox(message, services::Buttons::Ok, services::Icon::Information, title);
}

QString frmMDIMain::GetFileName(const QString& extension) {
    const QString filter = QStringLiteral("All Files (*.%1)|*.%1").arg(extension);
    return app_.services.prompts.OpenFileName(QStringLiteral("Open file"), filter);
}

QString frmMDIMain::GetSaveFileAs(const QString& filter) {
    return app_.services.prompts.SaveFileName(QStringLiteral("Save As"), WithAllFiles(filter), {});
}

QString frmMDIMain::GetFileNameByFilter(const QString& filter) {
    return app_.services.prompts.OpenFileName(QStringLiteral("Open file"), WithAllFiles(filter));
}

void frmMDIMain::OpenXMLFile() {
    const QString filter = QStringLiteral("XML;Schema; etc.(") + kPatterns + QStringLiteral(")|") +
                           kPatterns + QStringLiteral("|XML File (*.xml)|*.xml|Schema File (*.xsd)|*.xsd");
    const QString name = GetFileNameByFilter(filter);
    // Nobody means to edit a picture or a program: such a choice is passed over without a word.
    if (!name.isEmpty() && !mXMLEdit::IsBinaryFile(name))
        OpenNamed(name);
}

// --- address box ----------------------------------------------------------------------------------------

void frmMDIMain::ConnectAddressBox() {
    address_.Change.connect([this] { cmbAddress_Change(); });
    address_.changed.connect([this] { cmbAddress_Change(); });
    address_.Click.connect([this] { cmbAddress_Click(); });
    address_.KeyUp.connect([this](int key, int) { cmbAddress_KeyUp(key); });
}

void frmMDIMain::cmbAddress_Change() {
    ToolbarByName(QStringLiteral("tbNavigate"))
        .Button(QStringLiteral("go"))
        .SetEnabled(!text::Trim(address_.Text()).isEmpty());
}

void frmMDIMain::cmbAddress_Click() {
    if (!text::Trim(address_.Text()).isEmpty())
        OpenNamed(address_.Text());
}

void frmMDIMain::cmbAddress_KeyUp(int key) {
    if ((key != Qt::Key_Return && key != Qt::Key_Enter) || address_.Text().isEmpty())
        return;
    const QString entered = address_.Text();
    cmbAddress_Click();
    if (address_.Text().isEmpty()) // a document from the web: its address isn't shown
        AddToList(mXMLEdit::NameMeant(app_, entered));
    else
        ProcessList(address_);
}

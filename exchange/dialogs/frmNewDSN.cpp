// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/dialogs/frmNewDSN.h"
#include "core/edit/Guard.h"
#include "core/model/FileNames.h"
#include "exchange/OpenDatabase.h"
#include "platform/services/Databases.h"
#include "platform/text/TextTools.h"
#include <algorithm>

namespace exchange {

namespace {

using services::Answer;
using services::Buttons;
using services::Icon;

const QString kNoName = QStringLiteral(
    "The name of a source has 32 characters at most, and none of [ ] { } ( ) , ; ? * = ! @ \\.");

/// What a driver calls the parts of a source, by a word of its name.
struct KeyWords {
    const char *driver, *server, *user, *password;
};
const KeyWords& WordsOf(const QString& driver) {
    static constexpr KeyWords kWords[] = {{"postgres", "Servername", "Username", "Password"},
                                          {"freetds", "Server", "UID", "PWD"},
                                          {"", "Server", "User", "Password"}};
    return *std::find_if(std::begin(kWords), std::prev(std::end(kWords)), [&](const KeyWords& words) {
        return driver.contains(QLatin1String(words.driver), Qt::CaseInsensitive);
    });
}

} // namespace

frmNewDSN::frmNewDSN(Application& app) : app_(app) {
    cmbDriver.Click.connect([this] { ShowDriver(); });
    txtName.Change.connect([this] { ShowDriver(); });
    cmdFile.Click.connect([this] { cmdFile_Click(); });
    OKButton.Click.connect([this] { OKButton_Click(); });
    CancelButton.Click.connect([this] { unloaded(); });
}

void frmNewDSN::Form_Load() {
    const QStringList drivers = services::Databases().Drivers();
    for (const QString& driver : drivers)
        cmbDriver.AddItem(driver);
    const QString usual = QStringLiteral("SQLite3");
    cmbDriver.SetListIndex(drivers.contains(usual) ? static_cast<int>(drivers.indexOf(usual)) : 0);
    ShowDriver();
}

bool frmNewDSN::IsFileDriver() const {
    const QString driver = cmbDriver.Text();
    return driver.contains(QStringLiteral("sqlite"), Qt::CaseInsensitive) ||
           driver.contains(QStringLiteral("mdb"), Qt::CaseInsensitive);
}

void frmNewDSN::ShowDriver() {
    const bool file = IsFileDriver();
    cmdFile.SetEnabled(file);
    for (controls::TextBox* box : {&txtServer, &txtPort, &txtUser, &txtPassword})
        box->SetEnabled(!file);
    const QString name = text::Trim(txtName.Text());
    lblNote.SetCaption(
        !name.isEmpty() && !services::Databases().MayBeSource(name) ? kNoName
        : cmbDriver.Items().isEmpty()
            ? FailureText({services::DatabaseFailure::NoDriver, QStringLiteral("No driver is installed.")})
        : file ? QString()
               : QStringLiteral("The password is kept in the list of sources, readable for this user."));
}

void frmNewDSN::cmdFile_Click() {
    const QString path = app_.services.prompts.OpenFileName(
        QStringLiteral("Open file"),
        QStringLiteral(
            "Database files (*.db;*.sqlite;*.sqlite3;*.mdb;*.accdb)|*.db;*.sqlite;*.sqlite3;*.mdb;*.accdb|"
            "All Files (*.*)|*.*"));
    if (path.isEmpty())
        return;
    txtDatabase.SetText(path);
    if (text::Trim(txtName.Text()).isEmpty())
        txtName.SetText(mXMLEdit::GetFSFileName(path).section(u'.', 0, 0));
}

std::vector<std::pair<QString, QString>> frmNewDSN::Settings() const {
    const KeyWords& words = WordsOf(cmbDriver.Text());
    const std::pair<const char*, const controls::TextBox*> fields[] = {{"Database", &txtDatabase},
                                                                       {words.server, &txtServer},
                                                                       {"Port", &txtPort},
                                                                       {words.user, &txtUser},
                                                                       {words.password, &txtPassword}};
    std::vector<std::pair<QString, QString>> settings;
    for (const auto& [key, box] : fields) {
        if (box->Enabled() && !box->Text().isEmpty())
            settings.emplace_back(QLatin1String(key), box->Text());
    }
    return settings;
}

// An empty file is a database of SQLite without tables; others can't be made here.
bool frmNewDSN::MakeFile() {
    const QString path = txtDatabase.Text();
    const QString missing = QStringLiteral("Can not find ") + path;
    services::Prompts& prompts = app_.services.prompts;
    if (!cmbDriver.Text().contains(QStringLiteral("sqlite"), Qt::CaseInsensitive)) {
        prompts.MsgBox(missing, Buttons::Ok, Icon::Exclamation);
        return false;
    }
    if (prompts.MsgBox(missing + QStringLiteral("\r\nDo you want to make an empty database?"), Buttons::YesNo,
                       Icon::Question) != Answer::Yes)
        return false;
    const services::FileResult result = app_.services.files.Replace(path, {});
    if (!result)
        prompts.MsgBox(result.description, Buttons::Ok, Icon::Exclamation);
    return static_cast<bool>(result);
}

bool frmNewDSN::MayWrite() {
    const auto refuse = [&](const QString& why) {
        app_.services.prompts.MsgBox(why, Buttons::Ok, Icon::Exclamation);
        return false;
    };
    const QString name = text::Trim(txtName.Text());
    if (name.isEmpty() || cmbDriver.Text().isEmpty())
        return refuse(QStringLiteral("A source needs a driver and a name."));
    if (!services::Databases().MayBeSource(name))
        return refuse(kNoName);
    if (IsFileDriver() && text::Trim(txtDatabase.Text()).isEmpty())
        return refuse(QStringLiteral("A source of this driver needs a file."));
    if (IsFileDriver() && !mXMLEdit::FileExist(app_, txtDatabase.Text()) && !MakeFile())
        return false;
    return MayReplace(name);
}

// The driver manager remembers the driver of a source for a while, whatever the list says.
bool frmNewDSN::MayReplace(const QString& name) {
    const auto sources = services::Databases().Sources();
    const auto known =
        std::find_if(sources.begin(), sources.end(), [&](const auto& source) { return source.name == name; });
    if (known == sources.end())
        return true;
    QString question = QStringLiteral("There is a source %1 already. Do you want to replace it?").arg(name);
    if (known->driver != cmbDriver.Text())
        question += QStringLiteral("\r\nIt has another driver, which may be used for half a minute still.");
    return app_.services.prompts.MsgBox(question, Buttons::YesNo, Icon::Question) == Answer::Yes;
}

void frmNewDSN::OKButton_Click() {
    edit::Guarded(app_, QStringLiteral("frmNewDSN@OKButton_Click"), [&] {
        if (!MayWrite())
            return;
        const QString name = text::Trim(txtName.Text());
        const services::DatabaseResult result =
            services::Databases().AddSource(name, cmbDriver.Text(), Settings());
        if (!result) {
            app_.services.prompts.MsgBox(result.text, Buttons::Ok, Icon::Exclamation);
            return;
        }
        made_ = name;
        unloaded();
    });
}

} // namespace exchange

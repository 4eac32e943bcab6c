// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "platform/services/RealServices.h"
#include "platform/services/Schemas.h"
#include "shell/frmMDIMain.h"
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <cstdio>
#include <cstdlib>

// An application that asks no questions, for measuring programs.
namespace bench {

template <typename Act> double Milliseconds(Act act) {
    QElapsedTimer timer;
    timer.start();
    act();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

/// Resident memory in MB.
inline double Resident() {
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toDouble() * 4096 / 1e6;
}

class NoPrompts : public services::Prompts {
public:
    services::Answer MsgBox(const QString& text, services::Buttons, services::Icon, const QString&,
                            const QString&) override {
        std::fprintf(stderr, "%s\n", qPrintable(text));
        return services::Answer::No;
    }
    int Choose(const QString&, const QStringList&, int) override { return -1; }
    void ShowText(const QString&, const QString&) override {}
    QString OpenFileName(const QString&, const QString&) override { return {}; }
    QString SaveFileName(const QString&, const QString&, const QString&) override { return {}; }
    std::optional<std::uint32_t> ChooseColour(std::uint32_t) override { return {}; }
    std::optional<services::FontChoice> ChooseFont(const services::FontChoice&) override { return {}; }
    void Beep() override {}
};

class NoClipboard : public services::Clipboard {
public:
    QString text;        ///< what commands find there
    qsizetype taken = 0; ///< characters that came last; they aren't kept
    void Clear() override {}
    void SetText(const QString& given) override { taken = given.size(); }
    QString GetText() override { return text; }
};

class NoBar : public services::Progress {
public:
    void Begin(const QString&) override {}
    bool Step(qint64, qint64) override { return true; }
    void End() override {}
};

/// The application with the document that the command line names. Without one, or when it can't be opened,
/// the program ends.
class Quiet {
public:
    Quiet(int argc, char** argv, const char* usage) {
        if (argc < 2) {
            std::printf("usage: %s\n", usage);
            std::exit(2);
        }
        frame_.MDIForm_Load();
        const QString name = QDir::current().absoluteFilePath(QString::fromLocal8Bit(argv[1]));
        const double took = Milliseconds([&] { frame_.MDIForm_Activate(name); });
        if (!frame_.ActiveForm() || window().tvXML.Nodes.Count() < 3)
            std::exit(1);
        std::printf("open: %d nodes in %.3f s\n", window().tvXML.Nodes.Count(), took / 1e3);
        std::fflush(stdout);
    }
    Application& app() { return app_; }
    NoClipboard& clipboard() { return noClipboard_; }
    DocumentWindow& window() { return *frame_.ActiveForm(); }

private:
    NoPrompts noPrompts_;
    NoBar noBar_;
    NoClipboard noClipboard_;
    std::unique_ptr<services::SettingsStore> settings_ =
        services::MakeIniSettings(QDir::tempPath() + QStringLiteral("/vantrel-bench.ini"));
    std::unique_ptr<services::FileSystem> files_ = services::MakeFileSystem();
    std::unique_ptr<services::HttpClient> http_ = services::MakeHttpClient();
    std::unique_ptr<services::Clock> clock_ = services::MakeClock();
    std::unique_ptr<services::Schemas> schemas_ = services::MakeSchemas();
    Application app_{services::Services{noPrompts_, noBar_, *settings_, *files_, *http_, *clock_,
                                        noClipboard_, nullptr, nullptr, schemas_.get()}};
    frmMDIMain frame_{app_};
};

} // namespace bench

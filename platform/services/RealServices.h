// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/services/Services.h"
#include <memory>

// The real things, but for Prompts and Progress, which need a screen and stand in the desktop.
namespace services {

/// An INI file; `path` empty: vantrel/vantrel.ini under the user's configuration folder. Read anew when the
/// file changed; written whole or not at all, under a lock that all running programs share: keys of others
/// stay, comments don't. A file that can't be read counts as empty and is not written over.
std::unique_ptr<SettingsStore> MakeIniSettings(const QString& path = {});
std::unique_ptr<FileSystem> MakeFileSystem();
std::unique_ptr<HttpClient> MakeHttpClient(); ///< needs a QCoreApplication
std::unique_ptr<Clock> MakeClock();
std::unique_ptr<FileWatch> MakeFileWatch(); ///< needs a QCoreApplication

} // namespace services

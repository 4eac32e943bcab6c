// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/FetchedText.h"
#include "platform/services/Services.h"
#include <QString>

struct Application;

// What stands behind a name: a file's or an address's text.
namespace edit {

/// Fetches by the address type. True with an untouched `fetched` for a name that is neither file nor web
/// address: it is then an empty document. False after a message when nothing could be fetched or the user
/// cancelled. Text that was fetched is taken apart already while the user can still cancel; a bar that shows
/// stays as long as `fetched` does.
bool GetData(Application& app, const QString& address, FetchedText& fetched);
bool GetFileData(Application& app, const QString& path, FetchedText& fetched);
bool GetHttpData(Application& app, const QString& url, FetchedText& fetched);

/// Why a file couldn't be read, as the user is told.
QString ReadFailureText(const QString& path, const services::FileResult& result);

} // namespace edit

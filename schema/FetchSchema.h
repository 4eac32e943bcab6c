// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <map>
#include <optional>

// Schemas from the net. One is fetched only where the user has said so, address by address, and kept for the
// run.
namespace schema {

const std::map<QString, QByteArray>& FetchedBefore(Application& app);

/// Asks for each address whether to fetch it, and does so. True when anything has come that wasn't there
/// before.
bool FetchWanted(Application& app, const QStringList& addresses);
/// The bytes at an address; nothing where the user declines, or where it can't be had, which status panel 1
/// tells.
std::optional<QByteArray> FetchIfAllowed(Application& app, const QString& address);

} // namespace schema

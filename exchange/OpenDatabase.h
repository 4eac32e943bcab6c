// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/Waiting.h"
#include "platform/services/Databases.h"
#include <QString>
#include <memory>

struct Application;

// The way to a database, and what is told where it fails.
namespace exchange {

/// Connects as services::Databases::Open does. The setting "DatabaseTimeOut" gives all time-outs in seconds.
std::unique_ptr<services::Database> OpenDatabase(Application& app, const QString& connection,
                                                 const edit::WaitStep& step,
                                                 services::DatabaseResult& result);

/// What a failure means to the user: the driver's own words, and which package brings a driver that is
/// missing.
QString FailureText(const services::DatabaseResult& result);

} // namespace exchange
